// What the rows of the grammar do. An action says whether the row takes the token after all, or that decoding
// ends; what there was to report has been reported then. tests/sil/body_test.cpp and
// tests/sil/body_refusal_test.cpp have the rows of the body.
#ifndef JT_SIL_ACTIONS_H
#define JT_SIL_ACTIONS_H

#include "sil/grammar.h"

namespace jt_core::action {

// ---- The header (frame_actions.cpp) ----
Outcome no_header(Decoder &decoder, const Token &token);
Outcome set_question_form(Decoder &decoder, const Token &token);
Outcome set_exclaim_form(Decoder &decoder, const Token &token);
Outcome accept_plain_form(Decoder &decoder, const Token &token);
Outcome accept_language(Decoder &decoder, const Token &token);
Outcome keep_version(Decoder &decoder, const Token &token);
Outcome check_encoding(Decoder &decoder, const Token &token);
Outcome save_header(Decoder &decoder, const Token &token);

// ---- The section and the end marker (frame_actions.cpp) ----
Outcome no_section(Decoder &decoder, const Token &token);
Outcome end_marker_instead(Decoder &decoder, const Token &token);
Outcome accept_question_form(Decoder &decoder, const Token &token);
Outcome accept_exclaim_form(Decoder &decoder, const Token &token);
Outcome accept_slash(Decoder &decoder, const Token &token);
Outcome accept_end_marker(Decoder &decoder, const Token &token);
Outcome give_back(Decoder &decoder, const Token &token);

// ---- Services and invocations (body_actions.cpp) ----
Outcome keep_service_type(Decoder &decoder, const Token &token);
Outcome keep_word(Decoder &decoder, const Token &token);
Outcome keep_name(Decoder &decoder, const Token &token);
Outcome open_service(Decoder &decoder, const Token &token);
Outcome open_named_invocation(Decoder &decoder, const Token &token);
Outcome open_unnamed_invocation(Decoder &decoder, const Token &token);
Outcome next_named_invocation(Decoder &decoder, const Token &token);
Outcome next_unnamed_invocation(Decoder &decoder, const Token &token);
Outcome close_block(Decoder &decoder, const Token &token);
Outcome end_services(Decoder &decoder, const Token &token);
Outcome close_service_and_end(Decoder &decoder, const Token &token);

// ---- Attributes, values and statuses (body_actions.cpp) ----
Outcome set_star(Decoder &decoder, const Token &token);
Outcome keep_attribute_type(Decoder &decoder, const Token &token);
Outcome keep_starred_type(Decoder &decoder, const Token &token);
Outcome open_attribute(Decoder &decoder, const Token &token);
Outcome close_attribute_and_set_star(Decoder &decoder, const Token &token);
Outcome close_attribute_and_keep_type(Decoder &decoder, const Token &token);
Outcome add_value(Decoder &decoder, const Token &token);
Outcome store_status(Decoder &decoder, const Token &token);
Outcome begin_status_text(Decoder &decoder, const Token &token);
Outcome keep_status_text(Decoder &decoder, const Token &token);
Outcome store_status_text(Decoder &decoder, const Token &token);
Outcome store_service_text(Decoder &decoder, const Token &token);

// ---- Endings: of the text, and at a wrong token ----
bool end_in_body(Decoder &decoder, State state);
bool end_in_section(Decoder &decoder, State state);
bool end_in_marker(Decoder &decoder, State state);
void report_in_section(Decoder &decoder, const Token &token, State state);
void report_in_header_attributes(Decoder &decoder, const Token &token, State state);

}  // namespace jt_core::action

#endif
