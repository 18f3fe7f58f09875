// A client of an installed jt, in C++: the same as the one in C. Its exit status is 0 when all is as it
// should be.
#include <jt.hpp>

#include <iostream>
#include <memory>
#include <string>
#include <string_view>

namespace {

bool round_trip(jt_parser_space *session) {
  const int32_t job = jt_decode_template(session, "[ kmt_svc_scan Scan ] { real Gamma = 1.5; } end");
  if (jt_set_attribute_value_string(session, job, "Scan", "Gamma", "4.25") != 1) return false;
  char *const text = jt_encode_template(session, job);
  const bool found = text != nullptr && std::string(text).find("4.250000") != std::string::npos;
  jt_destroy_value_string(session, text);
  return found;
}

bool use_classes() {
  jt::Session session("client in C++");
  const jt::Result<jt::Template> job = session.decode("[ kmt_svc_scan Scan ] { integer Copies = 2; } end");
  if (!job) return false;
  const jt::Result<jt::Text> text = job->encode();
  return text && text->view().find("Copies") != std::string_view::npos;
}

bool tables(jt_parser_space *session) {
  const jt_type *const type = get_type_from_services(session, "kmt_svc_scan", "enum_sided");
  return type >= scan_type_tab && type < scan_type_tab + MAX_SCAN_TYPES;
}

}  // namespace

int main() {
  const std::unique_ptr<jt_parser_space, int32_t (*)(jt_parser_space *)> session(
      jt_open_parsing_utility("client in C++"), jt_close_parsing_utility);
  const bool all_well = session && round_trip(session.get()) && use_classes() && tables(session.get());
  if (!all_well) std::cerr << jt_get_recent_error(session.get()) << '\n';
  return all_well ? 0 : 1;
}
