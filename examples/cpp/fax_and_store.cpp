// Builds a job with a header that faxes a letter and stores it, and sees whether it can be read.
#include "jt.hpp"
#include "program.h"

static bool fill(const jt::Template &job, const char *number) {
  const auto scanner = job.add_service("kmt_svc_scan", "Scanner"),
             fax = job.add_service("kmt_svc_fax", "Fax"), store = job.add_service("kmt_svc_file", "Store");
  return scanner && scanner->add_invocation() && scanner->name_invocation("Letter") && fax &&
         fax->add_invocation() && store && store->add_invocation() &&
         fax->add_attribute("string", "Number", number) && store->add_attribute("string", "Path", "/faxes") &&
         fax->add_attribute("enum_transmissionmode", "Mode", "FASTEST_POSSIBLE") &&
         fax->add_attribute("ref_invocation", "Source", "Scanner:Letter") &&
         store->add_attribute("enum_filingprotocol", "Protocol", "SFTP") &&
         store->add_attribute("ref_invocation", "Source", "Scanner:Letter");
}

int main(int argc, char **argv) {
  if (argc != 3) return fail("USAGE: fax_and_store IDENTIFIER NUMBER");
  const jt::Session session("fax_and_store");
  const auto job = session.decode(std::string("< SIL 4.2.00 ASCII ") + argv[1] + " > < /SIL >");
  const auto text = job && fill(*job, argv[2]) ? job->encode() : jt::Error();
  if (!text || !session.decode(*text) || session.last_category() != jt::Category::none)
    return fail(session.history().newest_or("it cannot be read"));
  std::fputs(text->c_str(), stdout);
}
