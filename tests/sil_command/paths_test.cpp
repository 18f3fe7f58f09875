// Paths: what is one, what each names, and what is said where there is nothing.
#include "core/paths.h"

#include <gtest/gtest.h>

#include "core/load.h"

namespace sil {
namespace {

constexpr char kJob[] = R"(< ? SIL 4.2.00 ASCII job >
string Owner = "me";
< ? >
[ kmt_svc_general Inner ]
{ string Label = "x"; }
end
< /? >
[ kmt_svc_scan Scanner ]
Letter { enum_mediasize Size = ISO_A4SEF; string Names = "a", "b"; }
Photo { string Names = "c"; }
end
[ kmt_svc_file Two ]
{ string A = "1"; }
Named { string A = "2"; }
{ string A = "3"; }
end
[ kmt_svc_email a/b ]
{ string x@y = "mail"; }
end
< /SIL >
)";

const Model &job() {
  static const Model model = load(kJob).model.value();
  return model;
}

// The paths of what a path names, or what is said instead.
std::string named_by(std::string_view text) {
  const std::variant<Path, PathError> path = parse_path(text);
  if (const PathError *const error = std::get_if<PathError>(&path))
    return std::to_string(error->offset) + ": " + error->message;
  const std::variant<Found, Missing> found = resolve(job(), std::get<Path>(path));
  if (const Missing *const missing = std::get_if<Missing>(&found)) return missing->message;
  std::string names;
  for (const Place &place : std::get<Found>(found).places)
    names += (names.empty() ? "" : " ") + path_of(job(), place);
  return names;
}

TEST(Paths, NameAServiceAnInvocationAnAttribute) {
  EXPECT_EQ(named_by("Scanner"), "Scanner");
  EXPECT_EQ(named_by("Scanner/Letter"), "Scanner/Letter");
  EXPECT_EQ(named_by("Scanner/Letter/Size"), "Scanner/Letter/Size");
}

TEST(Paths, IgnoreTheCaseOfNames) { EXPECT_EQ(named_by("SCANNER/letter/sIZE"), "Scanner/Letter/Size"); }

TEST(Paths, NameOneValue) { EXPECT_EQ(named_by("Scanner/Letter/Names[2]"), "Scanner/Letter/Names[2]"); }

TEST(Paths, TakeAnyForAStar) {
  EXPECT_EQ(named_by("Scanner/*/Names"), "Scanner/Letter/Names Scanner/Photo/Names");
  EXPECT_EQ(named_by("*/Letter"), "Scanner/Letter");
}

TEST(Paths, CountInvocationsNamedOnesToo) {
  EXPECT_EQ(named_by("Two/#1/A"), "Two/#1/A");
  EXPECT_EQ(named_by("Two/#2/A"), "Two/Named/A");
  EXPECT_EQ(named_by("Two/#3/A"), "Two/#3/A");
}

TEST(Paths, TakeAnEmptyStepForTheOnlyInvocationWithoutAName) {
  EXPECT_EQ(named_by("\"a/b\"//\"x@y\""), "\"a/b\"//\"x@y\"");
  EXPECT_EQ(named_by("Two//A"), "Two has 2 invocations without a name; #1, #2 and so on tell them apart");
  EXPECT_EQ(named_by("Scanner//A"), "there is no invocation without a name in Scanner");
}

TEST(Paths, ReachTheHeaderAndTheSection) {
  EXPECT_EQ(named_by("@header/owner"), "@header/Owner");
  EXPECT_EQ(named_by("@section/Inner//Label"), "@section/Inner//Label");
  EXPECT_EQ(named_by("@section/*"), "@section/Inner");
  EXPECT_EQ(named_by("@header@version"), "@header");
}

TEST(Paths, ReadSilsEscapesInQuotes) { EXPECT_EQ(named_by(R"("\a\/b"/)"), "\"a/b\"/"); }

TEST(Paths, SayTheLongestPartFoundAndTheNearestNames) {
  EXPECT_EQ(named_by("Scaner/Letter"),
            "there is no service \"Scaner\" in the template; did you mean \"Scanner\"?");
  EXPECT_EQ(named_by("Scanner/Leter/Size"),
            "there is no invocation \"Leter\" in Scanner; did you mean \"Letter\"?");
  EXPECT_EQ(named_by("Scanner/Letter/Sizes"),
            "there is no attribute \"Sizes\" in Scanner/Letter; did you mean \"Size\"?");
  EXPECT_EQ(named_by("Scanner/Letter/Names[3]"), "there is no value 3 in Scanner/Letter/Names, which has 2");
  EXPECT_EQ(named_by("Scanner/#7"), "there is no invocation #7 in Scanner, which has 2");
  EXPECT_EQ(named_by("@header/Ownr"), "there is no attribute \"Ownr\" in @header; did you mean \"Owner\"?");
}

TEST(Paths, AreRefusedWithAPlace) {
  EXPECT_EQ(named_by(""), "0: a path is needed, as 'Scanner/Letter/Copies'");
  EXPECT_EQ(named_by("a/b/c/d"), "6: a path goes no deeper than service/invocation/attribute");
  EXPECT_EQ(named_by("@header/a/b"), "10: in the header are attributes, and nothing in them");
  EXPECT_EQ(named_by("a/#x"), "3: a number from 1 on is needed here");
  EXPECT_EQ(named_by("a/#0"), "3: a number from 1 on is needed here");
  EXPECT_EQ(named_by("#1"), "2: # counts invocations only");
  EXPECT_EQ(named_by("a[1]"), "2: only attributes have values to be counted");
  EXPECT_EQ(named_by("a/b/c[1"), "7: ] is needed here");
  EXPECT_EQ(named_by("a/b/c]"), "there is no service \"a\" in the template");
  EXPECT_EQ(named_by("\"a"), "2: a quote is not closed");
  EXPECT_EQ(named_by("a@statu"), "2: @statu is not known; did you mean \"status\"?");
  EXPECT_EQ(named_by("a@version"), "2: there is no @version here");
  EXPECT_EQ(named_by("a/b@compulsory"), "4: there is no @compulsory here");
  EXPECT_EQ(named_by("@header"), "7: behind it, /NAME or @ and what is meant is needed");
  EXPECT_EQ(named_by("a/b/c[1]@type"), "9: a value has no such thing, only its attribute");
}

TEST(EndOfPath, IsTheFirstBareEqualsSign) {
  EXPECT_EQ(end_of_path("a/b/c=d=e"), 5U);
  EXPECT_EQ(end_of_path("\"a=b\"//c=d"), 8U);
  EXPECT_EQ(end_of_path("\"a\\\"=b\"=d"), 7U);
  EXPECT_EQ(end_of_path("a/b/c"), std::nullopt);
}

}  // namespace
}  // namespace sil
