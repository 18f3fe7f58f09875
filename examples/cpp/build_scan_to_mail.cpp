// Builds a scan-to-mail job from nothing and prints it.
#include <cstdio>

#include "jt.hpp"

static bool fill(const jt::Template &job) {
  const auto scanner = job.add_service("kmt_svc_scan", "Scanner"),
             mail = job.add_service("kmt_svc_email", "Mail");
  if (!scanner || !mail || !scanner->add_invocation() || !mail->add_invocation()) return false;
  const auto with = [](const jt::Service &service, const char *type, const char *name, const auto &value) {
    return service.add_attribute(type, name) && service.add(name, value);
  };
  return scanner->name_invocation("Letter") && with(*scanner, "enum_inputsource", "InputSource", "DADH") &&
         with(*scanner, "enum_mediasize", "MediaSize", "ISO_A4SEF") &&
         with(*scanner, "enum_sided", "Sides", "TWO_SIDED") &&
         with(*mail, "enum_emailprotocol", "Protocol", "SMTP") &&
         with(*mail, "string", "To", "office@example.org") &&
         with(*mail, "string", "Subject", "Your \"scan\"") &&
         with(*mail, "ref_invocation", "Attachment", "Scanner:Letter") &&
         with(*mail, "integer", "Copies", 2) && mail->set_non_compulsory("Copies");
}

int main() {
  const jt::Session session("build_scan_to_mail");
  const auto job = session.create();
  const bool succeeded = job && fill(*job);
  if (!succeeded) return std::fputs(session.last_report().message().data(), stderr), 1;
  std::fputs(job->encode()->c_str(), stdout);
}
