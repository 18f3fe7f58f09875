// Statuses of services, invocations and attributes through the calls; and the whole life of a job's record.
#include <cstring>
#include <string>

#include "support/session.h"

namespace jt_test {
namespace {

class StatusCalls : public SessionTest {
 protected:
  StatusCalls() : handle(jt_decode_template(space, "[ kmt_svc_scan S ] { integer a = 5; } end")) {}
  ~StatusCalls() override { jt_destroy_status(space, completed); }

  // The status's name, or "(none)"; the status is released.
  std::string name_of(jt_status *status) {
    const std::string name = take_text(get_status_string(space, status));
    jt_destroy_status(space, status);
    return name;
  }

  int32_t handle;
  jt_status *const completed = get_status(space, "KMT_STATUS_COMPLETED");
};

TEST_F(StatusCalls, AFreshNodeHasNone) {
  EXPECT_EQ(jt_get_service_status(space, handle, "S"), nullptr);
  EXPECT_EQ(jt_get_invocation_status(space, handle, "S"), nullptr);
  EXPECT_EQ(jt_get_attribute_status(space, handle, "S", "a"), nullptr);
  EXPECT_EQ(status(), 0);
  EXPECT_EQ(messages(), Messages{});
}

TEST_F(StatusCalls, EachLevelKeepsItsOwn) {
  jt_status *const aborted = get_status(space, "kmt_status_aborted");
  jt_status *const error = get_status(space, "kmt_status_error");
  EXPECT_EQ(jt_set_service_status(space, handle, "S", completed), 1);
  EXPECT_EQ(jt_set_invocation_status(space, handle, "S", aborted), 1);
  EXPECT_EQ(jt_set_attribute_status(space, handle, "S", "a", error), 1);
  jt_destroy_status(space, aborted);
  jt_destroy_status(space, error);
  EXPECT_EQ(name_of(jt_get_service_status(space, handle, "S")), "KMT_STATUS_COMPLETED");
  EXPECT_EQ(name_of(jt_get_invocation_status(space, handle, "S")), "KMT_STATUS_ABORTED");
  EXPECT_EQ(name_of(jt_get_attribute_status(space, handle, "S", "a")), "KMT_STATUS_ERROR");
}

TEST_F(StatusCalls, WhatIsHandedOutIsACopy) {
  jt_set_service_status(space, handle, "S", completed);
  jt_status *const copy = jt_get_service_status(space, handle, "S");
  const uint32_t other = 1;
  std::memcpy(static_cast<void *>(copy), &other, sizeof(other));
  jt_destroy_status(space, copy);
  EXPECT_EQ(name_of(jt_get_service_status(space, handle, "S")), "KMT_STATUS_COMPLETED");
}

TEST_F(StatusCalls, ANewStatusReplacesTheOld) {
  jt_set_service_status(space, handle, "S", completed);
  jt_status *const warning = get_status(space, "KMT_STATUS_WARNING");
  EXPECT_EQ(jt_set_service_status(space, handle, "S", warning), 1);
  jt_destroy_status(space, warning);
  EXPECT_EQ(name_of(jt_get_service_status(space, handle, "S")), "KMT_STATUS_WARNING");
}

TEST_F(StatusCalls, ANullStatusIsRefusedWithoutAMessage) {
  jt_set_service_status(space, handle, "S", completed);
  EXPECT_EQ(jt_set_service_status(space, handle, "S", nullptr), 0);
  EXPECT_EQ(jt_set_invocation_status(space, handle, "S", nullptr), 0);
  EXPECT_EQ(jt_set_attribute_status(space, handle, "S", "a", nullptr), 0);
  EXPECT_EQ(messages(), Messages{});
  EXPECT_EQ(name_of(jt_get_service_status(space, handle, "S")), "KMT_STATUS_COMPLETED");
}

TEST_F(StatusCalls, AnUnknownNameIsSetWithoutItsText) {
  jt_status *const unknown = get_status(space, "NEW_STATUS");
  EXPECT_EQ(jt_set_service_status(space, handle, "S", unknown), 1);
  jt_destroy_status(space, unknown);
  EXPECT_EQ(name_of(jt_get_service_status(space, handle, "S")), "");
  EXPECT_EQ(encoded(handle), "[kmt_svc_scan S]\n {\n      integer a = 5;\n }\nend()\n\n");
}

TEST_F(StatusCalls, AnUnknownNameThatWasDecodedIsReplacedWhole) {
  const int32_t decoded = jt_decode_template(space, "[ kmt_svc_scan S ] end (NEW_STATUS)");
  EXPECT_EQ(name_of(jt_get_service_status(space, decoded, "S")), "NEW_STATUS");
  EXPECT_EQ(jt_set_service_status(space, decoded, "S", completed), 1);
  EXPECT_EQ(encoded(decoded), "[kmt_svc_scan S]\nend(KMT_STATUS_COMPLETED)\n\n");
}

TEST_F(StatusCalls, AStatusOfTheClientsOwnNumberIsKept) {
  const uint32_t number = 4711;
  EXPECT_EQ(jt_set_service_status(space, handle, "S", reinterpret_cast<const jt_status *>(&number)), 1);
  jt_status *const copy = jt_get_service_status(space, handle, "S");
  EXPECT_EQ(std::memcmp(copy, &number, sizeof(number)), 0);
  jt_destroy_status(space, copy);
}

// From the template that is sent to a device to the record that it sends back.
TEST_F(StatusCalls, AJobsRecordLivesThroughItsWholeLife) {
  const int32_t job = jt_decode_template(space,
                                         "< SIL 4.2.00 ASCII job-1 >\n"
                                         "[ kmt_svc_scan Scan ] first { enum_mediasize size = AUTO;\n"
                                         "integer copies = 1, 2; } end < /SIL >");
  jt_value *const one = jt_decode_value(space, "integer", "1", "Scan");
  jt_value *const five = jt_decode_value(space, "integer", "5", "Scan");
  jt_value *const nine = jt_decode_value(space, "integer", "9", "Scan");
  EXPECT_EQ(jt_override_attribute_value(space, job, "Scan", "copies", one, five), 0);
  EXPECT_EQ(jt_set_attribute_non_compulsory(space, job, "Scan", "copies"), 1);
  EXPECT_EQ(jt_override_attribute_value(space, job, "Scan", "copies", one, five), 1);
  EXPECT_EQ(jt_override_attribute_value(space, job, "Scan", "copies", five, nine), 1);
  EXPECT_EQ(jt_set_attribute_status(space, job, "Scan", "size", completed), 1);
  EXPECT_EQ(jt_set_invocation_status(space, job, "Scan", completed), 1);
  EXPECT_EQ(jt_set_service_status(space, job, "Scan", completed), 1);
  for (jt_value *const value : {one, five, nine}) jt_destroy_value(space, "integer", value, "Scan");

  const std::string record = encoded(job);
  EXPECT_EQ(record,
            "\n< SIL 4.2.00 ASCII job-1 >\n\n"
            "[kmt_svc_scan Scan]\n"
            " first{\n"
            "      enum_mediasize size = AUTO;(KMT_STATUS_COMPLETED)\n"
            "    * integer copies = 9, 2;(KMT_STATUS_OVERRIDDEN{5})\n"
            " }(KMT_STATUS_COMPLETED)\n"
            "end(KMT_STATUS_COMPLETED)\n"
            "\n"
            "\n< /SIL >\n");
  const int32_t again = jt_decode_template(space, record.c_str());
  EXPECT_EQ(status(), 0);
  EXPECT_EQ(encoded(again), record);
  EXPECT_EQ(jt_is_attribute_non_compulsory(space, again, "Scan", "copies"), 1);
  EXPECT_EQ(name_of(jt_get_attribute_status(space, again, "Scan", "copies")), "KMT_STATUS_OVERRIDDEN");
}

}  // namespace
}  // namespace jt_test
