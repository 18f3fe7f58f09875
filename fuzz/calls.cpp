// Sequences of calls, beside a naive model of the session. The input is a list of operations: a byte for the
// operation, then one for each of its arguments. After each call its answer, the status, the history of
// messages and the slots in use are those of the model; at the end every tree is walked through the calls and
// is the model's tree. Everything handed over is released, and the session closed with what is left in it.
//
// Some calls are made with a null session: they fail, and nothing else changes. In some an allocation fails:
// they fail as a whole, or do without.
#include <iterator>

#include "calls_run.h"

namespace {

using jt_fuzz::Answer;
using jt_fuzz::answer_of;
using jt_fuzz::ask;
using jt_fuzz::check;
using jt_fuzz::Failure;
using jt_fuzz::Kind;
using jt_fuzz::Model;
using jt_fuzz::Run;
using jt_fuzz::Value;
using jt_fuzz::words;

constexpr const char *kServiceTypes[] = {"kmt_svc_scan",   "KMT_SVC_FAX", "service", "integer",
                                         "enum_colormode", "nosuch",      "",        nullptr};
constexpr const char *kInvocationNames[] = {"one", "ONE", "two", "1", "2",    "0",
                                            "03",  "x2",  "-1",  "",  nullptr};
constexpr const char *kTypes[] = {"integer", "STRING",       "Enum_ColorMode", "boolean", "enum_colormode",
                                  "service", "kmt_svc_scan", "enum_nosuch",    "",        nullptr};
constexpr const char *kScopes[] = {"kmt_svc_scan", "KMT_SVC_SCAN", "Scan", nullptr};
constexpr const char *kComments[] = {"# a\n", "# b\n", nullptr};
constexpr std::uint32_t kStatuses[] = {1, 6, 18, 20, 77, 0xFFFFFFFF};

constexpr char kScan[] = "kmt_svc_scan";

constexpr char kExample[] =
    "[ kmt_svc_scan Scan ] one { integer n2 = 1 , +2 ; * string n3 = \"a b\" , x ; ( odd { why } ) "
    "enum_colormode n4 = grayscale , other ; } ( KMT_STATUS_ERROR { x } ) { } end ( mm ) [ service Own ] end";

struct Refused {
  const char *text;
  const char *report;
};
constexpr Refused kRefused[] = {
    {nullptr, ""},
    {"", "SYNTAX ERROR: while parsing for \"  <  \" at:"},
    {"[ kmt_svc_scan A ] { } end foo", "SYNTAX ERROR: while parsing for \" [ or EOF or ( or <  \" at: foo"},
    {"[ kmt_svc_scan A ] { integer a = 1 ;", "SYNTAX ERROR: Illegal end of block at"},
};

// ---- Operations of one shape each -------------------------------------------------------------------------

template <auto Call, auto Mirror>
void on_template(Run &run) {
  ask(run, Call, Mirror, run.handle());
}

template <auto Call, auto Mirror>
void on_service(Run &run) {
  const int32_t handle = run.handle();
  ask(run, Call, Mirror, handle, run.service());
}

template <auto Call, auto Mirror>
void with_invocation_name(Run &run) {
  const int32_t handle = run.handle();
  const char *const service = run.service();
  ask(run, Call, Mirror, handle, service, run.input.one_of(kInvocationNames));
}

template <auto Call, auto Mirror>
void on_attribute(Run &run) {
  const int32_t handle = run.handle();
  const char *const service = run.service();
  ask(run, Call, Mirror, handle, service, run.attribute());
}

template <auto Call, auto Mirror>
void with_text(Run &run) {
  const int32_t handle = run.handle();
  const char *const service = run.service();
  const char *const attribute = run.attribute();
  ask(run, Call, Mirror, handle, service, attribute, run.text());
}

// ---- Sessions ---------------------------------------------------------------------------------------------

// The text itself is a test's affair.
template <auto Call>
void fixed_text(Run &run) {
  run.compare([&] { return answer_of(Call(run.space) != nullptr); }, [] { return answer_of(true); }, "0");
}

template <auto Call, auto Mirror>
void message(Run &run) {
  run.compare([&] { return words(Call(run.space)); }, [&] { return (run.model.*Mirror)(); }, "null");
}

template <auto Call>
void release_nothing(Run &run) {
  run.compare([&] { return words(Call(run.space, nullptr)); }, [] { return answer_of(true); }, "0");
}

// ---- Templates --------------------------------------------------------------------------------------------

// So few that the calls meet.
bool has_enough_templates(const Run &run) { return run.model.templates.size() >= 3; }

void create_template(Run &run) {
  if (has_enough_templates(run)) return;
  run.compare([&] { return words(jt_create_template(run.space)); },
              [&] { return run.model.create_template(); }, "0");
}

void decode_example(Run &run) {
  if (has_enough_templates(run)) return;
  run.compare([&] { return words(jt_decode_template(run.space, kExample)); },
              [&] { return run.model.decode_example(); }, "0");
}

void decode_refused(Run &run) {
  const Refused &refused = run.input.one_of(kRefused);
  run.compare([&] { return words(jt_decode_template(run.space, refused.text)); },
              [&] { return run.model.decode_refused(refused.report); }, "0");
}

// The blanks of the layout are not the model's.
Answer encoded(jt_parser_space *space, int32_t handle) {
  Answer text = words(jt_encode_template(space, handle));
  text.erase(std::remove_if(text.begin(), text.end(), [](char c) { return c == ' ' || c == '\n'; }),
             text.end());
  return text;
}

void compare_encoded(Run &run, int32_t handle) {
  run.compare([&] { return encoded(run.space, handle); }, [&] { return run.model.encode_template(handle); },
              "null");
}

void encode_template(Run &run) { compare_encoded(run, run.handle()); }

// The only way to a comment is beneath the calls; it leaves the status alone.
void comment_on_template(Run &run) {
  const int32_t handle = run.handle();
  const char *const text = run.input.one_of(kComments);
  if (!run.model.is_template(handle)) return;
  jt_parser_space *const space = run.session.space;
  const Answer actual = words(add_comment(space, opaque_to_node(space, handle), text));
  check(actual == run.model.add_comment(handle, text), run.operation);
  run.check_state();
}

// ---- Additions --------------------------------------------------------------------------------------------

void add_service(Run &run) {
  const int32_t handle = run.handle();
  const char *const type = run.input.one_of(kServiceTypes);
  ask(run, jt_add_service, &Model::add_service, handle, type, run.service());
}

void add_attribute(Run &run) {
  const int32_t handle = run.handle();
  const char *const service = run.service();
  const char *const type = run.input.one_of(kTypes);
  ask(run, jt_add_attribute, &Model::add_attribute, handle, service, type, run.attribute());
}

// So many that they are indexed.
constexpr int kMany = 16;

void add_many_invocations(Run &run) {
  const int32_t handle = run.handle();
  const char *const service = run.service();
  for (int i = 0; i < kMany; ++i) ask(run, jt_add_invocation, &Model::add_invocation, handle, service);
}

void add_many_texts(Run &run) {
  const int32_t handle = run.handle();
  const char *const service = run.service();
  const char *const attribute = run.attribute();
  for (int i = 0; i < kMany; ++i) {
    const std::string text = (i % 2 == 0 ? "x" : "") + std::to_string(i);
    ask(run, jt_add_attribute_value_string, &Model::add_text, handle, service, attribute, text.c_str());
  }
}

// ---- Typed values -----------------------------------------------------------------------------------------

// A value of the attribute's type from a text, made by a call and by the model; of some type where there is
// no attribute with values. Released at the end of its scope.
class TypedValue {
 public:
  TypedValue(Run &run, const jt_fuzz::Type *type, const char *text) : run_(run) {
    const bool has_values = type != nullptr && type->kind != Kind::kBlock && type->kind != Kind::kUnknown;
    const Kind kind = has_values ? type->kind : Kind::kString;
    type_ = has_values ? *type->name : "string";
    const auto read = [&] {
      value_ = jt_decode_value(run.session.space, type_.c_str(), text, kScan);
      return answer_of(value_ != nullptr);
    };
    const auto mirror = [&] {
      mirrored_ = run.model.decode_value(kind, text);
      return answer_of(mirrored_.has_value());
    };
    run.compare_outside(read, mirror, "0");
  }
  ~TypedValue() {
    if (value_ != nullptr) destroy(run_, type_, value_);
  }
  TypedValue(const TypedValue &) = delete;
  TypedValue &operator=(const TypedValue &) = delete;

  static void destroy(Run &run, const std::string &type, jt_value *value) {
    run.compare_outside(
        [&] { return words(jt_destroy_value(run.session.space, type.c_str(), value, kScan)); },
        [] { return answer_of(true); }, "0");
  }

  const jt_value *value() const { return value_; }
  const Value *mirrored() const { return mirrored_.has_value() ? &*mirrored_ : nullptr; }

 private:
  Run &run_;
  std::string type_;
  jt_value *value_ = nullptr;
  std::optional<Value> mirrored_;
};

template <auto Call, auto Mirror>
void with_value(Run &run) {
  const int32_t handle = run.handle();
  const char *const service = run.service();
  const char *const attribute = run.attribute();
  const TypedValue value(run, run.model.type_of(handle, service, attribute), run.text());
  run.compare([&] { return words(Call(run.space, handle, service, attribute, value.value())); },
              [&] { return (run.model.*Mirror)(handle, service, attribute, value.mirrored()); }, "0");
}

void override_value(Run &run) {
  const int32_t handle = run.handle();
  const char *const service = run.service();
  const char *const attribute = run.attribute();
  const jt_fuzz::Type *const type = run.model.type_of(handle, service, attribute);
  const TypedValue old_value(run, type, run.text());
  const TypedValue new_value(run, type, run.text());
  const auto call = [&] {
    return words(jt_override_attribute_value(run.space, handle, service, attribute, old_value.value(),
                                             new_value.value()));
  };
  const auto mirror = [&] {
    return run.model.override_value(handle, service, attribute, old_value.mirrored(), new_value.mirrored());
  };
  run.compare(call, mirror, "0");
}

// A copy of a value is handed out where the model has one, and has its text.
template <auto Call, auto Mirror>
void read_value(Run &run) {
  const int32_t handle = run.handle();
  const char *const service = run.service();
  const char *const attribute = run.attribute();
  jt_value *value = nullptr;
  const Value *mirrored = nullptr;
  run.passes_when_failed = true;
  const auto call = [&] {
    return answer_of((value = Call(run.space, handle, service, attribute)) != nullptr);
  };
  const auto mirror = [&] {
    return answer_of((mirrored = (run.model.*Mirror)(handle, service, attribute)) != nullptr);
  };
  run.compare(call, mirror, "0");
  run.passes_when_failed = false;
  if (value == nullptr) return;
  const std::string type = *run.model.type_of(handle, service, attribute)->name;
  run.compare_outside([&] { return words(jt_encode_value(run.space, type.c_str(), value, kScan)); },
                      [&] { return run.model.encode_value(*mirrored); }, "null");
  TypedValue::destroy(run, type, value);
}

// A value of unknown type is passed once its text has been copied, any other whatever its text comes to.
void next_value_string(Run &run) {
  const int32_t handle = run.handle();
  const char *const service = run.service();
  const char *const attribute = run.attribute();
  const jt_fuzz::Type *const type = run.model.type_of(handle, service, attribute);
  run.passes_when_failed = type != nullptr && type->kind != Kind::kUnknown;
  ask(run, jt_get_next_attribute_value_string, &Model::next_value_string, handle, service, attribute);
  run.passes_when_failed = false;
}

// ---- Values of any type -----------------------------------------------------------------------------------

// The five calls, one after the other. Where the type has no values they are given one that they must not
// touch.
void use_type(Run &run) {
  run.space = run.session.space;
  const char *const scope = run.input.one_of(kScopes);
  const char *const type = run.input.one_of(kTypes);
  const char *const text = run.text();
  Model &model = run.model;
  jt_value *value = nullptr;
  jt_value *copy = nullptr;
  std::optional<Value> mirrored;
  const auto answer_value = [](const jt_value *made) { return answer_of(made != nullptr); };
  const auto decode = [&] { return answer_value(value = jt_decode_value(run.space, type, text, scope)); };
  run.compare(
      decode, [&] { return answer_of((mirrored = model.decode_named(scope, type, text)).has_value()); }, "0");
  const Value *const mirror = mirrored.has_value() ? &*mirrored : nullptr;
  run.compare([&] { return answer_value(copy = jt_copy_value(run.space, type, value, scope)); },
              [&] { return model.copy_named(scope, type, mirror); }, "0");
  run.compare([&] { return words(jt_compare_value(run.space, type, value, copy, scope)); },
              [&] { return model.compare_named(scope, type, mirror, mirror); }, "0");
  run.compare([&] { return words(jt_compare_value(run.space, type, nullptr, copy, scope)); },
              [&] { return model.compare_named(scope, type, nullptr, mirror); }, "0");
  run.compare([&] { return words(jt_encode_value(run.space, type, copy, scope)); },
              [&] { return model.encode_named(scope, type, mirror); }, "null");
  for (jt_value *const made : {value, copy}) {
    if (made == nullptr) continue;
    run.compare([&] { return words(jt_destroy_value(run.space, type, made, scope)); },
                [&] { return model.destroy_named(scope, type, mirror); }, "0");
  }
}

// A value that is not there, or of a type that has none: neither is touched.
void destroy_no_value(Run &run) {
  run.space = run.session.space;
  const char *const scope = run.input.one_of(kScopes);
  const char *const type = run.input.one_of(kTypes);
  std::uint32_t word = 0;
  auto *const value = run.model.has_values(scope, type) ? nullptr : reinterpret_cast<jt_value *>(&word);
  const Value something = {};
  const Value *const mirrored = value != nullptr ? &something : nullptr;
  run.compare([&] { return words(jt_destroy_value(run.space, type, value, scope)); },
              [&] { return run.model.destroy_named(scope, type, mirrored); }, "0");
}

// ---- Statuses ---------------------------------------------------------------------------------------------

const std::uint32_t *number_from(Run &run) {
  const std::uint8_t byte = run.input.byte();
  return byte >= 0xF8 ? nullptr : &kStatuses[byte % std::size(kStatuses)];
}

const jt_status *as_status(const std::uint32_t *number) {
  return reinterpret_cast<const jt_status *>(number);
}

template <auto Call, auto Mirror>
void set_block_status(Run &run) {
  const int32_t handle = run.handle();
  const char *const service = run.service();
  const std::uint32_t *const number = number_from(run);
  run.compare([&] { return words(Call(run.space, handle, service, as_status(number))); },
              [&] { return (run.model.*Mirror)(handle, service, number); }, "0");
}

void set_attribute_status(Run &run) {
  const int32_t handle = run.handle();
  const char *const service = run.service();
  const char *const attribute = run.attribute();
  const std::uint32_t *const number = number_from(run);
  const auto call = [&] {
    return words(jt_set_attribute_status(run.space, handle, service, attribute, as_status(number)));
  };
  run.compare(
      call, [&] { return run.model.set_attribute_status(handle, service, attribute, number); }, "0");
}

// ---- The table --------------------------------------------------------------------------------------------

struct Operation {
  const char *name;
  void (*run)(Run &run);
};

// The order is that of the manual. Seeds depend on it: what is new goes to the end.
constexpr Operation kOperations[] = {
    {"jt_create_template", create_template},
    {"jt_decode_template of the example", decode_example},
    {"jt_decode_template of a refused text", decode_refused},
    {"jt_encode_template", encode_template},
    {"jt_destroy_template", on_template<jt_destroy_template, &Model::destroy_template>},
    {"add_comment", comment_on_template},

    {"jt_add_service", add_service},
    {"jt_delete_service", on_service<jt_delete_service, &Model::delete_service>},
    {"jt_exists_service", on_service<jt_exists_service, &Model::exists_service>},
    {"jt_get_first_service_name", on_template<jt_get_first_service_name, &Model::first_service_name>},
    {"jt_get_next_service_name", on_template<jt_get_next_service_name, &Model::next_service_name>},
    {"jt_get_service_type", on_service<jt_get_service_type, &Model::service_type>},
    {"jt_add_invocation", on_service<jt_add_invocation, &Model::add_invocation>},
    {"jt_add_invocation many times", add_many_invocations},
    {"jt_delete_invocation", on_service<jt_delete_invocation, &Model::delete_invocation>},
    {"jt_first_invocation", on_service<jt_first_invocation, &Model::first_invocation>},
    {"jt_next_invocation", on_service<jt_next_invocation, &Model::next_invocation>},
    {"jt_named_invocation", with_invocation_name<jt_named_invocation, &Model::named_invocation>},
    {"jt_get_invocation_name", on_service<jt_get_invocation_name, &Model::invocation_name>},
    {"jt_set_invocation_name", with_invocation_name<jt_set_invocation_name, &Model::set_invocation_name>},
    {"jt_force_invocation_name",
     with_invocation_name<jt_force_invocation_name, &Model::force_invocation_name>},

    {"jt_exists_attribute", on_attribute<jt_exists_attribute, &Model::exists_attribute>},
    {"jt_get_first_attribute_name", on_service<jt_get_first_attribute_name, &Model::first_attribute_name>},
    {"jt_get_next_attribute_name", on_service<jt_get_next_attribute_name, &Model::next_attribute_name>},
    {"jt_get_first_attribute_value", read_value<jt_get_first_attribute_value, &Model::first_value>},
    {"jt_get_next_attribute_value", read_value<jt_get_next_attribute_value, &Model::next_value>},
    {"jt_get_first_attribute_value_string",
     on_attribute<jt_get_first_attribute_value_string, &Model::first_value_string>},
    {"jt_get_next_attribute_value_string", next_value_string},
    {"jt_get_attribute_type_name", on_attribute<jt_get_attribute_type_name, &Model::attribute_type_name>},
    {"jt_known_attribute_datatype", on_attribute<jt_known_attribute_datatype, &Model::known_datatype>},
    {"jt_is_attribute_non_compulsory",
     on_attribute<jt_is_attribute_non_compulsory, &Model::is_non_compulsory>},

    {"jt_add_attribute", add_attribute},
    {"jt_delete_attribute", on_attribute<jt_delete_attribute, &Model::delete_attribute>},
    {"jt_add_attribute_value_string", with_text<jt_add_attribute_value_string, &Model::add_text>},
    {"jt_add_attribute_value_string many times", add_many_texts},
    {"jt_set_attribute_value_string", with_text<jt_set_attribute_value_string, &Model::set_text>},
    {"jt_add_attribute_value", with_value<jt_add_attribute_value, &Model::add_value>},
    {"jt_set_attribute_value", with_value<jt_set_attribute_value, &Model::set_value>},
    {"jt_delete_attribute_value", with_value<jt_delete_attribute_value, &Model::delete_value>},
    {"jt_delete_attribute_value_string", with_text<jt_delete_attribute_value_string, &Model::delete_text>},
    {"jt_override_attribute_value", override_value},
    {"jt_set_attribute_compulsory", on_attribute<jt_set_attribute_compulsory, &Model::set_compulsory>},
    {"jt_set_attribute_non_compulsory",
     on_attribute<jt_set_attribute_non_compulsory, &Model::set_non_compulsory>},

    {"jt_set_service_status", set_block_status<jt_set_service_status, &Model::set_service_status>},
    {"jt_set_invocation_status", set_block_status<jt_set_invocation_status, &Model::set_invocation_status>},
    {"jt_set_attribute_status", set_attribute_status},
    {"jt_get_service_status", on_service<jt_get_service_status, &Model::service_status>},
    {"jt_get_invocation_status", on_service<jt_get_invocation_status, &Model::invocation_status>},
    {"jt_get_attribute_status", on_attribute<jt_get_attribute_status, &Model::attribute_status>},

    {"jt_get_version", fixed_text<jt_get_version>},
    {"jt_get_copyright", fixed_text<jt_get_copyright>},
    {"jt_get_supported_language_version", fixed_text<jt_get_supported_language_version>},
    {"jt_get_recent_error", message<jt_get_recent_error, &Model::recent_error>},
    {"jt_get_previous_error", message<jt_get_previous_error, &Model::previous_error>},
    {"jt_destroy_value_string", release_nothing<jt_destroy_value_string>},
    {"jt_destroy_name", release_nothing<jt_destroy_name>},
    {"jt_destroy_status", release_nothing<jt_destroy_status>},
    {"the calls on values", use_type},
    {"jt_destroy_value of nothing", destroy_no_value},
};

// The operation has the low bits of the byte; the high ones may let an allocation fail or make the session
// null.
void run_one(Run &run) {
  constexpr std::size_t kCount = std::size(kOperations);
  static_assert(kCount <= 64);
  const std::uint8_t byte = run.input.byte();
  const Operation &operation = kOperations[byte % 64 % kCount];
  run.operation = operation.name;
  const bool null_session = byte >= 192 && run.input.byte() % 4 == 0;
  run.space = null_session ? nullptr : run.session.space;
  run.failure = byte >= 128 && byte < 192 ? Failure::from(run.input) : Failure{};
  operation.run(run);
  run.check_slots();
}

// ---- The walk at the end ----------------------------------------------------------------------------------

void walk_attribute(Run &run, int32_t handle, const char *service, const jt_fuzz::Attribute &attribute) {
  const char *const name = attribute.name->c_str();
  ask(run, jt_get_attribute_type_name, &Model::attribute_type_name, handle, service, name);
  ask(run, jt_known_attribute_datatype, &Model::known_datatype, handle, service, name);
  ask(run, jt_is_attribute_non_compulsory, &Model::is_non_compulsory, handle, service, name);
  ask(run, jt_get_attribute_status, &Model::attribute_status, handle, service, name);
  ask(run, jt_get_first_attribute_value_string, &Model::first_value_string, handle, service, name);
  for (std::size_t i = 0; i < attribute.values.items.size(); ++i) {
    ask(run, jt_get_next_attribute_value_string, &Model::next_value_string, handle, service, name);
  }
}

void walk_invocation(Run &run, int32_t handle, const char *service, const jt_fuzz::Invocation &invocation) {
  ask(run, jt_get_invocation_name, &Model::invocation_name, handle, service);
  ask(run, jt_get_invocation_status, &Model::invocation_status, handle, service);
  ask(run, jt_get_first_attribute_name, &Model::first_attribute_name, handle, service);
  for (const auto &attribute : invocation.attributes.items) {
    if (attribute.name.has_value()) walk_attribute(run, handle, service, attribute);
    ask(run, jt_get_next_attribute_name, &Model::next_attribute_name, handle, service);
  }
}

void walk_service(Run &run, int32_t handle, const jt_fuzz::Service &service) {
  const char *const name = service.name->c_str();
  ask(run, jt_get_service_type, &Model::service_type, handle, name);
  ask(run, jt_get_service_status, &Model::service_status, handle, name);
  ask(run, jt_first_invocation, &Model::first_invocation, handle, name);
  for (const auto &invocation : service.invocations.items) {
    walk_invocation(run, handle, name, invocation);
    ask(run, jt_next_invocation, &Model::next_invocation, handle, name);
  }
}

void walk_template(Run &run, const jt_fuzz::Template &root) {
  const int32_t handle = -100 - root.slot;
  ask(run, jt_get_first_service_name, &Model::first_service_name, handle);
  for (const auto &service : root.services.items) {
    if (service.name.has_value()) walk_service(run, handle, service);
    ask(run, jt_get_next_service_name, &Model::next_service_name, handle);
  }
  compare_encoded(run, handle);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  Run run(data, size);
  while (!run.input.is_over()) run_one(run);
  run.operation = "the walk";
  run.failure = {};
  run.space = run.session.space;
  for (const auto &root : run.model.templates) walk_template(run, root);
  return 0;
}
