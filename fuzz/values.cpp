// Any text, as a value of every type there is. The input may hold a second text behind a NUL. What is
// promised of each family of types:
//
// - A text is read or refused; which of the two, and what it becomes, is the same whether the row of the
//   table or the call is asked. Nothing is read behind the text.
// - A value that was read has a text. A copy of the value equals it and has the same text.
// - That text is read again and becomes the same text again. The empty text and "inf" are refused again: a
//   reference of no name and no qualifier, and a real beyond the range, write them.
// - What it becomes equals the value. A real may differ, having been rounded to six decimals.
// - Comparing two values the other way round gives the opposite order. Equal values have the same hash.
#include <algorithm>
#include <set>

#include "support.h"
#include "types/type_tables.h"

namespace {

using jt_fuzz::check;
using jt_fuzz::OwnedText;

// ---- The types --------------------------------------------------------------------------------------------

struct Type {
  const char *service;
  const jt_type *row;
};

struct ServiceTypes {
  const char *service;
  const jt_type *rows;
  int32_t count;
};

// The first row of each family: rows of the same operations need not be tried again.
std::vector<Type> list_families() {
  const ServiceTypes services[] = {{"kmt_document", doc_type_tab, MAX_DOC_TYPES},
                                   {"kmt_svc_email", email_type_tab, MAX_EMAIL_TYPES},
                                   {"kmt_svc_fax", fax_type_tab, MAX_FAX_TYPES},
                                   {"kmt_svc_file", file_type_tab, MAX_FILE_TYPES},
                                   {"kmt_svc_general", gen_type_tab, MAX_GEN_TYPES},
                                   {"kmt_svc_print", print_type_tab, MAX_LPRNT_TYPES},
                                   {"kmt_dscrpt_metadata", metadata_type_tab, MAX_METADATA_TYPES},
                                   {"kmt_svc_ocr", ocr_type_tab, MAX_OCR_TYPES},
                                   {"kmt_svc_scan", scan_type_tab, MAX_SCAN_TYPES},
                                   {"kmt_svc_validation", validation_type_tab, MAX_VALIDATION_TYPES}};
  const char *const base_types[] = {"boolean",          "integer",          "kmt_enum_status", "real",
                                    "ref_collection",   "ref_invocation",   "string",          "timestamp",
                                    "struct_rectangle", "struct_timeofday", "enum_units"};
  std::vector<Type> rows;
  for (const char *const name : base_types) {
    rows.push_back({nullptr, get_type_from_services(nullptr, nullptr, name)});
  }
  for (const auto &[service, table, count] : services) {
    for (int32_t i = 0; i < count; ++i) rows.push_back({service, &table[i]});
  }
  std::vector<Type> families;
  std::set<decltype(jt_type::eval)> seen;
  for (const Type &type : rows) {
    const bool has_values = type.row != nullptr && type.row->eval != nullptr;
    if (has_values && seen.insert(type.row->eval).second) families.push_back(type);
  }
  return families;
}

// ---- Values -----------------------------------------------------------------------------------------------

class Value {
 public:
  Value(jt_parser_space *space, const jt_type &type, jt_value *value)
      : space_(space), type_(&type), value_(value) {}
  ~Value() {
    if (value_ != nullptr) check(type_->kill(space_, value_) == 1, "a value is released");
  }
  Value(const Value &) = delete;
  Value &operator=(const Value &) = delete;

  static Value read(jt_parser_space *space, const jt_type &type, std::string_view text) {
    const jt_fuzz::TightText private_copy(text);
    return {space, type, type.eval(space, private_copy.get())};
  }

  bool exists() const { return value_ != nullptr; }
  const jt_value *get() const { return value_; }
  Value copy() const { return {space_, *type_, type_->copy(space_, value_)}; }
  int32_t order(const Value &other) const { return type_->cmp(space_, value_, other.value_); }

  std::string text() const {
    const OwnedText owned(type_->deval(space_, value_));
    check(owned != nullptr, "a value that was read has a text", type_->name);
    return owned.get();
  }

 private:
  jt_parser_space *space_;
  const jt_type *type_;
  jt_value *value_;
};

void check_copy(const Value &value) {
  check(value.order(value) == 0, "a value equals itself", value.text());
  const Value copy = value.copy();
  check(copy.exists() && copy.order(value) == 0, "a copy equals its value", value.text());
  check(copy.text() == value.text(), "a copy has its value's text", value.text());
}

void check_text(jt_parser_space *space, const jt_type &type, const Value &value) {
  const std::string text = value.text();
  const std::string_view name = type.name;
  const bool nothing = text.empty() && name == "ref_invocation";
  const bool endless = text == "inf" && name == "real";
  const Value again = Value::read(space, type, text);
  check(again.exists() == !(nothing || endless), "a value's text is read again", text);
  if (!again.exists()) return;
  check(again.text() == text, "a value's text stays the same", text);
  check(name == "real" || again.order(value) == 0, "a value's text makes the same value", text);
}

void check_order(const jt_type &type, const Value &a, const Value &b) {
  const int32_t forth = a.order(b);
  const int32_t back = b.order(a);
  const bool opposite = (forth > 0) == (back < 0) && (forth < 0) == (back > 0);
  check(opposite || (forth == -2 && back == -2), "the order of two values is one", a.text());
  std::uint32_t hashes[2] = {};
  const jt_core::ValueFamily *const family = jt_core::family_of(&type);
  if (forth != 0 || !a.exists() || !b.exists() || !family->operations->hash(nullptr, a.get(), hashes[0]))
    return;
  check(family->operations->hash(nullptr, b.get(), hashes[1]) && hashes[0] == hashes[1],
        "equal values have one hash", b.text());
}

// ---- The calls --------------------------------------------------------------------------------------------

void check_calls(jt_parser_space *space, const Type &type, const char *text, const Value &value) {
  const char *const name = type.row->name;
  jt_value *const decoded = jt_decode_value(space, name, text, type.service);
  check((decoded != nullptr) == value.exists(), "the call reads what the row reads", text);
  if (decoded == nullptr) return;
  const OwnedText written(jt_encode_value(space, name, decoded, type.service));
  check(written != nullptr && value.text() == written.get(), "the call makes the same value", text);
  check(jt_compare_value(space, name, decoded, value.get(), type.service) == 0, "so does comparing", text);
  check(jt_destroy_value(space, name, decoded, type.service) == 1, "the call releases a value", text);
}

void check_type(const jt_fuzz::Session &session, const Type &type, std::string_view text,
                std::string_view other_text) {
  const Value value = Value::read(session.space, *type.row, text);
  session.check_status();
  check_calls(session.space, type, jt_fuzz::TightText(text).get(), value);
  if (!value.exists()) return;
  check_copy(value);
  check_text(session.space, *type.row, value);
  const Value other = Value::read(session.space, *type.row, other_text);
  if (other.exists()) check_order(*type.row, value, other);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  static const std::vector<Type> families = list_families();
  const std::string_view bytes(reinterpret_cast<const char *>(data), size);
  const std::size_t end = std::min(bytes.find('\0'), size);
  std::string_view rest = bytes.substr(std::min(end + 1, size));
  rest = rest.substr(0, rest.find('\0'));
  const jt_fuzz::Session session;
  for (const Type &type : families) check_type(session, type, bytes.substr(0, end), rest);
  check(session.is_empty(), "values take no slot");
  return 0;
}
