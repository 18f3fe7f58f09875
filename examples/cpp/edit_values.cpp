// Edits the values of attributes: more of them, fewer of them, others, and the star. Prints the result.
#include <cstdio>

#include "jt.hpp"

int main() {
  const jt::Session session("edit_values");
  const auto job = session.decode(R"([ kmt_svc_email Mail ] {
    string To = "office@example.org", "archive@example.org"; string Subject = "Scan"; string Draft = "yes"; } end)");
  const jt::Service mail = job ? job->service("Mail") : jt::Service();
  const bool done = mail.add("To", "boss@example.org") && mail.remove_value("To", "archive@example.org") &&
                    mail.set("Subject", "Scan of \"today\"") && mail.set_non_compulsory("Subject") &&
                    mail.remove_attribute("Draft") &&
                    (mail.has("Priority") || mail.add_attribute("enum_jobpriority", "Priority")) &&
                    mail.set("Priority", "URGENT");
  if (done) std::fputs(job->encode().value().c_str(), stdout);
  return done ? 0 : 1;
}
