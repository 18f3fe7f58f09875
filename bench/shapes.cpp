// Examples that a client would send make one job, the source of all shapes that are measured beside other
// libraries. Larger ones repeat it with numbered services, and in each repetition every attribute has the
// values of the next one of its type in such a service.
#include "shapes.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>

namespace bench {
namespace {

constexpr const char *kExamples[] = {"copy", "fax", "ocr_of_a_scan", "scan_to_folders", "scan_to_mail"};

// An attribute of the job. The first one of an invocation begins it.
struct Row {
  std::string service;  // of the invocation: "TYPE NAME"
  std::string begins;   // the name of the invocation and a brace
  std::string star;
  std::string type;
  std::string name;
  const std::vector<std::string> *values;  // of its type
  std::size_t own;                         // which of them it has
};

struct Job {
  Job();

  std::vector<Row> rows;
  std::map<std::string, std::vector<std::string>> values;  // of "TYPE SERVICE", the types of both
};

Job::Job() {
  const std::regex statement(R"(\[ (\S+ \S+) \]|(\S* ?\{)\n|(\*?) *(\w+) +(\w+) += ([^;]+);)");
  Row row;
  for (const char *const name : kExamples) {
    std::ifstream file(std::string(JT_EXAMPLES) + "/" + name + ".sil");
    const std::string text(std::istreambuf_iterator<char>(file), {});
    for (std::sregex_iterator at(text.begin(), text.end(), statement), end; at != end; ++at) {
      const std::smatch &match = *at;
      if (match[1].matched) row.service = match[1];
      if (match[2].matched) row.begins = match[2];
      if (!match[6].matched) continue;
      const std::string service = row.service.substr(0, row.service.find(' '));
      std::vector<std::string> &of_type = values[match[4].str() + " " + service];
      rows.push_back({row.service, row.begins, match[3], match[4], match[5], &of_type, of_type.size()});
      of_type.push_back(match[6]);
      row.begins.clear();
    }
  }
}

const Job &job() {
  static const Job made;
  return made;
}

// The attribute as its turn comes, under a name of its own.
std::string attribute(const Row &row, const std::string &name, std::size_t turn) {
  const std::vector<std::string> &values = *row.values;
  return row.star + row.type + " " + name + " = " + values[(row.own + turn) % values.size()] + ";\n";
}

constexpr char kEnd[] = "}\nend\n";

// An invocation is alone in its service.
std::string jobs(std::size_t count) {
  std::string text;
  std::size_t services = 0;
  for (std::size_t i = 0; i < count; ++i) {
    for (const Row &row : job().rows) {
      if (!row.begins.empty()) {
        text += text.empty() ? "[" : std::string(kEnd) + "[";
        text += row.service + std::to_string(++services) + "]\n" + row.begins + "\n";
      }
      text += attribute(row, row.name, i);
    }
  }
  return text + kEnd;
}

std::string one_invocation(const std::string &attributes) {
  return "[kmt_svc_scan Scanner]\nLetter{\n" + attributes + kEnd;
}

constexpr std::size_t kSiblings = 100000;

// Of its types, or of the base types.
bool is_known_to_a_scan(const Row &row) {
  return row.service.starts_with("kmt_svc_scan ") || !row.type.starts_with("enum_");
}

// Attributes of one invocation, each under a name that is made of its number.
template <typename Name>
std::string wide_of(Name name) {
  std::vector<Row> rows;
  std::ranges::copy_if(job().rows, std::back_inserter(rows), is_known_to_a_scan);
  std::string text;
  for (std::size_t i = 0; i < kSiblings; ++i) {
    const Row &row = rows[i % rows.size()];
    text += attribute(row, name(row, i), i / rows.size());
  }
  return one_invocation(text);
}

std::string wide() {
  return wide_of([](const Row &row, std::size_t i) { return row.name + std::to_string(i); });
}

// Names that do not count up: names of the job in a row, as the digits of the number.
std::string wide_real_names() {
  std::set<std::string> known;
  for (const Row &row : job().rows) known.insert(row.name);
  const std::vector<std::string> names(known.begin(), known.end());
  return wide_of([&](const Row &, std::size_t i) {
    std::string name;
    for (; i > 0 || name.empty(); i /= names.size()) name += names[i % names.size()];
    return name;
  });
}

std::string long_list() {
  std::string text = "string Recipients = ";
  for (std::size_t i = 0; i < kSiblings; ++i) {
    text += (i > 0 ? ", \"user" : "\"user") + std::to_string(i + 1) + "@example.org\"";
  }
  return one_invocation(text + ";\n");
}

// ---- Hostile ----

constexpr std::size_t kRepetitions = 20000;

std::string repeated(const std::string &begin, const std::string &piece, const std::string &end) {
  std::string text = begin;
  for (std::size_t i = 0; i < kRepetitions; ++i) text += piece;
  return text + end;
}

// Names that differ in one bit here and there, which is where a weak hash takes them for the same.
std::string like_names() {
  std::string text;
  for (unsigned i = 0; i < 2000; ++i) {
    text += "real ";
    for (unsigned bit = 0; bit < 20; ++bit) text += (i >> bit & 1U) != 0 ? '@' : '`';
    text += ";";
  }
  return one_invocation(text);
}

constexpr char kScan[] = "[kmt_svc_scan S]";

constexpr Shape kShapes[] = {
    {"typical", [] { return jobs(1); }, false},
    {"medium", [] { return jobs(24); }, false},
    {"large", [] { return jobs(2400); }, false},
    {"wide", wide, false},
    {"wide, real names", wide_real_names, false},
    {"long", long_list, false},
    {"{}{}{}", [] { return repeated(kScan, "{}", "end"); }, true},
    {"1,1,1", [] { return one_invocation(repeated("integer A=1", ",1", ";")); }, true},
    {"names of one byte", [] { return repeated(kScan, "{real a;real b;real c;}", "end"); }, true},
    {"comments of one byte", [] { return repeated(kScan, "#\n", "end"); }, true},
    {"a warning for each value", [] { return one_invocation(repeated("enum_sided A=x", ",x", ";")); }, true},
    {"look-alike names", like_names, true},
};

}  // namespace

std::vector<std::string> enumerated_names() {
  const std::regex name("[^, \n]+");
  std::vector<std::string> names;
  for (const auto &[type, lists] : job().values) {
    if (!type.starts_with("enum_")) continue;
    for (const std::string &list : lists) {
      names.insert(names.end(), std::sregex_token_iterator(list.begin(), list.end(), name), {});
    }
  }
  return names;
}

std::size_t parts(const Shape &shape, const std::string &text) {
  std::size_t attributes = 0;
  for (std::size_t at = 0; (at = text.find(";\n", at)) != std::string::npos; ++at) ++attributes;
  if (shape.is_hostile) return text.size();
  return attributes > 1 ? attributes : static_cast<std::size_t>(std::ranges::count(text, ',') + 1);
}

std::span<const Shape> shapes() { return kShapes; }

}  // namespace bench
