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

// Names of the job in a row, as the digits of the number: they do not count up.
std::string real_name(std::size_t number) {
  static const std::vector<std::string> words = [] {
    std::set<std::string> names;
    for (const Row &row : job().rows) names.insert(row.name);
    return std::vector<std::string>(names.begin(), names.end());
  }();
  std::string name;
  for (; number > 0 || name.empty(); number /= words.size()) name += words[number % words.size()];
  return name;
}

// Attributes of one invocation, of the types of a scan and the base types.
std::string wide(bool has_real_names) {
  std::vector<Row> rows = job().rows;
  std::erase_if(rows, [](const Row &row) {
    return !row.service.starts_with("kmt_svc_scan ") && row.type.starts_with("enum_");
  });
  std::string text;
  for (std::size_t i = 0; i < kSiblings; ++i) {
    const Row &row = rows[i % rows.size()];
    text += attribute(row, has_real_names ? real_name(i) : row.name + std::to_string(i), i / rows.size());
  }
  return one_invocation(text);
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
    {"wide", [] { return wide(false); }, false},
    {"wide, real names", [] { return wide(true); }, false},
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
