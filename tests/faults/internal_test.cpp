// Every exported call beneath the public ones. They do not reset the status themselves.
#include <gtest/gtest.h>

#include <vector>

#include "faults/scenario.h"

namespace jt_test {
namespace {

class Internal : public ::testing::TestWithParam<Scenario> {};

TEST_P(Internal, FailsAsAWholeOrNotAtAll) { expect_whole_failures(GetParam()); }

const Messages kFullTable = {kNoMemory, kNoSlot, kNoBookmark};
const Messages kNoNameCopy = {"MEMORY ERROR: while allocating for(null) ..."};
const Messages kNoCopy = {kNoMemory, "CALL ERROR: could not copy the value ..."};

Messages no_value_node(const std::string &text) {
  return {kNoMemory, cut_message("MEMORY ERROR: allocating for a value node" + text)};
}

const jt_type *type_named(const char *name) { return get_type_from_services(nullptr, "kmt_svc_scan", name); }

// ---- Session store and memory
// -------------------------------------------------------------------------------

std::vector<Scenario> base_scenarios() {
  return {
      {"MyCalloc", [](World &w) -> Result { return my_calloc(w.space, 2, 8); }, {{kNoMemory}}},
      {"ErFree", [](World &) -> Result { return er_free(nullptr); }, {}},
      {"Error", [](World &w) -> Result { return jt_error(w.space, "WARNING: ", "detail"); }, {}},
      {"ResetErrorStatus",
       [](World &w) -> Result {
         reset_error_status(w.space);
         return 1;
       },
       {}},
      {"ErrorStatus", [](World &w) -> Result { return get_error_status(w.space) + 1; }, {}},
      {"LastError", [](World &w) -> Result { return get_last_error(w.space) == nullptr; }, {}},
      {"PreviousError", [](World &w) -> Result { return get_previous_error(w.space) == nullptr; }, {}},
      {"StringToInteger",
       [](World &) -> Result {
         long number = 0;
         return string_to_integer("12", &number);
       },
       {}},
      {"LowerCaseCompare", [](World &) -> Result { return lowercasecmp("b", "A"); }, {}},
  };
}

// ---- Nodes
// --------------------------------------------------------------------------------------------------

std::vector<Scenario> typed_node_scenarios() {
  const auto make = [](const char *type, const std::string &name) {
    return [=](World &w) -> Result {
      return create_typed_node(w.space, type, name.c_str(), JT_NODE_ATTRIBUTE, w.invocation());
    };
  };
  const Messages no_node = {kNoMemory, "MEMORY ERROR: Allocating for the node:New ..."};
  const std::string unknown = cut_message("WARNING: unknown attribute type:" + kLong);
  return {
      {"TypedNode", make("integer", "New"), {no_node}, fill_pages},
      {"TypedNodeInAFullTable", make("integer", "New"), {kFullTable}, fill_table},
      {"TypedNodeOfALongName",
       make("integer", kLong),
       {{kNoMemory, cut_message("MEMORY ERROR: Allocating for the node:" + kLong)},
        {kNoMemory, cut_message("MEMORY ERROR: Allocating for " + kLong)}},
       fill_pages},
      {"TypedNodeOfALongUnknownType",
       make(kLong.c_str(), "New"),
       {{unknown, kNoMemory, "MEMORY ERROR: Allocating for the node:New ..."},
        {unknown, kNoMemory, "MEMORY ERROR: Allocating for New ..."},
        {unknown, kNoMemory, cut_message("MEMORY ERROR: Allocating for " + kLong)}},
       fill_pages},
  };
}

std::vector<Scenario> value_node_scenarios() {
  const auto from_text = [](const jt_type *type, const std::string &text) {
    return [=](World &w) -> Result { return create_value_node(w.space, type, text.c_str()); };
  };
  const auto from_value = [](const char *type, const void *value) {
    return
        [=](World &w) -> Result { return create_value_ptr_node(w.space, type_named(type), as_value(value)); };
  };
  const Messages no_pending = {kNoMemory, cut_message("MEMORY ERROR: allocating pending value:" + kLong)};
  return {
      {"ValueNode", from_text(type_named("integer"), "4"), {no_value_node("4")}, fill_pages},
      {"ValueNodeInAFullTable", from_text(type_named("integer"), "4"), {kFullTable}, fill_table},
      // The type cuts its text; the report shows all of it.
      {"ReferenceNode", from_text(type_named("ref_invocation"), "a:b"), {no_value_node("a:b")}, fill_pages},
      {"LongValueNode",
       from_text(type_named("string"), kLong),
       {no_value_node(kLong), no_value_node(kLong)},
       fill_pages},
      {"PendingNode", from_text(jt_unknown_type(), "x"), {no_value_node("x")}, fill_pages},
      {"LongPendingNode",
       from_text(jt_unknown_type(), kLong),
       {no_value_node(kLong), no_pending},
       fill_pages},
      {"ValuePtrNode", from_value("integer", &kFour), {kNoCopy}, fill_pages},
      {"ValuePtrNodeInAFullTable", from_value("integer", &kFour), {kFullTable}, fill_table},
      {"LongValuePtrNode", from_value("string", kLong.c_str()), {kNoCopy, no_value_node(kLong)}, fill_pages},
  };
}

// ---- The tree
// -----------------------------------------------------------------------------------------------

// An attribute moves to the next invocation.
std::vector<Scenario> linking_scenarios() {
  using Add = int32_t (*)(jt_parser_space *, jt_node *, jt_node *);
  const auto link = [](Add add) {
    return
        [=](World &w) -> Result { return add(w.space, w.invocation()->next_sibling, w.attribute("Copies")); };
  };
  return {
      {"AddChild", link(add_child), {}},
      {"AddUniqueChild", link(add_unique_child), {}},
      {"AddIndexChild", link(add_index_child), {}},
      {"GetChild", [](World &w) -> Result { return get_child(w.space, w.root(), "Own") != nullptr; }, {}},
      {"DestroyNode", [](World &w) -> Result { return destroy_node(w.space, w.attribute("Size")); }, {}},
      {"DestroyChildren",
       [](World &w) -> Result { return destroy_children(w.space, w.attribute("Size")); },
       {}},
      {"DeleteIndexChild",
       [](World &w) -> Result { return delete_index_child(w.space, w.attribute("Size")); },
       {}},
      {"DestroyAllNodes", [](World &w) -> Result { return destroy_all_nodes(w.space, w.root()); }, {}},
      {"AdvanceIndex", [](World &w) -> Result { return advance_index(w.space, w.root()); }, {}},
      {"ResetIndex", [](World &w) -> Result { return reset_index(w.space, w.root()); }, {}},
      {"BookmarkToOpaque", [](World &) -> Result { return bookmark_to_opaque(0); }, {}},
      {"OpaqueToNode", [](World &w) -> Result { return opaque_to_node(w.space, w.job) != nullptr; }, {}},
  };
}

std::vector<Scenario> comment_scenarios() {
  const auto comment = [](const std::string &text) {
    return [=](World &w) -> Result { return add_comment(w.space, w.service("Own"), text.c_str()); };
  };
  const Messages no_comment = {kNoMemory, "MEMORY ERROR: allocating for the comment:# more\n ..."};
  return {
      {"Comment", comment("# more\n"), {no_comment}},
      {"LongerComment",
       comment("# more\n"),
       {no_comment},
       [](World &w) {
         if (w.service("Own")->comment == nullptr) add_comment(w.space, w.service("Own"), "# one\n");
       }},
  };
}

// ---- Reading at the cursor
// ----------------------------------------------------------------------------------

std::vector<Scenario> reading_scenarios() {
  const jt_type *const integer = type_named("integer");
  const auto rewind = [](World &w) {
    add_odd_attribute(w);
    for (jt_node *const node : {w.root(), w.attribute("Copies"), w.attribute("Odd")})
      reset_index(w.space, node);
  };
  const Messages no_pending = {"MEMORY ERROR: allocating for pending valuepending ..."};
  return {
      {"FirstChildName",
       [](World &w) -> Result { return first_child_name(w.space, w.root()); },
       {kNoNameCopy}},
      {"IndexChildName",
       [](World &w) -> Result { return index_child_name(w.space, w.root()); },
       {kNoNameCopy},
       rewind},
      {"FirstChildValue",
       [=](World &w) -> Result {
         return TypedValue{integer, first_child_value(w.space, w.attribute("Copies"))};
       },
       {{kNoMemory}}},
      {"IndexChildValue",
       [=](World &w) -> Result {
         return TypedValue{integer, index_child_value(w.space, w.attribute("Copies"))};
       },
       {{kNoMemory}},
       rewind},
      {"FirstChildValueString",
       [](World &w) -> Result { return first_child_value_string(w.space, w.attribute("Copies")); },
       {{kNoMemory}}},
      {"IndexChildValueString",
       [](World &w) -> Result { return index_child_value_string(w.space, w.attribute("Copies")); },
       {{kNoMemory}},
       rewind},
      {"FirstPendingValueString",
       [](World &w) -> Result { return first_child_value_string(w.space, w.attribute("Odd")); },
       {no_pending},
       rewind},
      {"IndexPendingValueString",
       [](World &w) -> Result { return index_child_value_string(w.space, w.attribute("Odd")); },
       {no_pending},
       rewind},
  };
}

// ---- Templates and statuses
// ---------------------------------------------------------------------------------

std::vector<Scenario> template_scenarios() {
  return {
      {"EncodeTemplate",
       [](World &w) -> Result { return encode_template(w.space, w.root()); },
       {{"MEMORY ERROR: while allocating for encoding ..."}, {}},
       {},
       "[ service S ] { } end"},
      {"DecodeTemplateString",
       [](World &w) -> Result { return decode_template_string(w.space, "[ service S ] end"); },
       {{kNoMemory, "MEMORY ERROR: Allocating for the node:template ..."}},
       {},
       ""},
  };
}

std::vector<Scenario> status_scenarios() {
  static constexpr uint32_t kAborted = 1;
  static constexpr uint32_t kUnnamed = 1000;
  static constexpr struct {
    uint32_t number = 0xFFFFFFFF;
    char name[4] = "odd";
  } kOdd;
  return {
      {"GetStatus",
       [](World &w) -> Result { return get_status(w.space, "KMT_STATUS_ABORTED"); },
       {{kNoMemory}}},
      {"GetOddStatus",
       [](World &w) -> Result { return get_status(w.space, "odd"); },
       {{"WARNING: trying to evaluate as an 'enumerated' type:odd ...", kNoMemory,
         "MEMORY ERROR: allocating value :odd ..."}}},
      {"CopyStatus",
       [](World &w) -> Result { return copy_status(w.space, as_status(&kAborted)); },
       {{kNoMemory}}},
      {"CopyOddStatus",
       [](World &w) -> Result { return copy_status(w.space, as_status(&kOdd)); },
       {{kNoMemory}}},
      {"StatusString",
       [](World &w) -> Result { return get_status_string(w.space, as_status(&kAborted)); },
       {{"MEMORY ERROR: allocation error while encodingKMT_STATUS_ABORTED ..."}}},
      {"OddStatusString",
       [](World &w) -> Result { return get_status_string(w.space, as_status(&kOdd)); },
       {{"CALL ERROR: Unknown enumerated value ...",
         "MEMORY ERROR: allocation error while encodingodd ..."}}},
      {"KillStatus", [](World &w) -> Result { return kill_status(w.space, nullptr); }, {}},
      {"SetStatus",
       [](World &w) -> Result { return set_status(w.space, w.service("Own"), as_status(&kAborted)); },
       {}},
      {"SetStatusOfANumberWithoutAName",
       [](World &w) -> Result { return set_status(w.space, w.service("Own"), as_status(&kUnnamed)); },
       {{kNoMemory, "MEMORY ERROR: allocating for status. ..."}}},
      {"SetStatusOfAnUnknownName",
       [](World &w) -> Result { return set_status(w.space, w.service("Own"), as_status(&kOdd)); },
       {}},
  };
}

// ---- Types
// --------------------------------------------------------------------------------------------------

std::vector<Scenario> type_scenarios() {
  static constexpr int32_t kGutter[] = {1, 2, 20};
  const auto gutter = [](jt_value *value) { return TypedValue{type_named("struct_gutter"), value}; };
  return {
      {"TypeFromServices", [](World &) -> Result { return type_named("integer") != nullptr; }, {}},
      {"GetType",
       [](World &w) -> Result {
         return jt_get_type(w.space, "integer", JT_NODE_ATTRIBUTE, w.invocation()) != nullptr;
       },
       {}},
      {"EvalGutter",
       [=](World &w) -> Result {
         char text[] = "1/2/MM";
         return gutter(eval_gutter(w.space, text));
       },
       {{kNoMemory}}},
      {"CopyGutter",
       [=](World &w) -> Result { return gutter(copy_gutter(w.space, as_value(kGutter))); },
       {{kNoMemory}}},
      {"DevalGutter",
       [](World &w) -> Result { return deval_gutter(w.space, as_value(kGutter)); },
       {{kNoMemory}}},
      {"CmpGutter", [](World &w) -> Result { return cmp_gutter(w.space, as_value(kGutter), nullptr); }, {}},
      {"KillGutter", [](World &w) -> Result { return kill_gutter(w.space, nullptr); }, {}},
  };
}

INSTANTIATE_TEST_SUITE_P(Base, Internal, ::testing::ValuesIn(base_scenarios()), scenario_name);
INSTANTIATE_TEST_SUITE_P(TypedNodes, Internal, ::testing::ValuesIn(typed_node_scenarios()), scenario_name);
INSTANTIATE_TEST_SUITE_P(ValueNodes, Internal, ::testing::ValuesIn(value_node_scenarios()), scenario_name);
INSTANTIATE_TEST_SUITE_P(Tree, Internal, ::testing::ValuesIn(linking_scenarios()), scenario_name);
INSTANTIATE_TEST_SUITE_P(Comments, Internal, ::testing::ValuesIn(comment_scenarios()), scenario_name);
INSTANTIATE_TEST_SUITE_P(Reading, Internal, ::testing::ValuesIn(reading_scenarios()), scenario_name);
INSTANTIATE_TEST_SUITE_P(Templates, Internal, ::testing::ValuesIn(template_scenarios()), scenario_name);
INSTANTIATE_TEST_SUITE_P(Statuses, Internal, ::testing::ValuesIn(status_scenarios()), scenario_name);
INSTANTIATE_TEST_SUITE_P(Types, Internal, ::testing::ValuesIn(type_scenarios()), scenario_name);

}  // namespace
}  // namespace jt_test
