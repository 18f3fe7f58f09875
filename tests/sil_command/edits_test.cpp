// Changes in place: what they replace, add and remove, and that they leave all else alone.
#include "core/edits.h"

#include <gtest/gtest.h>

#include "core/layout.h"
#include "core/load.h"
#include "core/paths.h"
#include "core/source_places.h"
#include "sil_command/generator.h"

namespace sil {
namespace {

// The new text, or what is said instead.
template <typename Change>
std::string edited(const std::string &text, Change change) {
  const Loaded loaded = load(text);
  if (!loaded.model) return "not decoded";
  const Edited result = change(Editable{read_document(text), *loaded.model});
  switch (result.result) {
    case Edited::Result::kDone:
      return result.text;
    case Edited::Result::kRefused:
      return "refused: " + result.problem;
    default:
      return "wrong: " + result.problem;
  }
}

std::string set(const std::string &text, const std::vector<std::string> &assignments) {
  return edited(text, [&](const Editable &editable) { return set_places(editable, assignments); });
}

std::string add(const std::string &text, const NewElement &wanted) {
  return edited(text, [&](const Editable &editable) { return add_element(editable, wanted); });
}

std::string remove(const std::string &text, const std::string &path) {
  return edited(text, [&](const Editable &editable) { return remove_elements(editable, path); });
}

// A service S with one unnamed invocation that holds this.
std::string in_scan(const std::string &attributes) { return "[kmt_svc_scan S] {" + attributes + "} end\n"; }

std::string set_in_scan(const std::string &attributes, const std::vector<std::string> &assignments) {
  const std::string text = set(in_scan(attributes), assignments);
  if (!text.starts_with(in_scan("").substr(0, 18))) return text;
  return text.substr(18, text.size() - 18 - 6);
}

// ---- Values ----

TEST(Set, ReplacesAValueAndNothingElse) {
  EXPECT_EQ(set_in_scan("integer A  =1 ;# c\n", {"S//A=2"}), "integer A  =2 ;# c\n");
}

TEST(Set, QuotesWhatIsNoWord) {
  EXPECT_EQ(set_in_scan("string A = a;", {"S//A=say \"hi\"\n"}), R"(string A = "say \"hi\"\n";)");
  EXPECT_EQ(set_in_scan("ref_collection A = a;", {"S//A=In; box"}), "ref_collection A = \"In; box\";");
  EXPECT_EQ(set_in_scan("ref_collection A = a;", {"S//A=end"}), "ref_collection A = \"end\";");
}

TEST(Set, SplitsAtTheFirstEqualsSign) {
  EXPECT_EQ(set_in_scan("string A = a;", {"S//A=b=c"}), "string A = \"b=c\";");
}

TEST(Set, MakesAListOfAPathThatIsGivenAgain) {
  EXPECT_EQ(set_in_scan("integer A = 1;", {"S//A=2", "S//A=3", "S//A=4"}), "integer A = 2, 3, 4;");
  EXPECT_EQ(set_in_scan("integer A = 1 ,  2 , 3 ;", {"S//A=4", "S//A=5"}), "integer A = 4 ,  5 ;");
}

TEST(Set, KeepsCommentsBetweenValues) {
  EXPECT_EQ(set_in_scan("integer A = 1, # one\n 2;", {"S//A=3", "S//A=4"}), "integer A = 3, # one\n 4;");
  EXPECT_EQ(set_in_scan("integer A = 1, # one\n 2;", {"S//A=3"}),
            "refused: a comment stands in what would be removed; remove that first");
}

TEST(Set, ReplacesOneValueAndAppendsOthers) {
  EXPECT_EQ(set_in_scan("integer A = 1, 2, 3;", {"S//A[2]=5"}), "integer A = 1, 5, 3;");
  EXPECT_EQ(set_in_scan("integer A = 1, 2;", {"S//A[+]=3", "S//A[+]=4"}), "integer A = 1, 2, 3, 4;");
  EXPECT_EQ(set_in_scan("integer A = 1;", {"S//A[2]=3"}),
            "refused: there is no value 2 in S//A, which has 1");
}

TEST(Set, GivesAnAttributeItsFirstValue) {
  EXPECT_EQ(set_in_scan("integer A;", {"S//A=1", "S//A=2"}), "integer A = 1, 2;");
  EXPECT_EQ(set_in_scan("integer A = ;", {"S//A[+]=1"}), "integer A = 1 ;");
}

TEST(Set, SetsEverywhereThatAPathNames) {
  EXPECT_EQ(set_in_scan("integer A = 1; integer B = 2;", {"S/*/*=3"}), "integer A = 3; integer B = 3;");
}

// ---- Names, stars, statuses ----

TEST(Set, ReplacesNames) {
  EXPECT_EQ(set("[kmt_svc_scan S] I{integer A;}end", {"S@name=T", "S/I@name=J", "S/I/A@name=B"}),
            "[kmt_svc_scan T] J{integer B;}end");
  EXPECT_EQ(set_in_scan("integer A;", {"S//A@name=B C"}),
            "refused: \"B C\" cannot be a name: it must be one word");
  EXPECT_EQ(set_in_scan("integer A;", {"S/@name=B"}), "refused: S/ has no name that could be replaced");
}

TEST(Set, PutsStarsInAndTakesThemOutInTheirColumns) {
  EXPECT_EQ(
      set_in_scan("\n    * integer A;\n      integer B;", {"S//A@compulsory=true", "S//B@compulsory=false"}),
      "\n      integer A;\n    * integer B;");
  EXPECT_EQ(set_in_scan("* integer A; integer B;", {"S//A@compulsory=true", "S//B@compulsory=false"}),
            "integer A; * integer B;");
  EXPECT_EQ(set_in_scan("* integer A;", {"S//A@compulsory=FALSE"}), "* integer A;");
  EXPECT_EQ(set_in_scan("* integer A;", {"S//A@compulsory=no"}), "wrong: @compulsory is true or false");
}

TEST(Set, ReplacesAddsAndRemovesStatuses) {
  EXPECT_EQ(set_in_scan("integer A; ( X );", {}), "not decoded");
  EXPECT_EQ(set_in_scan("integer A; ( X {y} )", {"S//A@status=KMT_STATUS_COMPLETED"}),
            "integer A; ( KMT_STATUS_COMPLETED {y} )");
  EXPECT_EQ(set_in_scan("integer A;", {"S//A@status=KMT_STATUS_COMPLETED"}),
            "integer A;(KMT_STATUS_COMPLETED)");
  EXPECT_EQ(set_in_scan("integer A;()", {"S//A@status=KMT_STATUS_COMPLETED"}),
            "integer A;(KMT_STATUS_COMPLETED)");
  EXPECT_EQ(set_in_scan("integer A; (X{y})", {"S//A@status="}), "integer A;");
  EXPECT_EQ(set_in_scan("integer A;", {"S//A@status="}), "refused: S//A has no status");
  EXPECT_EQ(set_in_scan("integer A;\n# c\n(X)", {"S//A@status="}), "integer A;\n# c\n");
  EXPECT_EQ(set_in_scan("integer A;(\n# c\nX)", {"S//A@status="}),
            "refused: a comment stands in what would be removed; remove that first");
}

TEST(Set, ReplacesAddsAndRemovesTextsBehindStatuses) {
  EXPECT_EQ(set_in_scan("integer A;(X{y z})", {"S//A@status-text=one two"}), "integer A;(X{\"one two\"})");
  EXPECT_EQ(set_in_scan("integer A;(X)", {"S//A@status-text=y"}), "integer A;(X{y})");
  EXPECT_EQ(set_in_scan("integer A;(X{})", {"S//A@status-text=y"}), "integer A;(X{y})");
  EXPECT_EQ(set_in_scan("integer A;(X{y})", {"S//A@status-text="}), "integer A;(X)");
  EXPECT_EQ(set_in_scan("integer A;", {"S//A@status-text=y"}),
            "refused: S//A has no status that a text could stand behind");
}

TEST(Set, ReplacesTheHeadersWords) {
  EXPECT_EQ(set("<SIL 4.2.00 ASCII job>string A=x;</SIL>",
                {"@header@version=4.3", "@header@identifier=new", "@header/A=y"}),
            "<SIL 4.3 ASCII new>string A=\"y\";</SIL>");
  EXPECT_EQ(set("<SIL 4.2.00 ASCII job>[kmt_svc_scan S]end</SIL>", {"@header@identifier=a b"}),
            "refused: \"a b\" cannot be an identifier: it must be one word");
}

TEST(Set, SaysWhatIsNoChange) {
  EXPECT_EQ(set_in_scan("integer A;", {"S//A"}), "wrong: \"S//A\" has no =; 'PATH=VALUE' is needed");
  EXPECT_EQ(set_in_scan("integer A;", {"S//B=1"}), "refused: there is no attribute \"B\" in S/");
  EXPECT_EQ(set_in_scan("integer A;", {"S/=1"}), "refused: S/ has no values; its name is S/@name");
  EXPECT_EQ(set_in_scan("integer A;", {"S//A@type=real"}),
            "refused: types, forms and comments cannot be set");
  EXPECT_EQ(set_in_scan("integer A;", {"S//A@name=B", "S//A@name=C"}),
            "wrong: two of the changes are of one place");
  EXPECT_EQ(set_in_scan("integer A=1;", {"S//A=2", "S//A[1]=3"}),
            "wrong: one attribute is given all of its values and single ones");
}

// ---- Adding ----

constexpr char kJob[] = R"(< SIL 4.2.00 ASCII job >

# letters
[kmt_svc_scan Scanner]
Letter {
  integer Copies = 1;  # how many
  # to whom
  string To = "a";
}
{ integer One; }
end  # Scanner

[kmt_svc_fax Fax]
end
< /SIL >
)";

// The lines of the job with one of them replaced by others.
std::string job_with(std::string_view line, std::string_view others) {
  std::string text = kJob;
  const std::size_t at = text.find(line);
  EXPECT_NE(at, std::string::npos) << line;
  return text.replace(at, line.size(), others);
}

TEST(Add, PutsAnAttributeBehindTheLastLineOfItsPredecessor) {
  EXPECT_EQ(add(kJob, {"Scanner/Letter/New", "integer", false, "", {"4", "5"}}),
            job_with("  string To = \"a\";\n", "  string To = \"a\";\n  integer New = 4, 5;\n"));
  EXPECT_EQ(add(kJob, {"Scanner/Letter/New", "string", true, "", {"a b"}}),
            job_with("  string To = \"a\";\n", "  string To = \"a\";\n* string New = \"a b\";\n"));
}

TEST(Add, PutsAnAttributeBeforeTheCommentsOfItsSuccessor) {
  EXPECT_EQ(add(kJob, {"Scanner/Letter/New", "integer", false, "Scanner/Letter/To", {}}),
            job_with("  # to whom\n", "  integer New;\n  # to whom\n"));
}

TEST(Add, StaysOnTheLineOfItsNeighbours) {
  EXPECT_EQ(add(kJob, {"Scanner//New", "integer", false, "", {}}), job_with("One; }", "One; integer New; }"));
  EXPECT_EQ(add(kJob, {"Scanner//New", "integer", false, "Scanner//One", {}}),
            job_with("integer One", "integer New; integer One"));
}

TEST(Add, PutsInvocations) {
  EXPECT_EQ(add(kJob, {"Scanner/New", "", false, "", {}}), job_with("One; }\n", "One; }\nNew{\n}\n"));
  EXPECT_EQ(add(kJob, {"Fax/", "", false, "", {}}),
            job_with("[kmt_svc_fax Fax]\n", "[kmt_svc_fax Fax]\n {\n }\n"));
}

TEST(Add, PutsServicesWithEmptyLinesAround) {
  EXPECT_EQ(add(kJob, {"Mail", "kmt_svc_email", false, "", {}}),
            job_with("[kmt_svc_fax Fax]\nend\n", "[kmt_svc_fax Fax]\nend\n\n[kmt_svc_email Mail]\nend\n\n"));
  EXPECT_EQ(add(kJob, {"Mail", "kmt_svc_email", false, "Scanner", {}}),
            job_with("# letters\n", "[kmt_svc_email Mail]\nend\n\n# letters\n"));
  EXPECT_EQ(add("<SIL 4.2.00 ASCII j>\n\n< /SIL >", {"Mail", "kmt_svc_email", false, "", {}}),
            "<SIL 4.2.00 ASCII j>\n\n[kmt_svc_email Mail]\nend\n\n< /SIL >");
}

TEST(Add, PutsTheFirstAttributeOfAHeader) {
  EXPECT_EQ(add(kJob, {"@header/Owner", "string", false, "", {"me"}}),
            job_with("job >\n", "job >\n\nstring Owner = \"me\";\n"));
}

TEST(Add, TakesTheLineEndsOfTheText) {
  EXPECT_EQ(add("[kmt_svc_scan S]\r\n {\r\n }\r\nend\r\n", {"S//A", "integer", false, "", {}}),
            "[kmt_svc_scan S]\r\n {\r\n      integer A;\r\n }\r\nend\r\n");
}

TEST(Add, SaysWhyItIsRefused) {
  EXPECT_EQ(add(kJob, {"Scanner/No/New", "integer", false, "", {}}),
            "refused: there is no invocation \"No\" in Scanner");
  EXPECT_EQ(add(kJob, {"*/Letter", "", false, "", {}}), "refused: the path names 2 places");
  EXPECT_EQ(add(kJob, {"Scanner/Letter/New", "", false, "", {}}), "wrong: --type is needed, and is one word");
  EXPECT_EQ(add(kJob, {"Scanner/New", "integer", false, "", {}}), "wrong: an invocation has no type");
  EXPECT_EQ(add(kJob, {"New", "kmt_svc_fax", true, "", {}}),
            "wrong: only an attribute has a star and values");
  EXPECT_EQ(add(kJob, {"\"a b\"", "kmt_svc_fax", false, "", {}}), "refused: \"a b\" cannot be a name");
  EXPECT_EQ(add(kJob, {"Scanner/Letter/New", "integer", false, "Scanner//One", {}}),
            "refused: Scanner//One is not beside Scanner/Letter/New");
  EXPECT_EQ(add(kJob, {"Scanner/*", "", false, "", {}}),
            "wrong: Scanner/*: the last step is the name of what is added");
}

// ---- Removing ----

TEST(Remove, TakesLinesWithTheCommentsThatBelongToThem) {
  EXPECT_EQ(remove(kJob, "Scanner/Letter/Copies"), job_with("  integer Copies = 1;  # how many\n", ""));
  EXPECT_EQ(remove(kJob, "Scanner/Letter/To"), job_with("  # to whom\n  string To = \"a\";\n", ""));
}

TEST(Remove, LeavesNoTwoEmptyLines) {
  EXPECT_EQ(remove(kJob, "Scanner"), "< SIL 4.2.00 ASCII job >\n\n[kmt_svc_fax Fax]\nend\n< /SIL >\n");
}

TEST(Remove, LeavesWhatElseIsOnALine) {
  EXPECT_EQ(remove(kJob, "Scanner//One"), job_with("{ integer One; }", "{ }"));
  EXPECT_EQ(remove(in_scan("integer A; integer B; # b\n"), "S//A"), in_scan("integer B; # b\n"));
  EXPECT_EQ(remove(in_scan("integer A; integer B; # b\n"), "S//B"), in_scan("integer A;\n"));
}

TEST(Remove, TakesAllThatThePathNames) {
  EXPECT_EQ(remove(in_scan("integer A; integer B;\n integer C;\n integer D;\n"), "S//*"), in_scan("\n"));
}

TEST(Remove, SaysWhyItIsRefused) {
  EXPECT_EQ(remove(kJob, "Scanner/Letter/Cop"), "refused: there is no attribute \"Cop\" in Scanner/Letter");
  EXPECT_EQ(
      remove(kJob, "Scanner@status"),
      "wrong: Scanner@status is no service, invocation or attribute; sil set PATH@status= removes a status");
}

// ---- By chance ----

// All places of values of a template, as paths.
std::vector<std::string> paths_of_values(const Model &model) {
  std::vector<std::string> paths;
  for (std::size_t s = 0; s < model.services.size(); ++s) {
    const std::vector<Invocation> &invocations = model.services[s].invocations;
    for (std::size_t i = 0; i < invocations.size(); ++i) {
      for (std::size_t a = 0; a < invocations[i].attributes.size(); ++a) {
        for (std::size_t v = 0; v < invocations[i].attributes[a].values.size(); ++v) {
          Place place;
          place.service = s;
          place.invocation = i;
          place.attribute = a;
          place.value = v;
          paths.push_back(path_of(model, place));
        }
      }
    }
  }
  return paths;
}

const Value &value_at(const Model &model, const std::string &path) {
  const std::variant<Found, Missing> found = resolve(model, std::get<Path>(parse_path(path)));
  return *element_at(model, std::get<Found>(found).places.at(0)).value;
}

TEST(Set, GivesWhatWasSetAndChangesThatPlaceOnly) {
  Generator generator(3);
  std::size_t count = 0;
  for (int i = 0; i < 300; ++i) {
    const std::string text = generator.scattered(generator.job());
    const Model model = *load(text).model;
    for (const std::string &path : paths_of_values(model)) {
      const std::string value = std::to_string(1000000 + generator.below(1000000));
      const std::string after = set(text, {path + "=" + value});
      const Model changed = load(after).model.value();
      EXPECT_EQ(value_at(changed, path).text, value) << path << "\n" << text;
      const Document before_document = read_document(text);
      const Document after_document = read_document(after);
      std::size_t differences = 0;
      ASSERT_EQ(before_document.tokens.size(), after_document.tokens.size());
      for (std::size_t t = 0; t < before_document.tokens.size(); ++t)
        if (before_document.piece(before_document.tokens[t]) !=
            after_document.piece(after_document.tokens[t]))
          ++differences;
      EXPECT_EQ(differences, 1U);
      EXPECT_EQ(set(after, {path + "=" + value}), after);
      ++count;
    }
  }
  EXPECT_GT(count, 1000U);
}

TEST(Remove, UndoesWhatWasAdded) {
  Generator generator(4);
  for (int i = 0; i < 300; ++i) {
    const std::string text = lay_out(read_document(generator.job())).text;
    const Model model = *load(text).model;
    for (std::size_t s = 0; s < model.services.size(); ++s) {
      const std::string &service = model.services[s].name;
      const std::string added = add(text, {service + "/New", "", false, "", {}});
      EXPECT_EQ(load(added).model.value().services[s].invocations.back().name, "New") << added;
      EXPECT_EQ(remove(added, service + "/New"), text);
      EXPECT_EQ(lay_out(read_document(added)).text, added);
    }
  }
}

}  // namespace
}  // namespace sil
