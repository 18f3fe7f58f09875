// Every public call on a decoded template.
#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "faults/scenario.h"
#include "tree/child_index.h"

namespace jt_test {
namespace {

class Call : public ::testing::TestWithParam<Scenario> {};

TEST_P(Call, FailsAsAWholeOrNotAtAll) { expect_whole_failures(GetParam()); }

Messages no_node(const std::string &name) {
  return {kNoMemory, cut_message("MEMORY ERROR: Allocating for the node:" + name)};
}
Messages no_value_node(const std::string &text) {
  return {kNoMemory, cut_message("MEMORY ERROR: allocating for a value node" + text)};
}
const Messages kFullTable = {kNoMemory, kNoSlot, kNoBookmark};
const Messages kNoCopy = {kNoMemory, "CALL ERROR: could not copy the value ..."};
const Messages kNoNameCopy = {"MEMORY ERROR: while allocating for(null) ..."};
const Messages kGoesOn = {};

// ---- Templates and values
// -----------------------------------------------------------------------------------

std::vector<Scenario> template_scenarios() {
  const auto create = [](World &w) -> Result { return Handle{jt_create_template(w.space)}; };
  return {
      {"CreateTemplate", create, {no_node("template")}, fill_pages},
      {"CreateTemplateInAFullTable", create, {kFullTable}, fill_table},
      {"DestroyTemplate", [](World &w) -> Result { return jt_destroy_template(w.space, w.job); }, {}},
      {"Version", [](World &w) -> Result { return jt_get_version(w.space) != nullptr; }, {}},
      {"Copyright", [](World &w) -> Result { return jt_get_copyright(w.space) != nullptr; }, {}},
      {"LanguageVersion",
       [](World &w) -> Result { return jt_get_supported_language_version(w.space) != nullptr; },
       {}},
      {"LastApiError", [](World &w) -> Result { return jt_last_api_error(w.space) + 1; }, {}},
      {"RecentError", [](World &w) -> Result { return jt_get_recent_error(w.space) == nullptr; }, {}},
      {"PreviousError", [](World &w) -> Result { return jt_get_previous_error(w.space) == nullptr; }, {}},
  };
}

std::vector<Scenario> value_scenarios() {
  const auto decode = [](const char *type, const char *text) {
    return [type, text](World &w) -> Result {
      return TypedValue{get_type_from_services(nullptr, nullptr, type),
                        jt_decode_value(w.space, type, text, nullptr)};
    };
  };
  const Messages odd = {"WARNING: trying to evaluate as an 'enumerated' type:odd ...", kNoMemory,
                        "MEMORY ERROR: allocating value :odd ..."};
  return {
      {"CopyValue",
       [](World &w) -> Result {
         return TypedValue{get_type_from_services(nullptr, nullptr, "integer"),
                           jt_copy_value(w.space, "integer", as_value(&kTwo), nullptr)};
       },
       {{kNoMemory}}},
      {"CompareValue",
       [](World &w) -> Result {
         return jt_compare_value(w.space, "integer", as_value(&kFour), as_value(&kTwo), nullptr);
       },
       {}},
      {"EncodeValue",
       [](World &w) -> Result { return jt_encode_value(w.space, "integer", as_value(&kTwo), nullptr); },
       {{kNoMemory}}},
      {"DecodeValue", decode("integer", "2"), {{kNoMemory}, {kNoMemory}}},
      {"DecodeReference", decode("ref_invocation", "a:b"), {{kNoMemory}, {kNoMemory}}},
      {"DecodeOddName", decode("enum_units", "odd"), {{kNoMemory}, odd}},
      {"DestroyValue",
       [](World &w) -> Result {
         return jt_destroy_value(w.space, "integer", std::exchange(w.value, nullptr), nullptr);
       },
       {},
       [](World &w) {
         if (w.value == nullptr) w.value = jt_copy_value(w.space, "integer", as_value(&kTwo), nullptr);
       }},
      {"DestroyTexts",
       [](World &w) -> Result {
         return jt_destroy_value_string(w.space, nullptr) + jt_destroy_name(w.space, nullptr) +
                jt_destroy_status(w.space, nullptr);
       },
       {}},
  };
}

// ---- Services and invocations
// -------------------------------------------------------------------------------

int32_t add_service(World &w, const std::string &name) {
  return jt_add_service(w.space, w.job, "service", name.c_str());
}

std::vector<Scenario> service_scenarios() {
  const auto add = [](World &w) -> Result { return add_service(w, "New"); };
  return {
      {"AddService", add, {no_node("New")}, fill_pages},
      {"AddServiceInAFullTable", add, {kFullTable}, fill_table},
      {"AddServiceOfALongName",
       [](World &w) -> Result { return add_service(w, kLong); },
       {no_node(kLong), {kNoMemory, cut_message("MEMORY ERROR: Allocating for " + kLong)}},
       fill_pages},
      {"DeleteService", [](World &w) -> Result { return jt_delete_service(w.space, w.job, "Scan"); }, {}},
      {"ExistsService", [](World &w) -> Result { return jt_exists_service(w.space, w.job, "Own"); }, {}},
      {"FirstServiceName",
       [](World &w) -> Result { return jt_get_first_service_name(w.space, w.job); },
       {kNoNameCopy}},
      {"NextServiceName",
       [](World &w) -> Result { return jt_get_next_service_name(w.space, w.job); },
       {kNoNameCopy},
       [](World &w) { reset_index(w.space, w.root()); }},
      {"ServiceType",
       [](World &w) -> Result { return jt_get_service_type(w.space, w.job, "Scan"); },
       {{"MEMORY ERROR:allocating for the type ofScan ..."}}},
  };
}

std::vector<Scenario> adding_invocations() {
  const Messages warning = {"WARNING: unknown service:Own ..."};
  const std::string odd_service = cut_message("WARNING: unknown service:" + kLong);
  return {
      {"AddInvocation",
       [](World &w) -> Result { return jt_add_invocation(w.space, w.job, "Scan"); },
       {no_node("")},
       fill_pages},
      {"AddInvocationInAFullTable",
       [](World &w) -> Result { return jt_add_invocation(w.space, w.job, "Scan"); },
       {kFullTable},
       fill_table},
      {"AddInvocationOfUnknownType",
       [](World &w) -> Result { return jt_add_invocation(w.space, w.job, "Own"); },
       {{warning[0], kNoMemory, "MEMORY ERROR: Allocating for the node: ..."}},
       fill_pages},
      {"AddInvocationOfALongUnknownType",
       [](World &w) -> Result { return jt_add_invocation(w.space, w.job, kLong.c_str()); },
       {{odd_service, kNoMemory, "MEMORY ERROR: Allocating for the node: ..."},
        {odd_service, kNoMemory, cut_message("MEMORY ERROR: Allocating for " + kLong)}},
       [](World &w) {
         if (jt_exists_service(w.space, w.job, kLong.c_str()) == 0) add_service(w, kLong);
         fill_pages(w);
       }},
  };
}

std::vector<Scenario> invocation_scenarios() {
  const Messages no_name = {"MEMORY ERROR: could not allocate the nameNew ..."};
  const auto select = [](const char *which) {
    return [which](World &w) { jt_named_invocation(w.space, w.job, "Scan", which); };
  };
  return {
      {"DeleteInvocation",
       [](World &w) -> Result { return jt_delete_invocation(w.space, w.job, "Scan"); },
       {}},
      {"FirstInvocation", [](World &w) -> Result { return jt_first_invocation(w.space, w.job, "Scan"); }, {}},
      {"NextInvocation", [](World &w) -> Result { return jt_next_invocation(w.space, w.job, "Scan"); }, {}},
      {"NamedInvocation",
       [](World &w) -> Result { return jt_named_invocation(w.space, w.job, "Scan", "two"); },
       {}},
      {"InvocationName",
       [](World &w) -> Result { return jt_get_invocation_name(w.space, w.job, "Scan"); },
       {{kNoMemory}}},
      {"SetInvocationName",
       [](World &w) -> Result { return jt_set_invocation_name(w.space, w.job, "Scan", "New"); },
       {no_name},
       select("3")},
      {"ForceInvocationName",
       [](World &w) -> Result { return jt_force_invocation_name(w.space, w.job, "Scan", "New"); },
       {no_name},
       select("1")},
  };
}

// ---- Reading attributes
// -------------------------------------------------------------------------------------

// The value calls of an attribute, with what each allocation's failure leaves when its value is copied and
// when it is written.
struct Reading {
  const char *attribute;
  const char *type;
  std::vector<Messages> copying;
  std::vector<Messages> writing;
};

std::vector<Scenario> reading_scenarios_of(const Reading &reading) {
  const char *const name = reading.attribute;
  const jt_type *const type = get_type_from_services(nullptr, "kmt_svc_scan", reading.type);
  const auto before = [name](World &w) {
    add_odd_attribute(w);
    reset_index(w.space, w.attribute(name));
  };
  const std::string of = name;
  return {
      {"FirstValueOf" + of,
       [=](World &w) -> Result {
         return TypedValue{type, jt_get_first_attribute_value(w.space, w.job, "Scan", name)};
       },
       reading.copying, before},
      {"NextValueOf" + of,
       [=](World &w) -> Result {
         return TypedValue{type, jt_get_next_attribute_value(w.space, w.job, "Scan", name)};
       },
       reading.copying, before},
      {"FirstTextOf" + of,
       [=](World &w) -> Result { return jt_get_first_attribute_value_string(w.space, w.job, "Scan", name); },
       reading.writing, before},
      {"NextTextOf" + of,
       [=](World &w) -> Result { return jt_get_next_attribute_value_string(w.space, w.job, "Scan", name); },
       reading.writing, before},
  };
}

std::vector<Scenario> reading_scenarios() {
  std::vector<Scenario> all;
  for (const Reading &reading : {
           Reading{"Copies", "integer", {{kNoMemory}}, {{kNoMemory}}},
           Reading{"Title", "string", {{kNoMemory}}, {{kNoMemory}}},
           Reading{"Size",
                   "enum_mediasize",
                   {{kNoMemory}},
                   {{"MEMORY ERROR: allocation error while encodingISO_A4SEF ..."}}},
           Reading{"Odd", nullptr, {}, {{"MEMORY ERROR: allocating for pending valuepending ..."}}},
       }) {
    const auto scenarios = reading_scenarios_of(reading);
    all.insert(all.end(), scenarios.begin(), scenarios.end());
  }
  return all;
}

std::vector<Scenario> attribute_query_scenarios() {
  return {
      {"ExistsAttribute",
       [](World &w) -> Result { return jt_exists_attribute(w.space, w.job, "Scan", "Size"); },
       {}},
      {"FirstAttributeName",
       [](World &w) -> Result { return jt_get_first_attribute_name(w.space, w.job, "Scan"); },
       {kNoNameCopy}},
      {"NextAttributeName",
       [](World &w) -> Result { return jt_get_next_attribute_name(w.space, w.job, "Scan"); },
       {kNoNameCopy},
       [](World &w) { reset_index(w.space, w.invocation()); }},
      {"AttributeTypeName",
       [](World &w) -> Result { return jt_get_attribute_type_name(w.space, w.job, "Scan", "Copies"); },
       {{"MEMORY ERROR:allocating for the type ofCopies ..."}}},
      {"UnknownAttributeTypeName",
       [](World &w) -> Result { return jt_get_attribute_type_name(w.space, w.job, "Scan", "Odd"); },
       {{"MEMORY ERROR:allocating for the type of:nosuch ..."}},
       [](World &w) { add_odd_attribute(w); }},
      {"KnownDatatype",
       [](World &w) -> Result { return jt_known_attribute_datatype(w.space, w.job, "Scan", "Copies"); },
       {}},
      {"IsNonCompulsory",
       [](World &w) -> Result { return jt_is_attribute_non_compulsory(w.space, w.job, "Scan", "Copies"); },
       {}},
  };
}

// ---- Changing attributes
// ------------------------------------------------------------------------------------

std::vector<Scenario> attribute_scenarios() {
  const auto add = [](const char *type) {
    return [type](World &w) -> Result { return jt_add_attribute(w.space, w.job, "Scan", type, "New"); };
  };
  const std::string unknown = "WARNING: unknown attribute type:nosuch ...";
  return {
      {"AddAttribute", add("integer"), {no_node("New")}, fill_pages},
      {"AddAttributeInAFullTable", add("integer"), {kFullTable}, fill_table},
      {"AddAttributeOfUnknownType",
       add("nosuch"),
       {{unknown, kNoMemory, "MEMORY ERROR: Allocating for the node:New ..."}},
       fill_pages},
      {"DeleteAttribute",
       [](World &w) -> Result { return jt_delete_attribute(w.space, w.job, "Scan", "Copies"); },
       {}},
      {"SetCompulsory",
       [](World &w) -> Result { return jt_set_attribute_compulsory(w.space, w.job, "Scan", "Copies"); },
       {}},
      {"SetNonCompulsory",
       [](World &w) -> Result { return jt_set_attribute_non_compulsory(w.space, w.job, "Scan", "Title"); },
       {}},
  };
}

using TextCall = int32_t (*)(jt_parser_space *, int32_t, const char *, const char *, const char *);
using ValueCall = int32_t (*)(jt_parser_space *, int32_t, const char *, const char *, const jt_value *);

std::vector<Scenario> text_scenarios(const std::string &name, TextCall call) {
  const auto with = [call](const char *attribute, const std::string &text) {
    return [=](World &w) -> Result { return call(w.space, w.job, "Scan", attribute, text.c_str()); };
  };
  const auto odd_and_full = [](World &w) {
    add_odd_attribute(w);
    fill_pages(w);
  };
  const Messages no_odd_name = {"WARNING: trying to evaluate as an 'enumerated' type:new ...", kNoMemory,
                                "MEMORY ERROR: allocating value :new ...",
                                "MEMORY ERROR: allocating for a value nodenew ..."};
  const Messages no_pending = {kNoMemory, cut_message("MEMORY ERROR: allocating pending value:" + kLong)};
  return {
      {name, with("Copies", "4"), {no_value_node("4")}, fill_pages},
      {name + "InAFullTable", with("Copies", "4"), {kFullTable}, fill_table},
      {name + "OfAnOddName", with("Size", "new"), {no_odd_name}, fill_pages},
      {name + "OfALongText", with("Title", kLong), {no_value_node(kLong), no_value_node(kLong)}, fill_pages},
      {name + "OfUnknownType", with("Odd", "x"), {no_value_node("x")}, odd_and_full},
      {name + "OfUnknownTypeAndLong", with("Odd", kLong), {no_value_node(kLong), no_pending}, odd_and_full},
  };
}

std::vector<Scenario> value_scenarios(const std::string &name, ValueCall call) {
  const auto with = [call](const char *attribute, const void *value) {
    return [=](World &w) -> Result { return call(w.space, w.job, "Scan", attribute, as_value(value)); };
  };
  return {
      {name, with("Copies", &kFour), {kNoCopy}, fill_pages},
      {name + "InAFullTable", with("Copies", &kFour), {kFullTable}, fill_table},
      {name + "OfALongText", with("Title", kLong.c_str()), {kNoCopy, no_value_node(kLong)}, fill_pages},
  };
}

std::vector<Scenario> deleting_and_overriding() {
  const Messages unparsable = {kNoMemory, "CALL ERROR: unparsable value string2 ..."};
  const Messages no_copy = {kNoMemory, "CALL ERROR: value structure is invalid ..."};
  return {
      {"DeleteValue",
       [](World &w) -> Result {
         return jt_delete_attribute_value(w.space, w.job, "Scan", "Copies", as_value(&kTwo));
       },
       {}},
      {"DeleteText",
       [](World &w) -> Result {
         return jt_delete_attribute_value_string(w.space, w.job, "Scan", "Copies", "2");
       },
       {unparsable, unparsable}},
      {"DeleteTextOfUnknownType",
       [](World &w) -> Result {
         return jt_delete_attribute_value_string(w.space, w.job, "Scan", "Odd", "pending");
       },
       {},
       [](World &w) { add_odd_attribute(w); }},
      {"Override",
       [](World &w) -> Result {
         return jt_override_attribute_value(w.space, w.job, "Scan", "Copies", as_value(&kTwo),
                                            as_value(&kFour));
       },
       {no_copy, {kNoMemory}}},
      {"OverrideEnumerated",
       [](World &w) -> Result {
         const int32_t mixed = 1;
         jt_value *const first = w.attribute("Size")->first_child->value;
         return jt_override_attribute_value(w.space, w.job, "Scan", "Size", first, as_value(&mixed));
       },
       {no_copy, {"MEMORY ERROR: allocation error while encodingISO_A4SEF ..."}}},
  };
}

// ---- Statuses
// -----------------------------------------------------------------------------------------------

std::vector<Scenario> status_scenarios() {
  const jt_status *const status = as_status(&kTwo);
  return {
      {"ServiceStatus",
       [](World &w) -> Result { return jt_get_service_status(w.space, w.job, "Scan"); },
       {{kNoMemory}}},
      {"InvocationStatus",
       [](World &w) -> Result { return jt_get_invocation_status(w.space, w.job, "Scan"); },
       {{kNoMemory}}},
      {"AttributeStatus",
       [](World &w) -> Result { return jt_get_attribute_status(w.space, w.job, "Scan", "Copies"); },
       {{kNoMemory}}},
      {"OddAttributeStatus",
       [](World &w) -> Result { return jt_get_attribute_status(w.space, w.job, "Scan", "Size"); },
       {{kNoMemory}}},
      {"SetServiceStatus",
       [=](World &w) -> Result { return jt_set_service_status(w.space, w.job, "Own", status); },
       {}},
      {"SetInvocationStatus",
       [=](World &w) -> Result { return jt_set_invocation_status(w.space, w.job, "Own", status); },
       {}},
      {"SetAttributeStatus",
       [=](World &w) -> Result { return jt_set_attribute_status(w.space, w.job, "Scan", "Title", status); },
       {}},
  };
}

// Only a number without a name needs a block of its own.
std::vector<Scenario> setting_statuses_without_names() {
  static constexpr uint32_t kUnnamed = 1000;
  const jt_status *const status = as_status(&kUnnamed);
  const std::vector<Messages> failures = {{kNoMemory, "MEMORY ERROR: allocating for status. ..."}};
  return {
      {"OfAService", [=](World &w) -> Result { return jt_set_service_status(w.space, w.job, "Own", status); },
       failures},
      {"OfAnInvocation",
       [=](World &w) -> Result { return jt_set_invocation_status(w.space, w.job, "Own", status); }, failures},
      {"OfAnAttribute",
       [=](World &w) -> Result { return jt_set_attribute_status(w.space, w.job, "Scan", "Title", status); },
       failures},
  };
}

// ---- Elements
// -----------------------------------------------------------------------------------------------

int32_t handle_of(const jt_node *node) { return bookmark_to_opaque(node->bookmark); }

using ElementText = char *(*)(jt_parser_space *, int32_t);

// One text of an element that is found in the world.
Scenario element_text(const std::string &name, ElementText call, jt_node *(*find)(World &),
                      const std::string &message) {
  return {name,
          [=](World &w) -> Result { return call(w.space, handle_of(find(w))); },
          {{message}},
          [](World &w) {
            add_odd_attribute(w);
            if (w.invocation()->comment == nullptr) add_comment(w.space, w.invocation(), "# a comment\n");
          }};
}

std::vector<Scenario> element_texts() {
  const auto root = [](World &w) { return w.root(); };
  const auto service = [](World &w) { return w.service("Scan"); };
  const auto invocation = [](World &w) { return w.invocation(); };
  const auto size = [](World &w) { return w.attribute("Size"); };
  const auto number = [](World &w) { return w.attribute("Copies")->first_child; };
  const auto enumerated = [](World &w) { return w.attribute("Size")->first_child; };
  const auto odd = [](World &w) { return w.attribute("Odd"); };
  const auto pending = [](World &w) { return w.attribute("Odd")->first_child; };
  return {
      element_text("HeaderVersion", jt_header_version, root, kNoMemory),
      element_text("HeaderIdentifier", jt_header_identifier, root, kNoMemory),
      element_text("ElementName", jt_element_name, service, kNoMemory),
      element_text("ElementType", jt_element_type, size, kNoMemory),
      element_text("ElementOfUnknownType", jt_element_type, odd, kNoMemory),
      element_text("PendingValueType", jt_element_type, pending, kNoMemory),
      element_text("ElementComment", jt_element_comment, invocation, kNoMemory),
      element_text("ElementStatusText", jt_element_status_text, invocation, kNoMemory),
      element_text("ElementValueText", jt_element_value_text, number, kNoMemory),
      element_text("EnumeratedValueText", jt_element_value_text, enumerated,
                   "MEMORY ERROR: allocation error while encodingISO_A4SEF ..."),
      element_text("PendingValueText", jt_element_value_text, pending,
                   "MEMORY ERROR: allocating for pending valuepending ..."),
  };
}

std::vector<Scenario> element_scenarios() {
  const auto number = [](World &w) { return handle_of(w.attribute("Copies")->first_child); };
  return {
      {"Root", [=](World &w) -> Result { return jt_root(w.space, number(w)); }, {}},
      {"Header", [](World &w) -> Result { return jt_header(w.space, w.job); }, {}},
      {"Section", [](World &w) -> Result { return jt_section(w.space, w.job) + 1; }, {}},
      {"Parent", [=](World &w) -> Result { return jt_parent(w.space, number(w)); }, {}},
      {"FirstChild", [](World &w) -> Result { return jt_first_child(w.space, w.job); }, {}},
      {"NextSibling", [=](World &w) -> Result { return jt_next_sibling(w.space, number(w)); }, {}},
      {"FindChild", [](World &w) -> Result { return jt_find_child(w.space, w.job, "Own"); }, {}},
      {"Kind", [=](World &w) -> Result { return jt_element_kind(w.space, number(w)); }, {}},
      {"Flags",
       [](World &w) -> Result { return jt_element_flags(w.space, handle_of(w.attribute("Copies"))); },
       {}},
      {"Status",
       [](World &w) -> Result { return jt_element_status(w.space, handle_of(w.invocation())); },
       {{kNoMemory}}},
      {"OddStatus",
       [](World &w) -> Result { return jt_element_status(w.space, handle_of(w.attribute("Size"))); },
       {{kNoMemory}}},
  };
}

// ---- Changing elements
// ----------------------------------------------------------------------------------------

const char *const kSavingHeader = "MEMORY ERROR: Saving the header\n ...";

std::vector<Scenario> element_changes() {
  const auto copies = [](World &w) { return handle_of(w.attribute("Copies")); };
  const auto number = [](World &w) { return handle_of(w.attribute("Copies")->first_child); };
  const auto pending = [](World &w) { return handle_of(w.attribute("Odd")->first_child); };
  return {
      {"SetComment",
       [=](World &w) -> Result { return jt_set_element_comment(w.space, copies(w), "# new\n"); },
       {{kNoMemory, "MEMORY ERROR: allocating for the comment:# new\n ..."}},
       [](World &w) {
         if (w.attribute("Copies")->comment == nullptr)
           add_comment(w.space, w.attribute("Copies"), "# old\n");
       }},
      {"SetName",
       [=](World &w) -> Result { return jt_set_element_name(w.space, copies(w), "Copies"); },
       {{"MEMORY ERROR: could not allocate the nameCopies ..."}}},
      {"SetStatus",
       [=](World &w) -> Result { return jt_set_element_status(w.space, copies(w), "KMT_STATUS_ERROR"); },
       {}},
      {"SetOddStatus",
       [=](World &w) -> Result { return jt_set_element_status(w.space, copies(w), "odd2"); },
       {{"WARNING: trying to evaluate as an 'enumerated' type:odd2 ...", kNoMemory,
         "MEMORY ERROR: allocating value :odd2 ..."}}},
      {"SetStatusText",
       [](World &w) -> Result {
         return jt_set_element_status_text(w.space, handle_of(w.invocation()), "new");
       },
       {{kNoMemory}}},
      {"SetStar",
       [=](World &w) -> Result { return jt_set_element_non_compulsory(w.space, copies(w), 0); },
       {}},
      {"SetValue",
       [=](World &w) -> Result { return jt_set_element_value_text(w.space, number(w), "4"); },
       {{kNoMemory}}},
      {"SetPendingValue",
       [=](World &w) -> Result { return jt_set_element_value_text(w.space, pending(w), "new"); },
       {{kNoMemory}},
       [](World &w) { add_odd_attribute(w); }},
      {"AddValue",
       [=](World &w) -> Result { return jt_add_element_value_text(w.space, copies(w), "4") != 0; },
       {no_value_node("4")},
       fill_pages},
      {"Remove",
       [=](World &w) -> Result { return jt_remove_element(w.space, handle_of(w.attribute("Title"))); },
       {}},
  };
}

constexpr char kBare[] = "[ service Own ] { } end";
constexpr char kSectionless[] = "<? SIL 4.2.00 ASCII id > [ service Own ] { } end < /SIL >";

std::vector<Scenario> header_changes() {
  const auto set = [](int32_t form) {
    return [=](World &w) -> Result { return jt_set_header(w.space, w.job, form, "4.2.00", kLong.c_str()); };
  };
  const Messages no_word = {kNoMemory, kSavingHeader};
  // The name of a word with a long text lies in a block of its own, too.
  const auto no_name = [](const char *name) -> Messages {
    return {kNoMemory, std::string("MEMORY ERROR: Allocating for ") + name + " ...", kSavingHeader};
  };
  const Messages no_identifier = no_name("InteractionID");
  const Messages no_node_for_word = {no_node("LanguageVersion")[0], no_node("LanguageVersion")[1],
                                     kSavingHeader};
  return {
      {"SetHeader", set(JT_NODE_HEADER_QUESTION), {no_node("header"), no_identifier, no_word}, fill_pages},
      {"SetHeaderInAFullTable",
       set(JT_NODE_HEADER_QUESTION),
       {kFullTable, no_identifier, no_word},
       fill_table},
      {"GiveHeader",
       set(JT_NODE_HEADER_PLAIN),
       {no_node("header"), no_identifier, no_word},
       fill_pages,
       kBare},
      {"GiveHeaderAndSection",
       set(JT_NODE_HEADER_QUESTION),
       {no_node("header"), no_identifier, no_word},
       fill_pages,
       kBare},
      {"SetHeaderVersion",
       [](World &w) -> Result { return jt_set_header_version(w.space, w.job, kLong.c_str()); },
       {no_node_for_word, no_name("LanguageVersion"), no_word},
       fill_pages},
      {"SetHeaderIdentifier",
       [](World &w) -> Result { return jt_set_header_identifier(w.space, w.job, kLong.c_str()); },
       {no_node_for_word, no_identifier, no_word},
       fill_pages},
      {"RemoveHeader",
       [](World &w) -> Result { return jt_set_header(w.space, w.job, 0, nullptr, nullptr); },
       {}},
      {"AddHeaderAttribute",
       [](World &w) -> Result { return jt_add_header_attribute(w.space, w.job, "string", "Owner") != 0; },
       {no_node("Owner")},
       fill_pages},
      {"AddSection",
       [](World &w) -> Result { return jt_add_section(w.space, w.job) != 0; },
       {no_node("header")},
       fill_pages,
       kSectionless},
  };
}

// ---- Long lists
// ---------------------------------------------------------------------------------------------

// The table that finds a child of a long list is only for speed.
std::vector<Scenario> long_list_scenarios() {
  const auto add_many = [](World &w) {
    for (int i = 0; i < 20 && w.attribute("a19") == nullptr; ++i) {
      const std::string name = "a" + std::to_string(i);
      jt_add_attribute(w.space, w.job, "Scan", "integer", name.c_str());
    }
    jt_core::drop_index(*w.invocation());
  };
  const auto add_many_values = [](World &w) {
    for (int i = 10; w.live() < 60; ++i) {
      jt_add_attribute_value_string(w.space, w.job, "Scan", "Copies", std::to_string(i).c_str());
    }
  };
  const int32_t late = 30;
  return {
      {"FindAmongManyAttributes",
       [](World &w) -> Result { return jt_exists_attribute(w.space, w.job, "Scan", "a19"); },
       {kGoesOn},
       add_many},
      {"FindAmongManyElements",
       [](World &w) -> Result { return jt_find_child(w.space, handle_of(w.invocation()), "a19"); },
       {kGoesOn},
       add_many},
      {"AddToManyAttributes",
       [](World &w) -> Result { return jt_add_attribute(w.space, w.job, "Scan", "integer", "New"); },
       {no_node("New"), kGoesOn},
       [=](World &w) {
         add_many(w);
         fill_pages(w);
       }},
      {"DeleteOneOfManyValues",
       [=](World &w) -> Result {
         return jt_delete_attribute_value(w.space, w.job, "Scan", "Copies", as_value(&late));
       },
       {kGoesOn},
       add_many_values},
  };
}

INSTANTIATE_TEST_SUITE_P(Templates, Call, ::testing::ValuesIn(template_scenarios()), scenario_name);
INSTANTIATE_TEST_SUITE_P(Values, Call, ::testing::ValuesIn(value_scenarios()), scenario_name);
INSTANTIATE_TEST_SUITE_P(Services, Call, ::testing::ValuesIn(service_scenarios()), scenario_name);
INSTANTIATE_TEST_SUITE_P(AddingInvocations, Call, ::testing::ValuesIn(adding_invocations()), scenario_name);
INSTANTIATE_TEST_SUITE_P(Invocations, Call, ::testing::ValuesIn(invocation_scenarios()), scenario_name);
INSTANTIATE_TEST_SUITE_P(Attributes, Call, ::testing::ValuesIn(attribute_query_scenarios()), scenario_name);
INSTANTIATE_TEST_SUITE_P(Reading, Call, ::testing::ValuesIn(reading_scenarios()), scenario_name);
INSTANTIATE_TEST_SUITE_P(Changing, Call, ::testing::ValuesIn(attribute_scenarios()), scenario_name);
INSTANTIATE_TEST_SUITE_P(AddingTexts, Call,
                         ::testing::ValuesIn(text_scenarios("AddText", jt_add_attribute_value_string)),
                         scenario_name);
INSTANTIATE_TEST_SUITE_P(SettingTexts, Call,
                         ::testing::ValuesIn(text_scenarios("SetText", jt_set_attribute_value_string)),
                         scenario_name);
INSTANTIATE_TEST_SUITE_P(AddingValues, Call,
                         ::testing::ValuesIn(value_scenarios("AddValue", jt_add_attribute_value)),
                         scenario_name);
INSTANTIATE_TEST_SUITE_P(SettingValues, Call,
                         ::testing::ValuesIn(value_scenarios("SetValue", jt_set_attribute_value)),
                         scenario_name);
INSTANTIATE_TEST_SUITE_P(Removing, Call, ::testing::ValuesIn(deleting_and_overriding()), scenario_name);
INSTANTIATE_TEST_SUITE_P(Statuses, Call, ::testing::ValuesIn(status_scenarios()), scenario_name);
INSTANTIATE_TEST_SUITE_P(SettingStatusesWithoutNames, Call,
                         ::testing::ValuesIn(setting_statuses_without_names()), scenario_name);
INSTANTIATE_TEST_SUITE_P(ElementTexts, Call, ::testing::ValuesIn(element_texts()), scenario_name);
INSTANTIATE_TEST_SUITE_P(Elements, Call, ::testing::ValuesIn(element_scenarios()), scenario_name);
INSTANTIATE_TEST_SUITE_P(ChangingElements, Call, ::testing::ValuesIn(element_changes()), scenario_name);
INSTANTIATE_TEST_SUITE_P(ChangingHeaders, Call, ::testing::ValuesIn(header_changes()), scenario_name);
INSTANTIATE_TEST_SUITE_P(LongLists, Call, ::testing::ValuesIn(long_list_scenarios()), scenario_name);

}  // namespace
}  // namespace jt_test
