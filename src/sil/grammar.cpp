// The tables: for each machine the rule, then its states with what they expect and whose comments are, then
// its rows.
#include "sil/grammar.h"

#include <algorithm>

#include "sil/actions.h"
#include "sil/decoder.h"

namespace jt_core {
namespace {

constexpr TokenSet kOpenBracket = one_of(TokenKind::kOpenBracket);
constexpr TokenSet kCloseBracket = one_of(TokenKind::kCloseBracket);
constexpr TokenSet kOpenBrace = one_of(TokenKind::kOpenBrace);
constexpr TokenSet kCloseBrace = one_of(TokenKind::kCloseBrace);
constexpr TokenSet kOpenParenthesis = one_of(TokenKind::kOpenParenthesis);
constexpr TokenSet kCloseParenthesis = one_of(TokenKind::kCloseParenthesis);
constexpr TokenSet kLess = one_of(TokenKind::kLess);
constexpr TokenSet kGreater = one_of(TokenKind::kGreater);
constexpr TokenSet kQuestion = one_of(TokenKind::kQuestion);
constexpr TokenSet kExclamation = one_of(TokenKind::kExclamation);
constexpr TokenSet kEquals = one_of(TokenKind::kEquals);
constexpr TokenSet kComma = one_of(TokenKind::kComma);
constexpr TokenSet kSemicolon = one_of(TokenKind::kSemicolon);
constexpr TokenSet kStar = one_of(TokenKind::kAsterisk);
constexpr TokenSet kWord = one_of(TokenKind::kWord);
constexpr TokenSet kEnd = one_of(TokenKind::kEnd);

// ---- The header -------------------------------------------------------------------------------------------
// header = [ "<" [ "?" | "!" ] "SIL" version encoding identifier ">" ]

constexpr std::array kHeaderStates = {
    StateFacts{State::kHeaderBegin, " < ", CommentOf::kTop, Repair::kText},
    StateFacts{State::kHeaderForm, " ! ? SIL ", CommentOf::kTop, Repair::kFrame},
    StateFacts{State::kHeaderWord, " SIL ", CommentOf::kTop, Repair::kFrame},
    StateFacts{State::kHeaderVersion, " version ", CommentOf::kTop, Repair::kFrame},
    StateFacts{State::kHeaderEncoding, "", CommentOf::kTop, Repair::kFrame},
    StateFacts{State::kHeaderIdentifier, " ID ", CommentOf::kTop, Repair::kFrame},
    StateFacts{State::kHeaderEnd, " > ", CommentOf::kTop, Repair::kFrame},
    StateFacts{State::kHeaderSaved, "", CommentOf::kTop, Repair::kFrame},
};

constexpr std::array kHeaderRows = {
    Row{State::kHeaderBegin, kOpenBracket, action::no_header, State::kFinished, Role::kNextStage},
    Row{State::kHeaderBegin, kLess, nullptr, State::kHeaderForm, Role::kPunctuation, Opens::kHeader},
    Row{State::kHeaderForm, kExclamation, action::set_exclaim_form, State::kHeaderWord, Role::kMarker},
    Row{State::kHeaderForm, kQuestion, action::set_question_form, State::kHeaderWord, Role::kMarker},
    Row{State::kHeaderForm, kWord, action::accept_plain_form, State::kHeaderVersion, Role::kMarker},
    Row{State::kHeaderWord, kWord, action::accept_language, State::kHeaderVersion, Role::kMarker},
    Row{State::kHeaderVersion, kWord, action::keep_version, State::kHeaderEncoding, Role::kVersion},
    Row{State::kHeaderEncoding, kAnyToken, action::check_encoding, State::kHeaderIdentifier, Role::kEncoding},
    Row{State::kHeaderIdentifier, kWord, action::keep_word, State::kHeaderEnd, Role::kIdentifier},
    Row{State::kHeaderEnd, kGreater, nullptr, State::kHeaderSaved, Role::kPunctuation},
    Row{State::kHeaderSaved, kOpenBracket | kLess | kWord | kStar, action::save_header, State::kFinished,
        Role::kNextStage},
};

// ---- The section ------------------------------------------------------------------------------------------
// section = [ "<" mark ">" services "<" "/" mark ">" ], where the mark is the header's

constexpr std::array kSectionOpeningStates = {
    StateFacts{State::kSectionBegin, " < ", CommentOf::kTop, Repair::kText},
    StateFacts{State::kSectionForm, "", CommentOf::kTop, Repair::kFrame},
    StateFacts{State::kSectionOpened, " > ", CommentOf::kTop, Repair::kFrame},
    StateFacts{State::kSectionContent, " [ < ", CommentOf::kTop, Repair::kServices},
};

constexpr std::array kSectionOpeningRows = {
    Row{State::kSectionBegin, kOpenBracket, action::no_section, State::kFinished, Role::kNextStage},
    Row{State::kSectionBegin, kLess, nullptr, State::kSectionForm, Role::kHeld},
    Row{State::kSectionForm, kQuestion, action::accept_question_form, State::kSectionOpened, Role::kMarker,
        Opens::kSection},
    Row{State::kSectionForm, kExclamation, action::accept_exclaim_form, State::kSectionOpened, Role::kMarker,
        Opens::kSection},
    Row{State::kSectionForm, kAnyText, action::end_marker_instead, State::kFinished, Role::kNextStage},
    Row{State::kSectionOpened, kGreater, nullptr, State::kSectionContent, Role::kPunctuation},
    Row{State::kSectionContent, kOpenBracket | kLess, action::give_back, State::kFinished, Role::kNextStage},
};

constexpr std::array kSectionClosingStates = {
    StateFacts{State::kSectionFilled, "  < ", CommentOf::kTop, Repair::kFrame},
    StateFacts{State::kSectionSlash, " / ", CommentOf::kTop, Repair::kFrame},
    StateFacts{State::kSectionClosingForm, "", CommentOf::kTop, Repair::kFrame},
    StateFacts{State::kSectionClosed, " > ", CommentOf::kTop, Repair::kFrame},
};

constexpr std::array kSectionClosingRows = {
    Row{State::kSectionFilled, kLess, nullptr, State::kSectionSlash, Role::kPunctuation},
    Row{State::kSectionSlash, kAnyText, action::accept_slash, State::kSectionClosingForm, Role::kMarker},
    Row{State::kSectionClosingForm, kQuestion, action::accept_question_form, State::kSectionClosed,
        Role::kMarker},
    Row{State::kSectionClosingForm, kExclamation, action::accept_exclaim_form, State::kSectionClosed,
        Role::kMarker},
    Row{State::kSectionClosed, kGreater, nullptr, State::kFinished, Role::kPunctuation, Opens::kNothing, 1},
};

// ---- Statuses ---------------------------------------------------------------------------------------------
// status = "(" [ name [ "{" text "}" ] ] ")", behind a service, an invocation or an attribute

struct StatusStates {
  State opened;
  State read;
  State text;
  State text_read;
};

// What differs is which tokens a text takes, how it is stored, and where the status leads.
consteval std::array<Row, 7> status_rows(StatusStates in, TokenSet text, Action store, State behind) {
  return {{
      {in.opened, kCloseParenthesis, action::close_block, behind, Role::kPunctuation, Opens::kNothing, 2},
      {in.opened, kStatusName, action::store_status, in.read, Role::kStatus},
      {in.read, kCloseParenthesis, action::close_block, behind, Role::kPunctuation, Opens::kNothing, 2},
      {in.read, kOpenBrace, action::begin_status_text, in.text, Role::kPunctuation},
      {in.text, text, action::keep_status_text, in.text, Role::kStatusText},
      {in.text, kCloseBrace, store, in.text_read, Role::kPunctuation},
      {in.text_read, kCloseParenthesis, action::close_block, behind, Role::kPunctuation, Opens::kNothing, 2},
  }};
}

constexpr auto kServiceStatusRows = status_rows(
    {State::kServiceStatus, State::kServiceStatusRead, State::kServiceText, State::kServiceTextRead},
    kBlockStatusText, action::store_service_text, State::kBetweenServices);

constexpr auto kInvocationStatusRows =
    status_rows({State::kInvocationStatus, State::kInvocationStatusRead, State::kInvocationText,
                 State::kInvocationTextRead},
                kBlockStatusText, action::store_status_text, State::kInService);

constexpr auto kAttributeStatusRows = status_rows(
    {State::kAttributeStatus, State::kAttributeStatusRead, State::kAttributeText, State::kAttributeTextRead},
    kAttributeStatusText, action::store_status_text, State::kInInvocation);

// ---- The body ---------------------------------------------------------------------------------------------
// services = { service }
// service = "[" type name "]" { invocation } "end" [ status ]
// invocation = [ name ] "{" { attribute } "}" [ status ]

constexpr std::array kBodyStates = {
    StateFacts{State::kBetweenServices, "[ or <", CommentOf::kTop, Repair::kServices},
    StateFacts{State::kServiceType, " TYPE ", CommentOf::kTop, Repair::kServiceHead},
    StateFacts{State::kServiceName, " SERVICE NAME ", CommentOf::kTop, Repair::kServiceHead},
    StateFacts{State::kServiceNamed, "]", CommentOf::kTop, Repair::kServiceHead},
    StateFacts{State::kInService, "{ or end or a NAME", CommentOf::kTop, Repair::kService},
    StateFacts{State::kInvocationNamed, " { ", CommentOf::kTop, Repair::kService},
    StateFacts{State::kAfterService, "[ or EOF or ( or < ", CommentOf::kParentOfTop, Repair::kServices},
    StateFacts{State::kServiceStatus, "STATUS or )", CommentOf::kParentOfTop, Repair::kStatus},
    StateFacts{State::kServiceStatusRead, "{ or )", CommentOf::kParentOfTop, Repair::kStatus},
    StateFacts{State::kServiceText, "} or STRING", CommentOf::kParentOfTop, Repair::kStatus},
    StateFacts{State::kServiceTextRead, " ) ", CommentOf::kParentOfTop, Repair::kStatus},
    StateFacts{State::kInInvocation, " * or TYPE or }", CommentOf::kTop, Repair::kType},
    StateFacts{State::kAfterInvocation, "{ or END or (", CommentOf::kParentOfTop, Repair::kService},
    StateFacts{State::kInvocationStatus, ") or STATUS", CommentOf::kParentOfTop, Repair::kStatus},
    StateFacts{State::kInvocationStatusRead, ") or {", CommentOf::kParentOfTop, Repair::kStatus},
    StateFacts{State::kInvocationText, "{ or STRING", CommentOf::kParentOfTop, Repair::kStatus},
    StateFacts{State::kInvocationTextRead, ")", CommentOf::kParentOfTop, Repair::kStatus},
};

constexpr std::array kServiceRows = {
    Row{State::kBetweenServices, kOpenBracket, nullptr, State::kServiceType, Role::kPunctuation,
        Opens::kService},
    Row{State::kBetweenServices, kLess, action::end_services, State::kFinished, Role::kNextStage},
    Row{State::kServiceType, kWord, action::keep_service_type, State::kServiceName, Role::kServiceType},
    Row{State::kServiceName, kWord, action::keep_word, State::kServiceNamed, Role::kServiceName},
    Row{State::kServiceNamed, kCloseBracket, action::open_service, State::kInService, Role::kPunctuation},
    Row{State::kInService, kEnd, nullptr, State::kAfterService, Role::kPunctuation},
    Row{State::kInService, kOpenBrace, action::open_unnamed_invocation, State::kInInvocation,
        Role::kPunctuation, Opens::kInvocation},
    Row{State::kInService, kWord, action::keep_name, State::kInvocationNamed, Role::kInvocationName,
        Opens::kInvocation},
    Row{State::kInvocationNamed, kOpenBrace, action::open_named_invocation, State::kInInvocation,
        Role::kPunctuation},
    Row{State::kAfterService, kOpenBracket, action::close_block, State::kServiceType, Role::kPunctuation,
        Opens::kService},
    Row{State::kAfterService, kOpenParenthesis, nullptr, State::kServiceStatus, Role::kPunctuation,
        Opens::kStatus},
    Row{State::kAfterService, kLess, action::close_service_and_end, State::kFinished, Role::kNextStage},
    Row{State::kAfterInvocation, kOpenBrace, action::next_unnamed_invocation, State::kInInvocation,
        Role::kPunctuation, Opens::kInvocation},
    Row{State::kAfterInvocation, kEnd, action::close_block, State::kAfterService, Role::kPunctuation},
    Row{State::kAfterInvocation, kOpenParenthesis, nullptr, State::kInvocationStatus, Role::kPunctuation,
        Opens::kStatus},
    Row{State::kAfterInvocation, kWord, action::next_named_invocation, State::kInvocationNamed,
        Role::kInvocationName, Opens::kInvocation},
    Row{State::kInInvocation, kCloseBrace, nullptr, State::kAfterInvocation, Role::kPunctuation},
    Row{State::kAfterAttribute, kCloseBrace, action::close_block, State::kAfterInvocation,
        Role::kPunctuation},
};

// ---- Attributes, of an invocation or of the header --------------------------------------------------------
// attribute = [ "*" ] type name [ "=" [ value { "," value } ] ] ";" [ status ]

constexpr std::array kAttributeStates = {
    StateFacts{State::kStarredType, "TYPE", CommentOf::kTop, Repair::kType},
    StateFacts{State::kAttributeName, "NAME", CommentOf::kTop, Repair::kName},
    StateFacts{State::kAttributeNamed, "= ;", CommentOf::kTop, Repair::kStatement},
    StateFacts{State::kFirstValue, "; or VALUE", CommentOf::kTop, Repair::kStatement},
    StateFacts{State::kAfterValue, ", or ; ", CommentOf::kTop, Repair::kStatement},
    StateFacts{State::kNextValue, " VALUE ", CommentOf::kTop, Repair::kStatement},
    StateFacts{State::kAfterAttribute, "} or ( or TYPE or * ", CommentOf::kParentOfTop, Repair::kType},
    StateFacts{State::kAttributeStatus, "STATUS or )", CommentOf::kParentOfTop, Repair::kStatus},
    StateFacts{State::kAttributeStatusRead, ") or {", CommentOf::kParentOfTop, Repair::kStatus},
    StateFacts{State::kAttributeText, "", CommentOf::kParentOfTop, Repair::kStatus},
    StateFacts{State::kAttributeTextRead, " ) ", CommentOf::kParentOfTop, Repair::kStatus},
};

constexpr std::array kAttributeRows = {
    Row{State::kInInvocation, kStar, action::set_star, State::kStarredType, Role::kStar, Opens::kAttribute},
    Row{State::kInInvocation, kWord, action::keep_attribute_type, State::kAttributeName, Role::kAttributeType,
        Opens::kAttribute},
    Row{State::kStarredType, kWord, action::keep_starred_type, State::kAttributeName, Role::kAttributeType},
    Row{State::kAttributeName, kWord, action::open_attribute, State::kAttributeNamed, Role::kAttributeName},
    Row{State::kAttributeNamed, kEquals, nullptr, State::kFirstValue, Role::kPunctuation},
    Row{State::kAttributeNamed, kSemicolon, nullptr, State::kAfterAttribute, Role::kPunctuation},
    Row{State::kFirstValue, kSemicolon, nullptr, State::kAfterAttribute, Role::kPunctuation},
    Row{State::kFirstValue, kWordOrString, action::add_value, State::kAfterValue, Role::kValue, Opens::kValue,
        1},
    Row{State::kAfterValue, kComma, nullptr, State::kNextValue, Role::kPunctuation},
    Row{State::kAfterValue, kSemicolon, nullptr, State::kAfterAttribute, Role::kPunctuation},
    Row{State::kNextValue, kWordOrString, action::add_value, State::kAfterValue, Role::kValue, Opens::kValue,
        1},
    Row{State::kAfterAttribute, kOpenParenthesis, nullptr, State::kAttributeStatus, Role::kPunctuation,
        Opens::kStatus},
    Row{State::kAfterAttribute, kWord, action::close_attribute_and_keep_type, State::kAttributeName,
        Role::kAttributeType, Opens::kAttribute},
    Row{State::kAfterAttribute, kStar, action::close_attribute_and_set_star, State::kStarredType, Role::kStar,
        Opens::kAttribute},
};

// Attributes of the header end where the next stage begins.
constexpr std::array kHeaderAttributeRows = {
    Row{State::kInInvocation, kOpenBracket | kLess, action::give_back, State::kFinished, Role::kNextStage,
        Opens::kNothing, 1},
    Row{State::kAfterAttribute, kOpenBracket | kLess, action::give_back, State::kFinished, Role::kNextStage,
        Opens::kNothing, 1},
};

// ---- The end marker ---------------------------------------------------------------------------------------
// end marker = "<" "/SIL" ">"

constexpr std::array kMarkerStates = {
    StateFacts{State::kMarkerBegin, " < ", CommentOf::kTop, Repair::kMarker},
    StateFacts{State::kMarkerWord, " /SIL ", CommentOf::kTop, Repair::kMarker},
    StateFacts{State::kMarkerEnd, " > ", CommentOf::kTop, Repair::kMarker},
    StateFacts{State::kMarkerRead, " EOF ", CommentOf::kTop, Repair::kMarker},
};

constexpr std::array kMarkerRows = {
    Row{State::kMarkerBegin, kLess, nullptr, State::kMarkerWord, Role::kPunctuation},
    Row{State::kMarkerWord, kAnyText, action::accept_end_marker, State::kMarkerEnd, Role::kMarker},
    Row{State::kMarkerEnd, kGreater, nullptr, State::kMarkerRead, Role::kPunctuation},
};

// ---- All of it --------------------------------------------------------------------------------------------

template <std::size_t... Counts>
consteval auto by_number(const std::array<StateFacts, Counts> &...parts) {
  std::array<StateFacts, (Counts + ...)> states{};
  const auto place = [&states](const auto &part) {
    for (const StateFacts &facts : part) states[static_cast<std::size_t>(facts.state)] = facts;
  };
  (place(parts), ...);
  return states;
}

constexpr auto kStates = by_number(kHeaderStates, kSectionOpeningStates, kSectionClosingStates, kBodyStates,
                                   kAttributeStates, kMarkerStates);
static_assert(kStates.size() == kStateCount);

constexpr bool all_are_there() {
  return std::all_of(kStates.begin(), kStates.end(),
                     [](const StateFacts &facts) { return facts.expectation != nullptr; });
}
static_assert(all_are_there(), "every state has its facts, once");

constexpr auto kHeaderTable = by_state(kHeaderRows);
constexpr auto kHeaderAttributesTable = by_state(kHeaderAttributeRows, kAttributeRows, kAttributeStatusRows);
constexpr auto kSectionOpeningTable = by_state(kSectionOpeningRows);
constexpr auto kBodyTable =
    by_state(kServiceRows, kServiceStatusRows, kInvocationStatusRows, kAttributeRows, kAttributeStatusRows);
constexpr auto kSectionClosingTable = by_state(kSectionClosingRows);
constexpr auto kMarkerTable = by_state(kMarkerRows);

template <const auto &Table>
consteval Machine machine(bool (*at_end)(Decoder &, State), void (*report)(Decoder &, const Token &, State)) {
  return {Table.rows.data(), Table.first.data(), at_end, report};
}

}  // namespace

constexpr Machine kHeaderMachine = machine<kHeaderTable>(nullptr, report_expected);
constexpr Machine kHeaderAttributesMachine =
    machine<kHeaderAttributesTable>(nullptr, action::report_in_header_attributes);
constexpr Machine kSectionOpeningMachine =
    machine<kSectionOpeningTable>(action::end_in_section, action::report_in_section);
constexpr Machine kBodyMachine = machine<kBodyTable>(action::end_in_body, report_expected);
constexpr Machine kSectionClosingMachine =
    machine<kSectionClosingTable>(action::end_in_section, action::report_in_section);
constexpr Machine kEndMarkerMachine = machine<kMarkerTable>(action::end_in_marker, report_expected);

const StateFacts &facts_of(State state) { return kStates[static_cast<std::size_t>(state)]; }

}  // namespace jt_core
