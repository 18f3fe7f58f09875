// What the tests of values share: texts that a type accepts or refuses together with everything that is
// recorded about them, values that release themselves, and values as a client could build them. Texts and
// records live in blocks of just their size, so that a look behind their end is seen.
#ifndef JT_TESTS_TYPES_VALUE_CASES_H
#define JT_TESTS_TYPES_VALUE_CASES_H

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "jt.h"
#include "support/session.h"

namespace jt_test {

// The number of an enumerated value or a status whose name no list knows.
constexpr std::uint32_t kMarker = 0xFFFFFFFF;

constexpr char kUnknownNumber[] = "CALL ERROR: Unknown enumerated value ...";
constexpr char kCannotBeEncoded[] = "MEMORY ERROR: Invalid value, cannot be encoded ...";

using Fields = std::vector<std::int32_t>;

// A text that is accepted: its record, what it is written back as, the messages of reading it.
struct Reading {
  std::string name;
  std::string text;
  Fields record;
  std::string written;
  Messages messages{};
};

// A text that is refused, and the messages of the refusal, oldest first.
struct Refusal {
  std::string name;
  std::string text;
  Messages messages;
};

// Two texts and how the values they stand for compare.
struct Comparison {
  std::string name;
  std::string a;
  std::string b;
  std::int32_t order;
};

inline std::ostream &operator<<(std::ostream &out, const Reading &reading) { return out << reading.text; }
inline std::ostream &operator<<(std::ostream &out, const Refusal &refusal) { return out << refusal.text; }
inline std::ostream &operator<<(std::ostream &out, const Comparison &pair) {
  return out << pair.a << " and " << pair.b;
}

template <typename Case>
std::string case_name(const ::testing::TestParamInfo<Case> &info) {
  return info.param.name;
}

// A message as it is recorded: with its detail, as far as there is room for it.
inline std::string recorded(const std::string &message, const std::string &detail = "") {
  return (message + detail).substr(0, 251) + " ...";
}

inline std::string unknown_name(const std::string &name) {
  return recorded("WARNING: trying to evaluate as an 'enumerated' type:", name);
}

inline std::string bad_value(const std::string &type, const std::string &text) {
  return recorded("SYNTAX ERROR: trying to evaluate the following value string as -- " + type + " --:\n\n",
                  text);
}

inline std::string lower_case(std::string text) {
  for (char &c : text) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  return text;
}

inline std::string upper_case(std::string text) {
  for (char &c : text) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  return text;
}

class PrivateText {
 public:
  explicit PrivateText(std::string_view text) : bytes_(text.size() + 1) {
    std::copy(text.begin(), text.end(), bytes_.begin());
  }

  char *get() { return bytes_.data(); }

  // Every byte before the terminator, those included that a cut has set to zero.
  std::string bytes() const { return {bytes_.begin(), bytes_.end() - 1}; }

 private:
  std::vector<char> bytes_;
};

// A record of numbers that no operation has built.
class ClientValue {
 public:
  ClientValue(std::initializer_list<std::int32_t> fields) : fields_(fields) {}
  explicit ClientValue(std::uint32_t number) : fields_{static_cast<std::int32_t>(number)} {}

  const jt_value *get() const { return reinterpret_cast<const jt_value *>(fields_.data()); }

 private:
  Fields fields_;
};

inline Fields fields_of(const jt_value *value, std::size_t count) {
  Fields fields(count);
  std::memcpy(fields.data(), value, count * sizeof(std::int32_t));
  return fields;
}

inline std::uint32_t number_of(const void *value) {
  std::uint32_t number;
  std::memcpy(&number, value, sizeof(number));
  return number;
}

// The text behind the marker.
inline std::string text_of(const void *value) {
  return static_cast<const char *>(value) + sizeof(std::uint32_t);
}

struct KillValue {
  jt_parser_space *space;
  const jt_type *type;
  void operator()(jt_value *value) const { type->kill(space, value); }
};

// A value that its own type releases when it goes out of scope.
using OwnedValue = std::unique_ptr<jt_value, KillValue>;

inline OwnedValue evaluated(jt_parser_space *space, const jt_type *type, const std::string &text) {
  PrivateText copy(text);
  return OwnedValue(type->eval(space, copy.get()), KillValue{space, type});
}

inline OwnedValue copied(jt_parser_space *space, const jt_type *type, const jt_value *value) {
  return OwnedValue(type->copy(space, value), KillValue{space, type});
}

enum class Reads { kTextAsItIs, kAndCutsIt };

// The tests of one type.
class TypeTest : public SessionTest {
 protected:
  TypeTest(const char *service, const char *name, Reads reads = Reads::kTextAsItIs)
      : type(get_type_from_services(space, service, name)), reads_(reads) {}

  void SetUp() override { ASSERT_NE(type, nullptr); }

  OwnedValue evaluated(const std::string &text) { return jt_test::evaluated(space, type, text); }
  OwnedValue copied(const jt_value *value) { return jt_test::copied(space, type, value); }
  std::string written(const jt_value *value) { return take_text(type->deval(space, value)); }

  std::int32_t compared(const jt_value *a, const jt_value *b) { return type->cmp(space, a, b); }
  std::int32_t compared(const ClientValue &a, const ClientValue &b) { return compared(a.get(), b.get()); }

  void expect_read(const Reading &reading) {
    PrivateText text(reading.text);
    const OwnedValue value(type->eval(space, text.get()), KillValue{space, type});
    ASSERT_NE(value, nullptr) << reading.text;
    EXPECT_EQ(messages(), reading.messages);
    if (reads_ == Reads::kTextAsItIs) {
      EXPECT_EQ(text.bytes(), reading.text);
    }
    EXPECT_EQ(fields_of(value.get(), reading.record.size()), reading.record);
    const OwnedValue copy = copied(value.get());
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(fields_of(copy.get(), reading.record.size()), reading.record);
    EXPECT_EQ(written(copy.get()), reading.written);
    EXPECT_EQ(compared(value.get(), copy.get()), 0);
    EXPECT_EQ(messages(), reading.messages);
  }

  void expect_refused(const Refusal &refusal) {
    PrivateText text(refusal.text);
    const OwnedValue value(type->eval(space, text.get()), KillValue{space, type});
    EXPECT_EQ(value, nullptr) << refusal.text;
    EXPECT_EQ(messages(), refusal.messages);
    if (reads_ == Reads::kTextAsItIs) {
      EXPECT_EQ(text.bytes(), refusal.text);
    }
  }

  void expect_compared(const Comparison &pair) {
    const OwnedValue a = evaluated(pair.a);
    const OwnedValue b = evaluated(pair.b);
    ASSERT_NE(a, nullptr);
    ASSERT_NE(b, nullptr);
    EXPECT_EQ(compared(a.get(), b.get()), pair.order);
    EXPECT_EQ(compared(b.get(), a.get()), pair.order == -2 ? -2 : -pair.order);
  }

  const jt_type *type;

 private:
  Reads reads_;
};

// The tests of one type over many texts.
template <typename Family, typename Case>
class Each : public Family, public ::testing::WithParamInterface<Case> {};

}  // namespace jt_test

#endif
