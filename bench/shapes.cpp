// One job of eight services, job.txt, is the source of all shapes that are measured beside other libraries.
// Larger ones repeat it with numbered services, and each repetition takes the next of the values of each
// attribute.
#include "shapes.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <utility>

namespace bench {
namespace {

// An attribute of the job. The first one of a service begins it: "TYPE NAME" and its invocation.
struct Row {
  std::string service;
  std::string invocation;
  bool is_wide;
  bool is_compulsory;
  std::string type;
  std::string name;
  std::size_t values;
  std::vector<std::string> alternatives;
};

std::vector<Row> read_job() {
  std::vector<Row> job;
  Row row;
  std::ifstream file(JT_BENCH_JOB);
  for (std::string line; std::getline(file, line);) {
    std::istringstream words(line);
    std::string first, second;
    words >> first >> second;
    if (line[0] == '[') {
      row.service = first.substr(1) + " " + second;
      std::getline(words >> std::ws, row.invocation, ']');
    } else if (line[0] != '#') {
      row.is_wide = first == "wide";
      row.is_compulsory = second != "*";
      words >> row.type >> row.name >> row.values >> std::ws;
      for (std::string value; std::getline(words, value, '|');) row.alternatives.push_back(value);
      job.push_back(std::exchange(row, {}));
    }
  }
  return job;
}

const std::vector<Row> &job() {
  static const std::vector<Row> rows = read_job();
  return rows;
}

// The attribute as its turn comes, under a name of its own.
std::string attribute(const Row &row, const std::string &name, std::size_t turn) {
  std::string text = (row.is_compulsory ? "" : "*") + row.type + " " + name + " = ";
  const char *const quote = row.type == "string" ? "\"" : "";
  for (std::size_t i = 0; i < row.values; ++i) {
    if (i > 0) text += ", ";
    text += quote + row.alternatives[(turn + i) % row.alternatives.size()] + quote;
  }
  return text + ";\n";
}

constexpr char kEnd[] = "}\nend\n";

std::string jobs(std::size_t count) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) {
    const std::string number = count > 1 ? std::to_string(i + 1) : "";
    for (const Row &row : job()) {
      if (!row.service.empty()) {
        text += (text.empty() ? "" : kEnd) + ("[" + row.service + number + "]\n") + row.invocation + "{\n";
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

// Attributes of one invocation, whose types are those of a scan and the base types, each under a name that is
// made of its number.
template <typename Name>
std::string wide_of(Name name) {
  std::vector<Row> rows;
  std::ranges::copy_if(job(), std::back_inserter(rows), &Row::is_wide);
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

// Names that do not count up: three names of the job in a row.
std::string wide_real_names() {
  std::set<std::string> known;
  for (const Row &row : job()) known.insert(row.name);
  const std::vector<std::string> names(known.begin(), known.end());
  return wide_of([&](const Row &, std::size_t i) {
    const std::size_t next = i / names.size();
    return names[i % names.size()] + names[next % names.size()] + names[next / names.size()];
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
  std::vector<std::string> names;
  for (const Row &row : job()) {
    if (row.type.find("enum_") == std::string::npos) continue;
    names.insert(names.end(), row.alternatives.begin(), row.alternatives.end());
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
