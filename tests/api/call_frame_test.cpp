// The frame that all calls on a template or an element share, tested as a product: every call with every step
// that it can fail at. Each case checks the result, the status, all messages, and that the template encodes
// as before.
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "support/session.h"

namespace jt_test {
namespace {

// How far a call resolves its arguments before its effect. A call on an element takes any live handle.
enum class Depth { kElement, kTemplate, kService, kInvocation, kAttribute };

// What a call asks of its own arguments before it resolves anything.
enum class Own { kNothing, kName, kValue, kBothValues };

struct Arguments {
  jt_parser_space *space;
  int32_t handle = -100;
  const char *service = "MyScan";
  const char *attribute = "depth";
  const char *text = "5";
  const jt_value *value = nullptr;
  const jt_value *other_value = nullptr;

  // The handle for a call that is not for templates: an element of the template, unless a fault has given another.
  int32_t element(int32_t of_template) const { return handle == -100 ? of_template : handle; }
};

// Before a call that needs a header or has no section: makes that so, and leaves a status behind. A template that a
// fault has given stays as it is.
void give_header(const Arguments &a) {
  if (a.space == nullptr || a.handle != -100) return;
  jt_set_header(a.space, a.handle, JT_NODE_HEADER_QUESTION, "4.2.00", "id");
  jt_encode_template(a.space, 0);
}

void give_no_section(const Arguments &a) {
  if (a.space == nullptr || a.handle != -100) return;
  jt_remove_section(a.space, a.handle);
  jt_encode_template(a.space, 0);
}

struct Call {
  const char *name;
  Depth depth;
  Own own;
  std::function<bool(const Arguments &)> succeeds;
};

bool given(char *text) {
  const OwnedText owned(text);
  return owned != nullptr;
}

bool given(void *block) {
  er_free(block);
  return block != nullptr;
}

jt_status *completed() {
  static int32_t number = 5;
  return reinterpret_cast<jt_status *>(&number);
}

template <typename Function>
Call call(const char *name, Depth depth, Function function, Own own = Own::kNothing) {
  return {name, depth, own, [function](const Arguments &with) { return function(with); }};
}

// clang-format off
const std::vector<Call> &calls() {
  using A = const Arguments &;
  static const std::vector<Call> all = {
      call("jt_root", Depth::kElement, [](A a) { return jt_root(a.space, a.handle) != 0; }),
      call("jt_parent", Depth::kElement, [](A a) { return jt_parent(a.space, a.handle) != 0; }),
      call("jt_first_child", Depth::kElement, [](A a) { return jt_first_child(a.space, a.handle) != 0; }),
      call("jt_next_sibling", Depth::kElement, [](A a) { return jt_next_sibling(a.space, a.handle) != 0; }),
      call("jt_find_child", Depth::kElement, [](A a) { return jt_find_child(a.space, a.handle, a.service) != 0; }),
      call("jt_element_kind", Depth::kElement, [](A a) { return jt_element_kind(a.space, a.handle) >= 0; }),
      call("jt_element_flags", Depth::kElement, [](A a) { return jt_element_flags(a.space, a.handle) >= 0; }),
      call("jt_element_name", Depth::kElement, [](A a) { return given(jt_element_name(a.space, a.handle)); }),
      call("jt_element_type", Depth::kElement, [](A a) { return given(jt_element_type(a.space, a.handle)); }),
      call("jt_element_value_text", Depth::kElement, [](A a) { return given(jt_element_value_text(a.space, a.handle)); }),
      call("jt_element_comment", Depth::kElement, [](A a) { return given(jt_element_comment(a.space, a.handle)); }),
      call("jt_element_status_text", Depth::kElement, [](A a) { return given(jt_element_status_text(a.space, a.handle)); }),
      call("jt_element_status", Depth::kElement, [](A a) { return given(static_cast<void *>(jt_element_status(a.space, a.handle))); }),
      call("jt_header", Depth::kTemplate, [](A a) { return jt_header(a.space, a.handle) != 0; }),
      call("jt_section", Depth::kTemplate, [](A a) { return jt_section(a.space, a.handle) != 0; }),
      call("jt_header_version", Depth::kTemplate, [](A a) { return given(jt_header_version(a.space, a.handle)); }),
      call("jt_header_identifier", Depth::kTemplate, [](A a) { return given(jt_header_identifier(a.space, a.handle)); }),
      call("jt_set_element_comment", Depth::kElement, [](A a) { return jt_set_element_comment(a.space, a.element(-102), nullptr) != 0; }),
      call("jt_set_element_name", Depth::kElement, [](A a) { return jt_set_element_name(a.space, a.element(-103), a.text) != 0; }, Own::kName),
      call("jt_set_element_status", Depth::kElement, [](A a) { return jt_set_element_status(a.space, a.element(-103), "KMT_STATUS_ERROR") != 0; }),
      call("jt_set_element_status_text", Depth::kElement, [](A a) { return jt_set_element_status_text(a.space, a.element(-103), nullptr) != 0; }),
      call("jt_set_element_non_compulsory", Depth::kElement, [](A a) { return jt_set_element_non_compulsory(a.space, a.element(-103), 0) != 0; }),
      call("jt_set_element_value_text", Depth::kElement, [](A a) { return jt_set_element_value_text(a.space, a.element(-104), a.text) != 0; }, Own::kValue),
      call("jt_add_element_value_text", Depth::kElement, [](A a) { return jt_add_element_value_text(a.space, a.element(-103), a.text) != 0; }, Own::kValue),
      call("jt_remove_element", Depth::kElement, [](A a) { return jt_remove_element(a.space, a.element(-103)) != 0; }),
      call("jt_set_header", Depth::kTemplate, [](A a) { return jt_set_header(a.space, a.handle, JT_NODE_HEADER_PLAIN, a.text, "id") != 0; }, Own::kValue),
      call("jt_set_header_version", Depth::kTemplate, [](A a) { give_header(a); return jt_set_header_version(a.space, a.handle, a.text) != 0; }, Own::kValue),
      call("jt_set_header_identifier", Depth::kTemplate, [](A a) { give_header(a); return jt_set_header_identifier(a.space, a.handle, a.text) != 0; }, Own::kValue),
      call("jt_add_header_attribute", Depth::kTemplate, [](A a) { give_header(a); return jt_add_header_attribute(a.space, a.handle, "string", a.text) != 0; }, Own::kName),
      call("jt_add_section", Depth::kTemplate, [](A a) { give_header(a); give_no_section(a); return jt_add_section(a.space, a.handle) != 0; }),
      call("jt_remove_section", Depth::kTemplate, [](A a) { give_header(a); return jt_remove_section(a.space, a.handle) != 0; }),
      call("jt_destroy_template", Depth::kTemplate, [](A a) { return jt_destroy_template(a.space, a.handle) != 0; }),
      call("jt_encode_template", Depth::kTemplate, [](A a) { return given(jt_encode_template(a.space, a.handle)); }),
      call("jt_check_template", Depth::kTemplate, [](A a) { return jt_check_template(a.space, a.handle, nullptr) != 0; }),
      call("jt_add_service", Depth::kTemplate, [](A a) { return jt_add_service(a.space, a.handle, "service", "New") != 0; }),
      call("jt_get_first_service_name", Depth::kTemplate, [](A a) { return given(jt_get_first_service_name(a.space, a.handle)); }),
      call("jt_get_next_service_name", Depth::kTemplate, [](A a) { return given(jt_get_next_service_name(a.space, a.handle)); }),
      call("jt_exists_service", Depth::kTemplate, [](A a) { return jt_exists_service(a.space, a.handle, a.service) != 0; }),
      call("jt_delete_service", Depth::kService, [](A a) { return jt_delete_service(a.space, a.handle, a.service) != 0; }),
      call("jt_get_service_type", Depth::kService, [](A a) { return given(jt_get_service_type(a.space, a.handle, a.service)); }),
      call("jt_get_service_status", Depth::kService, [](A a) { return given(static_cast<void *>(jt_get_service_status(a.space, a.handle, a.service))); }),
      call("jt_set_service_status", Depth::kService, [](A a) { return jt_set_service_status(a.space, a.handle, a.service, completed()) != 0; }),
      call("jt_add_invocation", Depth::kService, [](A a) { return jt_add_invocation(a.space, a.handle, a.service) != 0; }),
      call("jt_delete_invocation", Depth::kService, [](A a) { return jt_delete_invocation(a.space, a.handle, a.service) != 0; }),
      call("jt_first_invocation", Depth::kService, [](A a) { return jt_first_invocation(a.space, a.handle, a.service) != 0; }),
      call("jt_next_invocation", Depth::kService, [](A a) { return jt_next_invocation(a.space, a.handle, a.service) != 0; }),
      call("jt_named_invocation", Depth::kService, [](A a) { return jt_named_invocation(a.space, a.handle, a.service, "1") != 0; }),
      call("jt_get_invocation_name", Depth::kInvocation, [](A a) { return given(jt_get_invocation_name(a.space, a.handle, a.service)); }),
      call("jt_get_invocation_status", Depth::kInvocation, [](A a) { return given(static_cast<void *>(jt_get_invocation_status(a.space, a.handle, a.service))); }),
      call("jt_set_invocation_status", Depth::kInvocation, [](A a) { return jt_set_invocation_status(a.space, a.handle, a.service, completed()) != 0; }),
      call("jt_get_first_attribute_name", Depth::kInvocation, [](A a) { return given(jt_get_first_attribute_name(a.space, a.handle, a.service)); }),
      call("jt_get_next_attribute_name", Depth::kInvocation, [](A a) { return given(jt_get_next_attribute_name(a.space, a.handle, a.service)); }),
      call("jt_add_attribute", Depth::kInvocation, [](A a) { return jt_add_attribute(a.space, a.handle, a.service, "integer", "new") != 0; }),
      call("jt_exists_attribute", Depth::kInvocation, [](A a) { return jt_exists_attribute(a.space, a.handle, a.service, a.attribute) != 0; }),
      call("jt_set_invocation_name", Depth::kInvocation, [](A a) { return jt_set_invocation_name(a.space, a.handle, a.service, a.text) != 0; }, Own::kName),
      call("jt_force_invocation_name", Depth::kInvocation, [](A a) { return jt_force_invocation_name(a.space, a.handle, a.service, a.text) != 0; }, Own::kName),
      call("jt_get_attribute_type_name", Depth::kAttribute, [](A a) { return given(jt_get_attribute_type_name(a.space, a.handle, a.service, a.attribute)); }),
      call("jt_known_attribute_datatype", Depth::kAttribute, [](A a) { return jt_known_attribute_datatype(a.space, a.handle, a.service, a.attribute) != 0; }),
      call("jt_is_attribute_non_compulsory", Depth::kAttribute, [](A a) { return jt_is_attribute_non_compulsory(a.space, a.handle, a.service, a.attribute) != 0; }),
      call("jt_get_first_attribute_value", Depth::kAttribute, [](A a) { return given(static_cast<void *>(jt_get_first_attribute_value(a.space, a.handle, a.service, a.attribute))); }),
      call("jt_get_next_attribute_value", Depth::kAttribute, [](A a) { return given(static_cast<void *>(jt_get_next_attribute_value(a.space, a.handle, a.service, a.attribute))); }),
      call("jt_get_first_attribute_value_string", Depth::kAttribute, [](A a) { return given(jt_get_first_attribute_value_string(a.space, a.handle, a.service, a.attribute)); }),
      call("jt_get_next_attribute_value_string", Depth::kAttribute, [](A a) { return given(jt_get_next_attribute_value_string(a.space, a.handle, a.service, a.attribute)); }),
      call("jt_get_attribute_status", Depth::kAttribute, [](A a) { return given(static_cast<void *>(jt_get_attribute_status(a.space, a.handle, a.service, a.attribute))); }),
      call("jt_set_attribute_status", Depth::kAttribute, [](A a) { return jt_set_attribute_status(a.space, a.handle, a.service, a.attribute, completed()) != 0; }),
      call("jt_delete_attribute", Depth::kAttribute, [](A a) { return jt_delete_attribute(a.space, a.handle, a.service, a.attribute) != 0; }),
      call("jt_set_attribute_compulsory", Depth::kAttribute, [](A a) { return jt_set_attribute_compulsory(a.space, a.handle, a.service, a.attribute) != 0; }),
      call("jt_set_attribute_non_compulsory", Depth::kAttribute, [](A a) { return jt_set_attribute_non_compulsory(a.space, a.handle, a.service, a.attribute) != 0; }),
      call("jt_add_attribute_value", Depth::kAttribute, [](A a) { return jt_add_attribute_value(a.space, a.handle, a.service, a.attribute, a.value) != 0; }, Own::kValue),
      call("jt_set_attribute_value", Depth::kAttribute, [](A a) { return jt_set_attribute_value(a.space, a.handle, a.service, a.attribute, a.value) != 0; }, Own::kValue),
      call("jt_add_attribute_value_string", Depth::kAttribute, [](A a) { return jt_add_attribute_value_string(a.space, a.handle, a.service, a.attribute, a.text) != 0; }, Own::kValue),
      call("jt_set_attribute_value_string", Depth::kAttribute, [](A a) { return jt_set_attribute_value_string(a.space, a.handle, a.service, a.attribute, a.text) != 0; }, Own::kValue),
      call("jt_delete_attribute_value", Depth::kAttribute, [](A a) { return jt_delete_attribute_value(a.space, a.handle, a.service, a.attribute, a.value) != 0; }, Own::kValue),
      call("jt_delete_attribute_value_string", Depth::kAttribute, [](A a) { return jt_delete_attribute_value_string(a.space, a.handle, a.service, a.attribute, a.text) != 0; }, Own::kValue),
      call("jt_override_attribute_value", Depth::kAttribute, [](A a) { return jt_override_attribute_value(a.space, a.handle, a.service, a.attribute, a.value, a.other_value) != 0; }, Own::kBothValues),
  };
  return all;
}
// clang-format on

// One way to fail: from which depth on a call meets it, what it does to the arguments, what is then recorded.
struct Fault {
  const char *name;
  Depth from;
  std::function<void(Arguments &)> inject;
  Messages messages;
};

const char *const kUnknownMarker = "SYSTEM ERROR: unknown opaque marker ...";
const char *const kBadHandle = "CALL ERROR: not a valid handle ...";
const char *const kNotATemplate = "CALL ERROR: not a template ...";

Fault bad_handle(const char *name, int32_t handle) {
  return {name, Depth::kElement, [handle](Arguments &a) { a.handle = handle; }, {kUnknownMarker, kBadHandle}};
}

Fault inner_node(const char *name, int32_t handle) {
  return {name, Depth::kTemplate, [handle](Arguments &a) { a.handle = handle; }, {kNotATemplate}};
}

const std::vector<Fault> &faults() {
  static const std::vector<Fault> all = {
      bad_handle("HandleZero", 0),
      bad_handle("PositiveHandle", 5),
      bad_handle("HandleMinus99", -99),
      bad_handle("HandleNeverGiven", -5000),
      bad_handle("LowestHandle", INT32_MIN),
      {"DestroyedHandle",
       Depth::kElement,
       [](Arguments &a) {
         a.handle = jt_create_template(a.space);
         jt_destroy_template(a.space, a.handle);
       },
       {kUnknownMarker, kBadHandle}},
      inner_node("HandleOfService", -101),
      inner_node("HandleOfInvocation", -102),
      inner_node("HandleOfAttribute", -103),
      inner_node("HandleOfValue", -104),
      {"MissingService",
       Depth::kService,
       [](Arguments &a) { a.service = "NoSuch"; },
       {"CALL ERROR: does not exist:NoSuch ..."}},
      {"NullService",
       Depth::kService,
       [](Arguments &a) { a.service = nullptr; },
       {"CALL ERROR: does not exist:(null) ..."}},
      {"ExhaustedCursor",
       Depth::kInvocation,
       [](Arguments &a) { jt_next_invocation(a.space, a.handle, a.service); },
       {"CALL ERROR: no current invocation ..."}},
      {"MissingAttribute",
       Depth::kAttribute,
       [](Arguments &a) { a.attribute = "nosuch"; },
       {"CALL ERROR: does not exist:nosuch ..."}},
      {"NullAttribute",
       Depth::kAttribute,
       [](Arguments &a) { a.attribute = nullptr; },
       {"CALL ERROR: does not exist:(null) ..."}},
  };
  return all;
}

constexpr char kTemplate[] = "[ kmt_svc_scan MyScan ] { * integer depth = 5; } end";
constexpr char kEncoded[] =
    "[kmt_svc_scan MyScan]\n"
    " {\n"
    "    * integer depth = 5;\n"
    " }\n"
    "end\n\n";

struct Case {
  const Call *call;
  const Fault *fault;
};

std::vector<Case> product() {
  std::vector<Case> cases;
  for (const Call &call : calls()) {
    for (const Fault &fault : faults()) {
      if (fault.from <= call.depth) cases.push_back({&call, &fault});
    }
  }
  return cases;
}

class FrameTest : public SessionTest {
 protected:
  FrameTest() { prepare(); }
  ~FrameTest() override { jt_destroy_value(space, "integer", value, ""); }

  // A session without history and with a fresh template.
  void renew() {
    jt_destroy_value(space, "integer", value, "");
    reopen();
    prepare();
  }

  jt_value *value;
  Arguments arguments;

 private:
  void prepare() {
    jt_decode_template(space, kTemplate);
    value = jt_decode_value(space, "integer", "5", "");
    arguments = {space};
    arguments.value = arguments.other_value = value;
  }
};

class EveryCallAndFault : public FrameTest, public ::testing::WithParamInterface<Case> {};

TEST_P(EveryCallAndFault, FailsAtThatStepAndChangesNothing) {
  GetParam().fault->inject(arguments);
  EXPECT_FALSE(GetParam().call->succeeds(arguments));
  EXPECT_EQ(status(), -4);
  EXPECT_EQ(messages(), GetParam().fault->messages);
  EXPECT_EQ(encoded(-100), kEncoded);
}

INSTANTIATE_TEST_SUITE_P(Product, EveryCallAndFault, ::testing::ValuesIn(product()), [](const auto &tested) {
  return std::string(tested.param.call->name) + "_" + tested.param.fault->name;
});

class EveryCall : public FrameTest, public ::testing::WithParamInterface<Call> {};

TEST_P(EveryCall, WithoutAParserHandleFailsAndTouchesNoSession) {
  arguments.space = nullptr;
  EXPECT_FALSE(GetParam().succeeds(arguments));
  EXPECT_EQ(status(), 0);
  EXPECT_EQ(messages(), Messages{});
  EXPECT_EQ(encoded(-100), kEncoded);
}

TEST_P(EveryCall, ClearsTheStatusOfTheCallBefore) {
  jt_encode_template(space, 0);
  ASSERT_EQ(status(), -4);
  GetParam().succeeds(arguments);
  EXPECT_EQ(status(), 0);
}

INSTANTIATE_TEST_SUITE_P(Frame, EveryCall, ::testing::ValuesIn(calls()),
                         [](const auto &tested) { return std::string(tested.param.name); });

std::vector<Call> calls_that_need(std::vector<Own> wanted) {
  std::vector<Call> found;
  for (const Call &call : calls()) {
    if (std::find(wanted.begin(), wanted.end(), call.own) != wanted.end()) found.push_back(call);
  }
  return found;
}

std::string call_name(const ::testing::TestParamInfo<Call> &tested) { return tested.param.name; }

class EveryNamingCall : public FrameTest, public ::testing::WithParamInterface<Call> {};

TEST_P(EveryNamingCall, AsksForTheNameBeforeTheHandle) {
  arguments.handle = 0;
  for (const char *const name : {static_cast<const char *>(nullptr), ""}) {
    arguments.text = name;
    EXPECT_FALSE(GetParam().succeeds(arguments));
    EXPECT_EQ(status(), -4);
  }
  EXPECT_EQ(messages(), (Messages{"CALL ERROR: no name to set ...", "CALL ERROR: no name to set ..."}));
}

INSTANTIATE_TEST_SUITE_P(Frame, EveryNamingCall, ::testing::ValuesIn(calls_that_need({Own::kName})),
                         call_name);

class EveryValueCall : public FrameTest, public ::testing::WithParamInterface<Call> {};

TEST_P(EveryValueCall, AsksForTheValueBeforeTheHandle) {
  arguments.handle = 0;
  arguments.value = nullptr;
  arguments.text = nullptr;
  EXPECT_FALSE(GetParam().succeeds(arguments));
  EXPECT_EQ(status(), -4);
  EXPECT_EQ(messages(), Messages{"CALL ERROR: value is a NULL pointer ..."});
  EXPECT_EQ(encoded(-100), kEncoded);
}

INSTANTIATE_TEST_SUITE_P(Frame, EveryValueCall,
                         ::testing::ValuesIn(calls_that_need({Own::kValue, Own::kBothValues})), call_name);

TEST_F(FrameTest, AnOverrideAsksForTheNewValueToo) {
  EXPECT_EQ(jt_override_attribute_value(space, 0, "MyScan", "depth", value, nullptr), 0);
  EXPECT_EQ(messages(), Messages{"CALL ERROR: value is a NULL pointer ..."});
}

TEST_F(FrameTest, ServicesAndAttributesAreFoundInAnyLetterCase) {
  EXPECT_EQ(take_text(jt_get_first_attribute_value_string(space, -100, "MYSCAN", "DEPTH")), "5");
  EXPECT_EQ(status(), 0);
}

TEST_F(FrameTest, AFreshServiceStandsOnItsFirstInvocation) {
  EXPECT_EQ(jt_exists_attribute(space, -100, "MyScan", "depth"), 1);
}

TEST_F(FrameTest, AServiceWithoutInvocationsHasNoCurrentOne) {
  jt_add_service(space, -100, "service", "Empty");
  EXPECT_EQ(jt_exists_attribute(space, -100, "Empty", "depth"), 0);
  EXPECT_EQ(messages(), Messages{"CALL ERROR: no current invocation ..."});
}

// ---- Several faults at once -------------------------------------------------------------------------------

// The later one is made first: making it needs a template that is still right.
TEST_P(EveryCall, ReportsTheEarlierOfTwoFaultsAlone) {
  for (const Fault &earlier : faults()) {
    for (const Fault &later : faults()) {
      if (earlier.from >= later.from || later.from > GetParam().depth) continue;
      renew();
      later.inject(arguments);
      earlier.inject(arguments);
      EXPECT_FALSE(GetParam().succeeds(arguments)) << earlier.name << " and " << later.name;
      EXPECT_EQ(messages(), earlier.messages) << earlier.name << " and " << later.name;
      EXPECT_EQ(encoded(-100), kEncoded);
    }
  }
}

TEST_P(EveryCall, WithoutAParserHandleLooksAtNothingElse) {
  for (const Fault &fault : faults()) {
    renew();
    fault.inject(arguments);
    arguments.space = nullptr;
    arguments.value = arguments.other_value = nullptr;
    arguments.text = nullptr;
    EXPECT_FALSE(GetParam().succeeds(arguments)) << fault.name;
    EXPECT_EQ(messages(), Messages{});
    EXPECT_EQ(encoded(-100), kEncoded);
  }
}

TEST_P(EveryValueCall, AsksForTheValueBeforeAnyOtherStep) {
  arguments.value = nullptr;
  arguments.text = nullptr;
  for (const Fault &fault : faults()) {
    Arguments faulty = arguments;
    fault.inject(faulty);
    EXPECT_FALSE(GetParam().succeeds(faulty));
    EXPECT_EQ(messages().back(), "CALL ERROR: value is a NULL pointer ...") << fault.name;
  }
}

TEST_P(EveryNamingCall, AsksForTheNameBeforeAnyOtherStep) {
  arguments.text = "";
  for (const Fault &fault : faults()) {
    Arguments faulty = arguments;
    fault.inject(faulty);
    EXPECT_FALSE(GetParam().succeeds(faulty));
    EXPECT_EQ(messages().back(), "CALL ERROR: no name to set ...") << fault.name;
  }
}

// ---- From inside a listener -------------------------------------------------------------------------------

constexpr char kFromListener[] = "CALL ERROR: made from inside a listener ...";

// What is done while a listener of the session is told of a token.
using Deed = std::function<void()>;

void do_inside_a_listener(jt_parser_space *space, Deed deed) {
  jt_listener listener{};
  listener.size = sizeof(listener);
  listener.context = &deed;
  listener.token = [](void *context, const jt_source_token *) {
    auto &todo = *static_cast<Deed *>(context);
    if (todo != nullptr) std::exchange(todo, nullptr)();
    return int32_t{0};
  };
  EXPECT_EQ(jt_check_source(space, "[ service S ] end", 17, nullptr, &listener), 1);
  EXPECT_EQ(deed, nullptr) << "nothing was told";
}

TEST_P(EveryCall, FromInsideAListenerIsRefused) {
  do_inside_a_listener(space, [this] {
    EXPECT_FALSE(GetParam().succeeds(arguments));
    EXPECT_EQ(status(), -4);
  });
  ASSERT_FALSE(messages().empty());
  for (const std::string &message : messages()) EXPECT_EQ(message, kFromListener);
  EXPECT_EQ(encoded(-100), kEncoded);
}

TEST_P(EveryCall, FromInsideAListenerLooksAtNothingElse) {
  for (const Fault &fault : faults()) {
    renew();
    fault.inject(arguments);
    arguments.text = nullptr;
    arguments.value = nullptr;
    do_inside_a_listener(space, [&] { EXPECT_FALSE(GetParam().succeeds(arguments)) << fault.name; });
    EXPECT_EQ(messages().back(), kFromListener) << fault.name;
    EXPECT_EQ(encoded(-100), kEncoded);
  }
}

TEST_P(EveryCall, IsTakenAgainWhenTheListenerHasBeenTold) {
  do_inside_a_listener(space, [] {});
  GetParam().succeeds(arguments);
  EXPECT_EQ(status(), 0);
}

TEST_F(FrameTest, CallsWithoutAHandleAreRefusedFromInsideAListener) {
  const std::vector<std::function<bool()>> others = {
      [this] { return jt_create_template(space) != 0; },
      [this] { return jt_decode_template(space, kTemplate) != 0; },
      [this] { return jt_decode_source(space, kTemplate, sizeof(kTemplate) - 1, nullptr, nullptr) != 0; },
      [this] { return jt_check_source(space, kTemplate, sizeof(kTemplate) - 1, nullptr, nullptr) != 0; },
      [this] { return jt_get_version(space) != nullptr; },
      [this] { return jt_get_copyright(space) != nullptr; },
      [this] { return jt_get_supported_language_version(space) != nullptr; },
      [this] { return jt_get_recent_error(space) != nullptr; },
      [this] { return jt_get_previous_error(space) != nullptr; },
      [this] { return jt_destroy_value_string(space, nullptr) != 0; },
      [this] { return jt_destroy_name(space, nullptr) != 0; },
      [this] { return jt_destroy_status(space, nullptr) != 0; },
      [this] { return jt_copy_value(space, "integer", value, "") != nullptr; },
      [this] { return jt_encode_value(space, "integer", value, "") != nullptr; },
      [this] { return jt_decode_value(space, "integer", "5", "") != nullptr; },
      [this] { return jt_destroy_value(space, "integer", value, "") != 0; }};
  for (std::size_t i = 0; i < others.size(); ++i) {
    renew();
    do_inside_a_listener(space, [&] { EXPECT_FALSE(others[i]()) << i; });
    EXPECT_EQ(messages(), Messages{kFromListener}) << i;
    EXPECT_EQ(encoded(-100), kEncoded) << i;
  }
}

// ---- Handles around a header ------------------------------------------------------------------------------

// Slots: the root, the header, its three attributes, an attribute of the author's, its value, the section.
constexpr char kWithSection[] =
    "<? SIL 4.2.00 ASCII job-1 > string Owner = me; < ? > [ service Inside ] end < /? > < /SIL >";

std::vector<Call> calls_on_templates() {
  std::vector<Call> found;
  for (const Call &call : calls()) {
    if (call.depth >= Depth::kTemplate) found.push_back(call);
  }
  return found;
}

class EveryCallAroundAHeader : public SessionTest, public ::testing::WithParamInterface<Call> {};

TEST_P(EveryCallAroundAHeader, RefusesWhatIsNoTemplate) {
  const int32_t root = jt_decode_template(space, kWithSection);
  ASSERT_EQ(root, -100);
  const std::string before = encoded(root);
  const int32_t five = 5;
  Arguments arguments{space};
  arguments.value = arguments.other_value = reinterpret_cast<const jt_value *>(&five);
  for (int32_t handle = -101; handle >= -106; --handle) {
    arguments.handle = handle;
    EXPECT_FALSE(GetParam().succeeds(arguments)) << handle;
    EXPECT_EQ(messages().back(), "CALL ERROR: not a template ...");
  }
  EXPECT_EQ(encoded(root), before);
}

INSTANTIATE_TEST_SUITE_P(Frame, EveryCallAroundAHeader, ::testing::ValuesIn(calls_on_templates()), call_name);

class FrameOfASection : public SessionTest {};

TEST_F(FrameOfASection, ItsServicesAreReachedByItsOwnHandleOnly) {
  const int32_t root = jt_decode_template(space, kWithSection);
  EXPECT_EQ(jt_exists_service(space, root, "Inside"), 0);
  EXPECT_EQ(jt_exists_service(space, -107, "Inside"), 1);
  EXPECT_EQ(status(), 0);
}

// ---- Long names -------------------------------------------------------------------------------------------

TEST_F(FrameTest, ALongNameIsCutInItsReport) {
  const std::string name(1000, 'n');
  EXPECT_EQ(jt_delete_service(space, -100, name.c_str()), 0);
  EXPECT_EQ(messages(), Messages{"CALL ERROR: does not exist:" + std::string(224, 'n') + " ..."});
}

}  // namespace
}  // namespace jt_test
