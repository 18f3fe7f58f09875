// Each record is read by a table of its members, in the table's order: the types of values come before the
// values. At the end what was written is read by the library: its word counts.
#include "core/json_in.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <set>
#include <span>
#include <utility>

#include "core/catalogue.h"
#include "core/load.h"
#include "core/sil_writer.h"
#include "core/suggestions.h"
#include "core/text.h"
#include "jt.hpp"

namespace sil {
namespace {

constexpr std::size_t kLongestName = 1023;
constexpr std::size_t kLongestText = 1024;

using Kind = JsonValue::Kind;

class Reader;

Value value_of(std::string text) { return {std::move(text), "", {}}; }
Value real_of(float number) { return {"", "", number}; }

template <typename T>
struct Member {
  std::string_view name;
  bool is_required;
  void (Reader::*read)(const JsonValue &, const std::string &, T &);
};

class Reader {
 public:
  std::optional<Model> run(const JsonValue &json);
  std::vector<JsonFinding> take_findings() { return std::move(findings_); }

 private:
  template <typename T>
  void read_members(const JsonValue &json, const std::string &at, std::span<const Member<T>> members,
                    T &into);
  template <typename T>
  void read_all(const JsonValue &json, const std::string &at,
                void (Reader::*read)(const JsonValue &, const std::string &, T &), std::vector<T> &into);

  void version(const JsonValue &json, const std::string &at, Model &);
  void header(const JsonValue &json, const std::string &at, Model &model);
  void section(const JsonValue &json, const std::string &at, Model &model);
  void service(const JsonValue &json, const std::string &at, Service &service);
  void invocation(const JsonValue &json, const std::string &at, Invocation &invocation);
  void attribute(const JsonValue &json, const std::string &at, Attribute &attribute);
  void form(const JsonValue &json, const std::string &at, Header &header);
  void service_type(const JsonValue &json, const std::string &at, Service &service);
  void attribute_type(const JsonValue &json, const std::string &at, Attribute &attribute);
  void invocation_name(const JsonValue &json, const std::string &at, Invocation &invocation);
  void invocations(const JsonValue &json, const std::string &at, Service &service);
  void is_optional(const JsonValue &json, const std::string &at, Attribute &attribute);
  void status_name(const JsonValue &json, const std::string &at, Status &status);
  void status_text(const JsonValue &json, const std::string &at, Status &status);
  void values(const JsonValue &json, const std::string &at, Attribute &attribute);
  void check_forms(const Model &model);

  template <typename T>
  void comment(const JsonValue &json, const std::string &at, T &element);
  template <typename T>
  void status(const JsonValue &json, const std::string &at, T &element);
  template <typename T>
  void services(const JsonValue &json, const std::string &at, T &holder);
  template <typename T>
  void attributes(const JsonValue &json, const std::string &at, T &holder);
  template <typename T, std::string T::*Name>
  void word(const JsonValue &json, const std::string &at, T &element);
  template <typename T>
  void check_names(const std::vector<T> &elements, const std::string &at);

  std::optional<Value> value(const JsonValue &json, const std::string &at, const jt_type &type);
  std::optional<Value> integer(const JsonValue &json, const std::string &at);
  std::optional<Value> real(const JsonValue &json, const std::string &at);
  std::optional<Value> other_value(const JsonValue &json, const std::string &at, const jt_type &type);
  std::string bare_word(const JsonValue &json, const std::string &at);
  std::string text(const JsonValue &json, const std::string &at, std::size_t longest);

  void find(const std::string &at, std::string message) { findings_.push_back({at, std::move(message)}); }

  std::vector<JsonFinding> findings_;
  std::string scope_;
  jt::Session session_{"sil"};
};

// ---- Members and lists ----

const JsonValue *find_member(const JsonValue &json, std::string_view name) {
  for (const auto &[key, value] : json.members)
    if (key == name) return &value;
  return nullptr;
}

template <typename T>
void Reader::read_members(const JsonValue &json, const std::string &at, std::span<const Member<T>> members,
                          T &into) {
  if (json.kind != Kind::kObject) return find(at, "an object is needed here");
  std::vector<std::string> known;
  for (const Member<T> &member : members) known.emplace_back(member.name);
  std::set<std::string_view> seen;
  for (const auto &[key, value] : json.members) {
    if (!seen.insert(key).second) find(pointer_to(at, key), "this key comes twice");
    if (std::find(known.begin(), known.end(), key) == known.end())
      find(pointer_to(at, key), "there is no such member" + did_you_mean(nearest(key, known)));
  }
  for (const Member<T> &member : members) {
    const JsonValue *const value = find_member(json, member.name);
    const std::string place = pointer_to(at, member.name);
    if (value != nullptr) {
      (this->*member.read)(*value, place, into);
    } else if (member.is_required) {
      find(at, "the member \"" + std::string(member.name) + "\" is missing");
    }
  }
}

template <typename T>
void Reader::read_all(const JsonValue &json, const std::string &at,
                      void (Reader::*read)(const JsonValue &, const std::string &, T &),
                      std::vector<T> &into) {
  if (json.kind != Kind::kArray) return find(at, "an array is needed here");
  for (std::size_t i = 0; i < json.members.size(); ++i)
    (this->*read)(json.members[i].value, pointer_to(at, std::to_string(i)), into.emplace_back());
  check_names(into, at);
}

std::string_view name_of(const Invocation &invocation) {
  return invocation.name ? *invocation.name : std::string_view();
}
template <typename T>
std::string_view name_of(const T &element) {
  return element.name;
}

template <typename T>
void Reader::check_names(const std::vector<T> &elements, const std::string &at) {
  std::set<std::string> seen;
  for (std::size_t i = 0; i < elements.size(); ++i) {
    std::string name(name_of(elements[i]));
    std::transform(name.begin(), name.end(), name.begin(), folded);
    if (!name.empty() && !seen.insert(name).second)
      find(pointer_to(pointer_to(at, std::to_string(i)), "name"), "this name comes twice");
  }
}

// ---- The records ----

std::optional<Model> Reader::run(const JsonValue &json) {
  static constexpr Member<Model> kMembers[] = {
      {"sil", true, &Reader::version},
      {"comment", false, &Reader::comment<Model>},
      {"header", false, &Reader::header},
      {"section", false, &Reader::section},
      {"services", true, &Reader::services<Model>},
  };
  Model model;
  read_members<Model>(json, "", kMembers, model);
  check_forms(model);
  return findings_.empty() ? std::optional(std::move(model)) : std::nullopt;
}

void Reader::version(const JsonValue &json, const std::string &at, Model & /*model*/) {
  if (json.kind != Kind::kNumber || json.number != 1) find(at, "1 is needed here: the version of this shape");
}

void Reader::header(const JsonValue &json, const std::string &at, Model &model) {
  static constexpr Member<Header> kMembers[] = {
      {"form", true, &Reader::form},
      {"version", true, &Reader::word<Header, &Header::version>},
      {"identifier", true, &Reader::word<Header, &Header::identifier>},
      {"comment", false, &Reader::comment<Header>},
      {"attributes", true, &Reader::attributes<Header>},
  };
  scope_.clear();
  read_members<Header>(json, at, kMembers, model.header.emplace());
}

void Reader::section(const JsonValue &json, const std::string &at, Model &model) {
  static constexpr Member<Section> kMembers[] = {
      {"comment", false, &Reader::comment<Section>},
      {"services", true, &Reader::services<Section>},
  };
  read_members<Section>(json, at, kMembers, model.section.emplace());
}

void Reader::service(const JsonValue &json, const std::string &at, Service &service) {
  static constexpr Member<Service> kMembers[] = {
      {"type", true, &Reader::service_type},         {"name", true, &Reader::word<Service, &Service::name>},
      {"comment", false, &Reader::comment<Service>}, {"status", false, &Reader::status<Service>},
      {"invocations", true, &Reader::invocations},
  };
  read_members<Service>(json, at, kMembers, service);
}

void Reader::invocation(const JsonValue &json, const std::string &at, Invocation &invocation) {
  static constexpr Member<Invocation> kMembers[] = {
      {"name", false, &Reader::invocation_name},
      {"comment", false, &Reader::comment<Invocation>},
      {"status", false, &Reader::status<Invocation>},
      {"attributes", true, &Reader::attributes<Invocation>},
  };
  read_members<Invocation>(json, at, kMembers, invocation);
}

void Reader::attribute(const JsonValue &json, const std::string &at, Attribute &attribute) {
  static constexpr Member<Attribute> kMembers[] = {
      {"type", true, &Reader::attribute_type},
      {"name", true, &Reader::word<Attribute, &Attribute::name>},
      {"optional", false, &Reader::is_optional},
      {"comment", false, &Reader::comment<Attribute>},
      {"status", false, &Reader::status<Attribute>},
      {"values", true, &Reader::values},
  };
  read_members<Attribute>(json, at, kMembers, attribute);
}

// What a header's form allows to be there.
void Reader::check_forms(const Model &model) {
  const std::string form = model.header ? model.header->form : "";
  const bool may_have_section = form == "?" || form == "!";
  if (model.section && !may_have_section)
    find("/section", R"(only a header of the form "?" or "!" has a section)");
  if (form == "!" && !model.section) find("", R"(a header of the form "!" needs a section)");
  if (form == "!" && !model.services.empty())
    find("/services", R"(a header of the form "!" has services in its section only)");
  if (form == "?" && !model.section && model.services.empty())
    find("", R"(a header of the form "?" needs a section or services)");
  if (!model.header && model.services.empty()) find("", "a header or a service is needed");
}

// ---- Their members ----

void Reader::form(const JsonValue &json, const std::string &at, Header &header) {
  header.form = json.text;
  const bool is_known = header.form == "plain" || header.form == "?" || header.form == "!";
  if (json.kind != Kind::kText || !is_known) find(at, R"("plain", "?" or "!" is needed here)");
}

void Reader::service_type(const JsonValue &json, const std::string &at, Service &service) {
  service.type = bare_word(json, at);
  if (!service.type.empty() && !is_service_type(service.type))
    find(at, "there is no such type of service" + did_you_mean(nearest(service.type, service_types())));
}

void Reader::attribute_type(const JsonValue &json, const std::string &at, Attribute &attribute) {
  attribute.type = bare_word(json, at);
  attribute.is_type_known = type_in(scope_, attribute.type) != nullptr;
  if (attribute.type.empty() || attribute.is_type_known) return;
  const std::string in = scope_.empty() ? "among the built-in ones" : "in " + scope_;
  find(at, "there is no such type " + in + did_you_mean(nearest(attribute.type, types_in(scope_))));
}

void Reader::invocation_name(const JsonValue &json, const std::string &at, Invocation &invocation) {
  invocation.name = bare_word(json, at);
}

void Reader::invocations(const JsonValue &json, const std::string &at, Service &service) {
  scope_ = scope_of(service.type, service.name);
  read_all(json, at, &Reader::invocation, service.invocations);
}

void Reader::is_optional(const JsonValue &json, const std::string &at, Attribute &attribute) {
  attribute.is_optional = json.truth;
  if (json.kind != Kind::kBoolean) find(at, "true or false is needed here");
}

void Reader::status_name(const JsonValue &json, const std::string &at, Status &status) {
  status.name = text(json, at, kLongestText);
}

void Reader::status_text(const JsonValue &json, const std::string &at, Status &status) {
  status.text = text(json, at, kLongestText);
}

void Reader::values(const JsonValue &json, const std::string &at, Attribute &attribute) {
  if (json.kind != Kind::kArray) return find(at, "an array is needed here");
  const jt_type *const type = type_in(scope_, attribute.type);
  if (type == nullptr) return;
  if (type->eval == nullptr && !json.members.empty()) return find(at, "a kind of block has no values");
  for (std::size_t i = 0; i < json.members.size(); ++i) {
    std::optional<Value> read = value(json.members[i].value, pointer_to(at, std::to_string(i)), *type);
    if (read) attribute.values.push_back(std::move(*read));
  }
}

template <typename T>
void Reader::comment(const JsonValue &json, const std::string &at, T &element) {
  element.comment = text(json, at, std::numeric_limits<std::size_t>::max());
  if (!is_comment(*element.comment))
    find(at, "lines that begin with # are needed here, each with a line feed and of at most 1023 bytes");
}

template <typename T>
void Reader::status(const JsonValue &json, const std::string &at, T &element) {
  static constexpr Member<Status> kMembers[] = {
      {"name", true, &Reader::status_name},
      {"text", false, &Reader::status_text},
  };
  read_members<Status>(json, at, kMembers, element.status.emplace());
}

template <typename T>
void Reader::services(const JsonValue &json, const std::string &at, T &holder) {
  read_all(json, at, &Reader::service, holder.services);
}

template <typename T>
void Reader::attributes(const JsonValue &json, const std::string &at, T &holder) {
  read_all(json, at, &Reader::attribute, holder.attributes);
}

template <typename T, std::string T::*Name>
void Reader::word(const JsonValue &json, const std::string &at, T &element) {
  element.*Name = bare_word(json, at);
}

// ---- Texts and values ----

std::string Reader::text(const JsonValue &json, const std::string &at, std::size_t longest) {
  std::optional<std::string> text;
  const JsonValue *const coded = json.members.size() == 1 ? find_member(json, "base64") : nullptr;
  if (json.kind == Kind::kText) text = json.text;
  if (coded != nullptr && coded->kind == Kind::kText) text = from_base64(coded->text);
  if (!text) {
    find(at, "a string is needed here, or an object with \"base64\"");
    return "";
  }
  if (text->find('\0') != std::string::npos) find(at, "no text can hold a NUL");
  if (text->size() > longest) find(at, "this is longer than " + std::to_string(longest) + " bytes");
  return std::move(*text);
}

std::string Reader::bare_word(const JsonValue &json, const std::string &at) {
  const std::size_t before = findings_.size();
  std::string word = text(json, at, kLongestName);
  if (findings_.size() == before && !is_bare_word(word))
    find(at, word.empty()
                 ? "a name is needed here"
                 : "a name is one word, without blanks, quotes and marks of the language, and not \"end\"");
  return word;
}

std::optional<Value> Reader::value(const JsonValue &json, const std::string &at, const jt_type &type) {
  const std::string_view name = type.name;
  if (same_name(name, "integer")) return integer(json, at);
  if (same_name(name, "real")) return real(json, at);
  if (!same_name(name, "boolean")) return other_value(json, at, type);
  if (json.kind == Kind::kBoolean) return value_of(json.truth ? "TRUE" : "FALSE");
  find(at, "true or false is needed here");
  return {};
}

std::optional<Value> Reader::integer(const JsonValue &json, const std::string &at) {
  const double number = json.number;
  const bool fits = number >= std::numeric_limits<std::int32_t>::min() &&
                    number <= std::numeric_limits<std::int32_t>::max() && number == std::floor(number);
  if (json.kind == Kind::kNumber && fits) return value_of(std::to_string(static_cast<std::int32_t>(number)));
  find(at, "a whole number from -2147483648 to 2147483647 is needed here");
  return {};
}

std::optional<Value> Reader::real(const JsonValue &json, const std::string &at) {
  const JsonValue *const infinite = json.members.size() == 1 ? find_member(json, "text") : nullptr;
  if (infinite != nullptr && infinite->text == "inf") return real_of(std::numeric_limits<float>::infinity());
  const double number = json.number;
  const bool fits = number >= 0 && number <= static_cast<double>(std::numeric_limits<float>::max());
  if (json.kind == Kind::kNumber && fits) return real_of(static_cast<float>(std::abs(number)));
  find(at, R"(a number that is not negative and fits a single is needed here, or {"text":"inf"})");
  return {};
}

std::optional<Value> Reader::other_value(const JsonValue &json, const std::string &at, const jt_type &type) {
  const std::size_t before = findings_.size();
  Value value = value_of(text(json, at, kLongestText));
  if (findings_.size() != before) return {};
  std::string copy = value.text;
  jt_value *const read = type.eval(session_.get(), copy.data());
  if (read == nullptr) {
    const std::string form = form_of(type.name);
    find(at, "this is no value of the type " + std::string(type.name) + (form.empty() ? "" : ": ") +
                 std::string(form));
    return {};
  }
  type.kill(session_.get(), read);
  return value;
}

}  // namespace

FromJson from_json(std::string_view json) {
  JsonText read = read_json(json);
  if (!read.value) return {{}, {std::move(read.problem)}};
  Reader reader;
  const std::optional<Model> model = reader.run(*read.value);
  if (!model) return {{}, reader.take_findings()};
  std::string text = to_sil(*model);
  const Loaded loaded = load(text);
  // Infinity can only be written as a number that is too large.
  const auto fault = std::find_if(loaded.faults.begin(), loaded.faults.end(),
                                  [](const Fault &each) { return each.code != "value-saturated"; });
  if (loaded.model && fault == loaded.faults.end()) return {std::move(text), {}};
  const std::string code = fault == loaded.faults.end() ? "memory" : fault->code;
  return {{}, {{"", "what would be written would not be read back as it is: " + code}}};
}

}  // namespace sil
