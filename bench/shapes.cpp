// One job of eight services, job.txt, is the source of all shapes that are measured beside other libraries.
// Larger ones repeat it with numbered services, and each repetition takes the next of the values of each
// attribute.
#include "shapes.h"

#include <algorithm>
#include <fstream>
#include <sstream>

namespace bench {
namespace {

struct Row {
  bool is_wide;
  bool is_compulsory;
  std::string type;
  std::string name;
  std::size_t values;
  std::vector<std::string> alternatives;
};

struct Service {
  std::string type;
  std::string name;
  std::string invocation;
  std::vector<Row> rows;
};

Row read_row(const std::string &line) {
  Row row;
  std::istringstream words(line);
  std::string wide, star;
  words >> wide >> star >> row.type >> row.name >> row.values >> std::ws;
  row.is_wide = wide == "wide";
  row.is_compulsory = star != "*";
  for (std::string value; std::getline(words, value, '|');) row.alternatives.push_back(value);
  return row;
}

std::vector<Service> read_job() {
  std::vector<Service> job;
  std::ifstream file(JT_BENCH_JOB);
  for (std::string line; std::getline(file, line);) {
    if (line[0] == '[') {
      std::istringstream words(line.substr(1, line.size() - 2));
      Service &service = job.emplace_back();
      words >> service.type >> service.name >> service.invocation;
    } else if (line[0] != '#') {
      job.back().rows.push_back(read_row(line));
    }
  }
  return job;
}

const std::vector<Service> &job() {
  static const std::vector<Service> services = read_job();
  return services;
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

std::string jobs(std::size_t count) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) {
    for (const Service &service : job()) {
      text += "[" + service.type + " " + service.name + (count > 1 ? std::to_string(i + 1) : "") + "]\n";
      text += service.invocation + "{\n";
      for (const Row &row : service.rows) text += attribute(row, row.name, i);
      text += "}\nend\n";
    }
  }
  return text;
}

std::string one_invocation(const std::string &attributes) {
  return "[kmt_svc_scan Scanner]\nLetter{\n" + attributes + "}\nend\n";
}

constexpr std::size_t kSiblings = 100000;

std::string typical() { return jobs(1); }

std::string medium() { return jobs(24); }

std::string large() { return jobs(2400); }

// Attributes of one invocation, whose types are those of a scan and the base types.
std::vector<Row> wide_rows() {
  std::vector<Row> rows;
  for (const Service &service : job()) {
    for (const Row &row : service.rows) {
      if (row.is_wide) rows.push_back(row);
    }
  }
  return rows;
}

std::string wide() {
  const std::vector<Row> rows = wide_rows();
  std::string text;
  for (std::size_t i = 0; i < kSiblings; ++i) {
    const Row &row = rows[i % rows.size()];
    const std::size_t turn = i / rows.size();
    text += attribute(row, row.name + std::to_string(turn + 1), turn);
  }
  return one_invocation(text);
}

// The same with names that do not count up: three names of the job in a row.
std::string wide_real_names() {
  std::vector<std::string> names;
  for (const Service &service : job()) {
    for (const Row &row : service.rows) names.push_back(row.name);
  }
  std::ranges::sort(names);
  names.erase(std::unique(names.begin(), names.end()), names.end());
  const std::vector<Row> rows = wide_rows();
  std::string text;
  for (std::size_t i = 0; i < kSiblings; ++i) {
    const std::size_t next = i / names.size();
    const std::string name =
        names[i % names.size()] + names[next % names.size()] + names[next / names.size()];
    text += attribute(rows[i % rows.size()], name, i / rows.size());
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

std::string empty_invocations() { return repeated("[kmt_svc_scan S]", "{}", "end"); }

std::string short_values() { return repeated("[kmt_svc_scan S]{integer A=1", ",1", ";}end"); }

std::string short_names() { return repeated("[kmt_svc_scan S]", "{real a;real b;real c;}", "end"); }

std::string comments() { return repeated("[kmt_svc_scan S]{}", "#\n", "end"); }

std::string warnings() { return repeated("[kmt_svc_scan S]{enum_sided A=x", ",x", ";}end"); }

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

constexpr Shape kShapes[] = {
    {"typical", typical, false},
    {"medium", medium, false},
    {"large", large, false},
    {"wide", wide, false},
    {"wide, real names", wide_real_names, false},
    {"long", long_list, false},
    {"{}{}{}", empty_invocations, true},
    {"1,1,1", short_values, true},
    {"names of one byte", short_names, true},
    {"comments of one byte", comments, true},
    {"a warning for each value", warnings, true},
    {"names of grave accents and @", like_names, true},
};

}  // namespace

std::vector<std::string> enumerated_names() {
  std::vector<std::string> names;
  for (const Service &service : job()) {
    for (const Row &row : service.rows) {
      if (row.type.find("enum_") == std::string::npos) continue;
      names.insert(names.end(), row.alternatives.begin(), row.alternatives.end());
    }
  }
  return names;
}

std::span<const Shape> shapes() { return kShapes; }

}  // namespace bench
