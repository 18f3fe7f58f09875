// Where results and words go: standard output and standard error, each gathered, with colour where a terminal
// reads. A closed pipe ends the process silently.
#ifndef SIL_OUTPUT_H
#define SIL_OUTPUT_H

#include <string>
#include <string_view>

namespace sil {

enum class Colour { kRed, kGreen, kYellow, kBlue, kBold, kFaint };

class Output {
 public:
  /// `when` is "auto", "always" or "never". Colour of its own accord only on a terminal that is not told
  /// otherwise by NO_COLOR or TERM=dumb.
  explicit Output(std::string_view when = "auto");
  Output(const Output &) = delete;
  Output &operator=(const Output &) = delete;
  ~Output() = default;

  /// Results. Kept back until there is a piece worth writing, or flush().
  void print(std::string_view text);
  /// A line on standard error, behind all results before it: `sil: ABOUT: WHAT`.
  void say(std::string_view about, std::string_view what);
  /// Whole lines on standard error, behind all results before them.
  void complain(std::string_view lines);
  /// False when the results could not be written, which has been said.
  bool flush();

  /// The text in a colour, where standard output has colours.
  std::string in(Colour colour, std::string_view text) const;
  bool has_colour() const { return has_colour_; }

 private:
  std::string results_;
  bool has_colour_;
  bool has_failed_ = false;
};

/// All bytes to a file descriptor, however many writes that takes; false with errno.
bool write_all(int file, std::string_view bytes);

}  // namespace sil

#endif
