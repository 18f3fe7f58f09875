// Texts that end right before an unreadable page, or begin right behind one: every example and every rejected
// example, whole, cut off anywhere, and with any byte changed; the text of every type, cut off anywhere;
// names and messages. Whatever comes of a text, no byte beside it is read, nothing is left of a refused one,
// an accepted one is written, and what is written of a readable one is read again.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "api/value_types.h"
#include "base/markers.h"
#include "support/guarded_text.h"
#include "support/program.h"
#include "support/readable.h"
#include "support/session.h"
#include "tree/session.h"

namespace jt_test {
namespace {

constexpr std::size_t kMost = 16384;

class Guarded : public SessionTest {
 protected:
  bool nothing_is_left() const {
    const auto &table = space->table;
    return std::all_of(table.slots, table.slots + table.count,
                       [](const jt_node *node) { return node == jt_core::released_slot(); });
  }

  GuardedText text{kMost};
};

// A read whose result goes nowhere is none to valgrind.
void read_byte(const volatile char *byte) {
  volatile char copy = *byte;
  static_cast<void>(copy);
}

TEST_F(Guarded, TheBytesBesideATextCannotBeRead) {
  const volatile char *const end = text.ending_at_guard("text") + 4;
  const volatile char *const begin = text.beginning_at_guard("text");
  EXPECT_EQ(*end, '\0');
  EXPECT_EQ(*begin, 't');
  EXPECT_DEATH(read_byte(end + 1), "");
  EXPECT_DEATH(read_byte(begin - 1), "");
}

// ---- Templates --------------------------------------------------------------------------------------------

class GuardedTemplate : public Guarded, public ::testing::WithParamInterface<std::string> {
 protected:
  // The readable text of a template, or an empty one.
  std::string written(const char *damaged) {
    const int32_t handle = jt_decode_template(space, damaged);
    if (handle == 0) return {};
    const OwnedText encoded(jt_encode_template(space, handle));
    EXPECT_NE(encoded, nullptr);
    const bool is_readable = is_readable_template(*opaque_to_node(space, handle));
    EXPECT_EQ(jt_destroy_template(space, handle), 1);
    return encoded != nullptr && is_readable ? encoded.get() : "";
  }

  void expect_order(const char *damaged) {
    const std::string once = written(damaged);
    ASSERT_TRUE(nothing_is_left()) << damaged;
    if (once.empty()) return;
    ASSERT_NE(written(text.ending_at_guard(once)), "") << once;
    ASSERT_TRUE(nothing_is_left()) << once;
  }

  const std::string whole = read_whole(JT_SOURCE_DIR "/examples/" + GetParam() + ".sil");
};

TEST_P(GuardedTemplate, Whole) {
  ASSERT_LT(whole.size(), kMost / 2);
  expect_order(text.ending_at_guard(whole));
  expect_order(text.beginning_at_guard(whole));
}

TEST_P(GuardedTemplate, CutOffAnywhere) {
  for (std::size_t length = 0; length < whole.size() && !HasFatalFailure(); ++length) {
    expect_order(text.ending_at_guard(std::string_view(whole).substr(0, length)));
  }
}

TEST_P(GuardedTemplate, WithoutItsBeginning) {
  for (std::size_t begin = 1; begin <= whole.size() && !HasFatalFailure(); ++begin) {
    expect_order(text.beginning_at_guard(std::string_view(whole).substr(begin)));
  }
}

TEST_P(GuardedTemplate, WithAnotherByteAnywhere) {
  constexpr std::string_view kBytes("\"\\#\0[]{})<;\xff", 12);
  std::string damaged = whole;
  for (std::size_t place = 0; place < whole.size(); ++place) {
    for (const char byte : kBytes) {
      damaged[place] = byte;
      expect_order(text.ending_at_guard(damaged));
      if (HasFatalFailure()) return;
    }
    damaged[place] = whole[place];
  }
}

std::vector<std::string> names_of_templates() {
  const std::filesystem::path examples = JT_SOURCE_DIR "/examples";
  std::set<std::string> names;
  for (const auto &entry : std::filesystem::recursive_directory_iterator(examples)) {
    const std::filesystem::path name = entry.path().lexically_relative(examples);
    if (name.extension() == ".sil") names.insert((name.parent_path() / name.stem()).generic_string());
  }
  return {names.begin(), names.end()};
}

std::string case_name(const ::testing::TestParamInfo<std::string> &info) {
  std::string name = info.param;
  std::replace(name.begin(), name.end(), '/', '_');
  return name;
}

INSTANTIATE_TEST_SUITE_P(Files, GuardedTemplate, ::testing::ValuesIn(names_of_templates()), case_name);

// ---- Values -----------------------------------------------------------------------------------------------

class GuardedValue : public Guarded {
 protected:
  void read(const TypeRow &row, std::string_view value_text) {
    const jt_type *const type = get_type_from_services(space, row.service, row.type);
    ASSERT_NE(type, nullptr) << row.type;
    if (jt_value *const value = type->eval(space, text.ending_at_guard(value_text))) type->kill(space, value);
    if (jt_value *const value =
            jt_decode_value(space, row.type, text.ending_at_guard(value_text), row.service)) {
      const OwnedText written(jt_encode_value(space, row.type, value, row.service));
      EXPECT_NE(written, nullptr) << row.type << " " << value_text;
      jt_destroy_value(space, row.type, value, row.service);
    }
  }

  // The text in every length, as a value of every type.
  template <std::size_t Rows>
  void read_as_all(const TypeRow (&rows)[Rows], std::string_view value_text) {
    for (const TypeRow &row : rows) {
      for (std::size_t length = 0; length <= value_text.size(); ++length) {
        read(row, value_text.substr(0, length));
        if (HasFatalFailure()) return;
      }
    }
  }
};

TEST_F(GuardedValue, EveryTypeReadsEveryTextInEveryLength) {
  for (const TypeRow &row : kBaseTypes) {
    read_as_all(kBaseTypes, row.text);
    read_as_all(kServiceTypes, row.text);
  }
  for (const TypeRow &row : kServiceTypes) {
    read_as_all(kBaseTypes, row.text);
    read_as_all(kServiceTypes, row.text);
  }
}

TEST_F(GuardedValue, EveryTypeReadsItsWrittenTextInEveryLength) {
  for (const TypeRow &row : kBaseTypes) read_as_all({row}, row.written);
  for (const TypeRow &row : kServiceTypes) read_as_all({row}, row.written);
}

// ---- Names and messages -----------------------------------------------------------------------------------

TEST_F(Guarded, StatusesAreReadInEveryLength) {
  const std::string name = "KMT_STATUS_FILING_DIRECTORY_LOCK_FAILURE";
  for (std::size_t length = 0; length <= name.size(); ++length) {
    jt_status *const status = get_status(space, text.ending_at_guard(name.substr(0, length)));
    EXPECT_NE(status, nullptr);
    kill_status(space, status);
  }
}

TEST_F(Guarded, MessagesAndDetailsOfEveryLengthAreRecorded) {
  for (std::size_t length = 1; length < 2 * JT_MESSAGE_SIZE; ++length) {
    EXPECT_EQ(jt_error(space, text.ending_at_guard(std::string(length, 'm')), ""), JT_UNCLASSIFIED);
    EXPECT_EQ(jt_error(space, "WARNING:", text.ending_at_guard(std::string(length, 'd'))), JT_WARNING);
  }
}

TEST_F(Guarded, NamesAreComparedInEveryLength) {
  const std::string name = "LanguageVersion";
  for (std::size_t length = 0; length <= name.size(); ++length) {
    const char *const beginning = text.ending_at_guard(name.substr(0, length));
    EXPECT_EQ(lowercasecmp(beginning, "languageversion") == 0, length == name.size());
    EXPECT_EQ(lowercasecmp("languageversion", beginning) == 0, length == name.size());
  }
}

TEST_F(Guarded, NumbersAreReadInEveryLength) {
  const std::string digits(30, '7');
  for (std::size_t length = 0; length <= digits.size(); ++length) {
    long number = 0;
    EXPECT_EQ(string_to_integer(text.ending_at_guard(digits.substr(0, length)), &number), length > 0 ? 1 : 0);
  }
}

TEST_F(Guarded, NamesOfEveryLengthAreKeptAndFound) {
  const int32_t job = jt_create_template(space);
  for (std::size_t length = 1; length <= 64; ++length) {
    const std::string name(length, 'n');
    EXPECT_EQ(jt_add_service(space, job, "kmt_svc_scan", text.ending_at_guard(name)), 1);
    EXPECT_EQ(jt_exists_service(space, job, text.ending_at_guard(name)), 1);
    EXPECT_EQ(jt_exists_service(space, job, text.ending_at_guard(name + "x")), 0);
  }
}

}  // namespace
}  // namespace jt_test
