// Runs the tests of one folder, under the locale that JT_TEST_LOCALE names: nothing that the library does may
// depend on it.
#include <gtest/gtest.h>

#include <cctype>
#include <clocale>
#include <cstdio>
#include <cstdlib>

namespace {

// What sets this locale apart is shown, so that a run tells whether it was a hard one.
bool set_locale(const char *name) {
  if (std::setlocale(LC_ALL, name) == nullptr) {
    std::fprintf(stderr, "There is no locale %s here.\n", name);
    return false;
  }
  // What the system says of its own errors is in its language; the tests know one.
  std::setlocale(LC_MESSAGES, "C");
  std::printf("locale %s: decimal point '%s', lower case of 'I' 0x%02x\n", name,
              std::localeconv()->decimal_point, static_cast<unsigned>(std::tolower('I')));
  return true;
}

}  // namespace

int main(int count, char **words) {
  ::testing::InitGoogleTest(&count, words);
  if (const char *name = std::getenv("JT_TEST_LOCALE"); name != nullptr && !set_locale(name))
    return EXIT_FAILURE;
  return RUN_ALL_TESTS();
}
