// What is measured, seen from the measurement: libraries that hold one tree at a time, each with the same
// facts in its own format.
#ifndef JT_BENCH_LIBRARIES_H
#define JT_BENCH_LIBRARIES_H

#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace bench {

// Each call does one step of a life and nothing else, so that its time is that step's.
class Library {
 public:
  Library() = default;
  Library(const Library &) = delete;
  Library &operator=(const Library &) = delete;
  virtual ~Library() = default;

  // Makes a tree that can be changed. The text is the caller's and only read. Whether it could.
  virtual bool parse(const std::string &text) = 0;

  // Writes the tree as a text on the heap, which stays until destroy(); empty on failure.
  virtual std::string_view save() = 0;

  virtual void destroy() = 0;
};

// One shape in the three formats, each as the library that reads it writes it.
struct Texts {
  std::string sil;
  std::string xml;
  std::string json;
};

// The SIL need not be in jt's layout yet. Ends the program if it is not clean.
Texts make_texts(const std::string &sil);

struct LibraryRow {
  const char *name;
  std::string Texts::*text;
  std::unique_ptr<Library> (*make)();
};

// jt, then the others.
std::span<const LibraryRow> libraries();

// Ends the program with a message when a condition does not hold: a figure of anything but the same facts
// would be worth nothing.
void require(bool holds, std::string_view what);

}  // namespace bench

#endif
