// What is measured, seen from the measurement: a library that holds one tree at a time.
#ifndef JT_BENCH_LIBRARY_H
#define JT_BENCH_LIBRARY_H

#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "facts.h"

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

  // Whether the parse just done had nothing to complain of.
  virtual bool is_clean() { return true; }

  // Writes the tree as a text on the heap, which stays until release_text(); empty on failure.
  virtual std::string_view save() = 0;
  virtual void release_text() = 0;

  virtual void destroy() = 0;

  // What is in the tree, found by walking it.
  virtual Counts count() = 0;
};

struct LibraryRow {
  const char *name;
  std::string (*version)();
  std::string (*write)(const Facts &facts);
  std::unique_ptr<Library> (*make)();
};

std::unique_ptr<Library> make_jt();
std::unique_ptr<Library> make_pugixml();
std::unique_ptr<Library> make_converting_pugixml();
std::unique_ptr<Library> make_rapidjson();
std::unique_ptr<Library> make_cjson();
std::unique_ptr<Library> make_libxml2();

std::string jt_version();
std::string pugixml_version();
std::string rapidjson_version();
std::string cjson_version();
std::string libxml2_version();

// jt, then the others.
std::span<const LibraryRow> libraries();

// Ends the program with a message when a condition does not hold: a figure of anything but the same facts
// would be worth nothing.
void require(bool holds, std::string_view what);

}  // namespace bench

#endif
