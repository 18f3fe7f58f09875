// Texts that are made to be expensive, each in two sizes: what they cost, as a table, and whether that is
// what a text may cost. A cost that grows faster than the text shows in the larger one.
#include <cstdio>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "bill.h"
#include "colliding.h"

namespace {

using jt_fuzz::Bill;

// A text of so many bytes, roughly.
using Maker = std::function<std::string(std::size_t bytes)>;

struct Shape {
  const char *name;
  Maker make;
};

// What stands between an opening and an ending: pieces, each of which is given its number.
Maker filled(std::string opening, std::function<std::string(std::size_t)> piece, std::string ending) {
  return [=](std::size_t bytes) {
    std::string text = opening;
    for (std::size_t i = 0; text.size() + ending.size() < bytes; ++i) text += piece(i);
    return text + ending;
  };
}

Maker repeated(std::string opening, std::string piece, std::string ending) {
  return filled(
      std::move(opening), [piece](std::size_t) { return piece; }, std::move(ending));
}

// One of the pieces for each number; none behind their end.
Maker listed(std::string opening, std::vector<std::string> (*make)(std::size_t), std::string before,
             std::string after, std::string ending) {
  return [=](std::size_t bytes) {
    std::string text = opening;
    for (const std::string &piece : make(bytes / (before.size() + after.size() + 8))) {
      if (text.size() + ending.size() < bytes) text += before + piece + after;
    }
    return text + ending;
  };
}

std::string attribute(const std::string &name) { return "integer " + name + ";"; }

const std::string kOpening = "[service kmt_svc_scan]{";
const std::string kEnding = "}end";

std::string values(const char *type) { return kOpening + type + " a="; }
const std::string kValuesEnd = "0;}end";

const Shape kShapes[] = {
    {"an ordinary text: `integer n17 = 17;`",
     filled(
         kOpening,
         [](std::size_t i) { return "integer n" + std::to_string(i) + " = " + std::to_string(i) + ";\n"; },
         kEnding)},
    {"`{}{}{}`", repeated("[service A]", "{}", "end")},
    {"`{integer a;}`", repeated("[service A]", "{integer a;}", "end")},
    {"`[service n17]end`",
     filled(
         "", [](std::size_t i) { return "[service n" + std::to_string(i) + "]end"; }, "")},
    {"`n17{}`, invocations with names",
     filled(
         "[service integer]", [](std::size_t i) { return "n" + std::to_string(i) + "{}"; }, "end")},
    {"`integer n17;`",
     filled(
         kOpening, [](std::size_t i) { return attribute("n" + std::to_string(i)); }, kEnding)},
    {"`real a;`, names of a byte or two", filled(
                                              kOpening,
                                              [](std::size_t i) {
                                                constexpr char kLetters[] =
                                                    "abcdfghijklmnopqrstuvwxyz0123456789";  // no "end"
                                                std::string name;
                                                for (; i > 0 || name.empty(); i /= 35)
                                                  name += kLetters[i % 35];
                                                return "real " + name + ";";
                                              },
                                              kEnding)},
    {"`1,1,1`", repeated(values("integer"), "1,", kValuesEnd)},
    {"`1,2,3`", filled(
                    values("integer"), [](std::size_t i) { return std::to_string(i) + ","; }, kValuesEnd)},
    {"`x,x,x`, strings", repeated(values("string"), "x,", kValuesEnd)},
    {"`x1,x2,x3`, strings",
     filled(
         values("string"), [](std::size_t i) { return "x" + std::to_string(i) + ","; }, kValuesEnd)},
    {"`.5,.5,.5`, reals", repeated(values("real"), ".5,", kValuesEnd)},
    {"`1,2,3`, reals",
     filled(
         values("real"), [](std::size_t i) { return std::to_string(i) + ","; }, kValuesEnd)},
    {"`a:1,a:2`, references",
     filled(
         values("ref_invocation"), [](std::size_t i) { return "a:" + std::to_string(i) + ","; }, "0;}end")},
    {"`MANANA/100/117`, magnifications",
     filled(
         values("struct_magnification"),
         [](std::size_t i) { return "MANANA/100/" + std::to_string(100 + i % 300) + ","; }, kValuesEnd)},
    {"`x,x,x`, nothing but warnings", repeated(values("enum_mediasize"), "x,", kValuesEnd)},
    {"`x,x,x`, nothing but values that are refused", repeated(values("integer"), "x,", kValuesEnd)},
    {"`{}(x)`, statuses that nobody knows", repeated("[service A]", "{}(x)", "end")},
    {"`#`, empty comments", repeated("", "#\n", "[service A]end")},
    {"comments of 1023 bytes", repeated("", "#" + std::string(1022, 'c') + "\n", "[service A]end")},
    {"comments of attributes", repeated(kOpening + "integer a", "#\n", ";}end")},
    {"blanks", repeated("", "        ", "[service A]end")},
    {"`\\\"`, escapes", repeated(values("string"), "\\\"\\\",", kValuesEnd)},
    {"values of 1024 bytes", repeated(values("string"), std::string(1024, 'v') + ",", kValuesEnd)},
    {"values of 1024 control characters",
     repeated(values("string"), "\"" + std::string(1024, '\t') + "\",", kValuesEnd)},
    {"names of 1023 bytes",
     filled(
         kOpening,
         [](std::size_t i) { return attribute(std::string(1010, 'n') + std::to_string(1000000 + i)); },
         kEnding)},
    {"a name twice, then no end", repeated(kOpening + "integer a;integer a", "        ", "")},
    {"names that differ in `@` and a grave accent",
     filled(
         kOpening, [](std::size_t i) { return attribute(jt_fuzz::twin_name(i, '@', '`')); }, kEnding)},
    {"names that differ in `_` and the byte 127",
     filled(
         kOpening, [](std::size_t i) { return attribute(jt_fuzz::twin_name(i, '_', '\x7f')); }, kEnding)},
    {"services whose names differ like that",
     filled(
         "", [](std::size_t i) { return "[service " + jt_fuzz::twin_name(i, '@', '`') + "]end"; }, "")},
    {"invocations whose names differ like that",
     filled(
         "[service integer]", [](std::size_t i) { return jt_fuzz::twin_name(i, '@', '`') + "{}"; }, "end")},
    {"names of one hash", listed(kOpening, jt_fuzz::names_of_one_hash, "integer ", ";", kEnding)},
    {"names of one home in a table", listed(kOpening, jt_fuzz::names_of_one_home, "real ", ";", kEnding)},
    {"strings of one hash", listed(values("string"), jt_fuzz::names_of_one_hash, "", ",", kValuesEnd)},
    {"integers of one home in a table",
     listed(values("integer"), jt_fuzz::numbers_of_one_home, "", ",", kValuesEnd)},
    {"strings that differ like that",
     filled(
         values("string"), [](std::size_t i) { return jt_fuzz::twin_name(i, '@', '`') + ","; }, kValuesEnd)},
};

double per(std::uint64_t cost, std::size_t units) {
  return units != 0 ? static_cast<double>(cost) / static_cast<double>(units) : 0;
}

void print(const char *name, const Bill &bill, const char *objection) {
  std::printf("| %s | %zu | %.0f | %.0f | %.0f | %.0f | %.0f |%s%s\n", name, bill.text,
              per(bill.reading.edges, bill.text), per(bill.reading.moved, bill.text),
              per(bill.reading.heap, bill.text), per(bill.changing.edges, bill.calls),
              per(bill.changing.moved, bill.calls), bill.accepted ? "" : " refused",
              objection != nullptr ? objection : "");
}

// Whether every text costs what it may.
bool measure() {
  std::puts("| text | bytes | edges a byte | moved a byte | heap a byte | edges a call | moved a call |");
  std::puts("|---|---|---|---|---|---|---|");
  bool all_hold = true;
  for (const Shape &shape : kShapes) {
    for (const std::size_t bytes : {std::size_t{1} << 12U, std::size_t{1} << 16U}) {
      const Bill bill = jt_fuzz::bill_of(shape.make(bytes));
      const char *const objection = jt_fuzz::objection_to(bill);
      print(shape.name, bill, objection);
      all_hold = all_hold && objection == nullptr;
    }
  }
  return all_hold;
}

// Seeds for the fuzzer: numbered files of one size.
bool write_seeds(const std::string &folder, std::size_t bytes) {
  int number = 0;
  for (const Shape &shape : kShapes) {
    std::ofstream file(folder + "/shape_" + std::to_string(++number) + ".sil", std::ios::binary);
    file << shape.make(bytes);
    if (!file.flush()) return false;
  }
  return true;
}

}  // namespace

// Without arguments, measures; with a folder and a number of bytes, writes seeds of that size there.
int main(int argc, char **argv) {
  if (argc == 3) return write_seeds(argv[1], std::stoul(argv[2])) ? 0 : 1;
  return measure() ? 0 : 1;
}
