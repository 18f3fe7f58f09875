// Builds a scan-to-mail job from nothing and prints it.
#include "jt.hpp"
#include "program.h"

static bool fill(const jt::Template &job) {
  const auto scanner = job.add_service("kmt_svc_scan", "Scanner"),
             mail = job.add_service("kmt_svc_email", "Mail");
  return scanner && scanner->add_invocation() && scanner->name_invocation("Letter") &&
         scanner->add_attribute("enum_inputsource", "InputSource", "DADH") &&
         scanner->add_attribute("enum_mediasize", "MediaSize", "ISO_A4SEF") &&
         scanner->add_attribute("enum_sided", "Sides", "TWO_SIDED") && mail && mail->add_invocation() &&
         mail->add_attribute("enum_emailprotocol", "Protocol", "SMTP") &&
         mail->add_attribute("string", "To", "office@example.org") &&
         mail->add_attribute("string", "Subject", "Your \"scan\"") &&
         mail->add_attribute("ref_invocation", "Attachment", "Scanner:Letter") &&
         mail->add_attribute("integer", "Copies", 2) && mail->set_non_compulsory("Copies");
}

int main() {
  const jt::Session session("build_scan_to_mail");
  const auto job = session.create();
  if (!job || !fill(*job)) return fail(session.history().newest_or("a value was refused"));
  std::fputs(job->encode().value().c_str(), stdout);
}
