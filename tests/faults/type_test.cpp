// The five operations of every type of every table. Reading and copying take one block and report nothing
// but its failure; writing too, except that the name of an enumerated value is a block of the plain heap.
#include <gtest/gtest.h>

#include <map>
#include <ostream>
#include <string>
#include <vector>

#include "faults/scenario.h"
#include "types/value_cases.h"
#include "types/value_catalogue.h"

namespace jt_test {
namespace {

struct Sample {
  std::string name;
  const char *service;
  const char *type;
  std::string text;
  Messages reading{};  // what reading reports first
  Messages writing{};  // what writing reports first
  Messages unreadable{kNoMemory};
  Messages unwritable{kNoMemory};
};

std::ostream &operator<<(std::ostream &out, const Sample &sample) { return out << sample.name; }

Messages joined(Messages first, const Messages &then) {
  first.insert(first.end(), then.begin(), then.end());
  return first;
}

const jt_type *type_of(const Sample &sample) {
  return get_type_from_services(nullptr, sample.service, sample.type);
}

using Call = std::function<Result(World &, const jt_type &, char *text, jt_value *value)>;

void expect_failures(const Sample &sample, const std::vector<Messages> &failures, const Call &call) {
  const jt_type *const type = type_of(sample);
  ASSERT_NE(type, nullptr);
  const long blocks = live_blocks();
  const OwnedValue value = evaluated(nullptr, type, sample.text);
  PrivateText text(sample.text);
  ASSERT_NE(value, nullptr);
  expect_whole_failures({.name = sample.name,
                         .call = [&](World &w) { return call(w, *type, text.get(), value.get()); },
                         .failures = failures,
                         // An operation may have written into its text.
                         .before = [&](World &) { text = PrivateText(sample.text); },
                         .job = ""});
  EXPECT_EQ(live_blocks(), blocks + 1);
}

class EveryType : public ::testing::TestWithParam<Sample> {};

TEST_P(EveryType, ReadsOrReportsOneFailure) {
  const Sample &sample = GetParam();
  expect_failures(sample, {joined(sample.reading, sample.unreadable)},
                  [](World &w, const jt_type &type, char *text, jt_value *) -> Result {
                    return TypedValue{&type, type.eval(w.space, text)};
                  });
}

TEST_P(EveryType, CopiesOrReportsOneFailure) {
  expect_failures(GetParam(), {{kNoMemory}},
                  [](World &w, const jt_type &type, char *, jt_value *value) -> Result {
                    return TypedValue{&type, type.copy(w.space, value)};
                  });
}

TEST_P(EveryType, WritesOrReportsOneFailure) {
  const Sample &sample = GetParam();
  expect_failures(sample, {joined(sample.writing, sample.unwritable)},
                  [](World &w, const jt_type &type, char *, jt_value *value) -> Result {
                    return type.deval(w.space, value);
                  });
}

TEST_P(EveryType, ComparesWithoutMemory) {
  expect_failures(GetParam(), {}, [](World &w, const jt_type &type, char *, jt_value *value) -> Result {
    return type.cmp(w.space, value, value) + 1;
  });
}

TEST_P(EveryType, ReleasesWithoutMemory) {
  const jt_type *const type = type_of(GetParam());
  jt_value *const value = evaluated(nullptr, type, GetParam().text).release();
  fail_allocations(1, Failing::kAllFromThereOn);
  EXPECT_EQ(type->kill(nullptr, value), 1);
  EXPECT_EQ(allow_allocations(), 0);
}

TEST_P(EveryType, FailsWithoutASessionToo) {
  const jt_type *const type = type_of(GetParam());
  const OwnedValue value = evaluated(nullptr, type, GetParam().text);
  PrivateText text(GetParam().text);
  fail_allocations(1, Failing::kAllFromThereOn);
  EXPECT_EQ(type->eval(nullptr, text.get()), nullptr);
  EXPECT_EQ(type->copy(nullptr, value.get()), nullptr);
  EXPECT_EQ(type->deval(nullptr, value.get()), nullptr);
  EXPECT_EQ(allow_allocations(), 3);
}

std::vector<Sample> built_in_samples() {
  return {
      {"boolean", "", "boolean", "TRUE"},
      {"integer", "", "integer", "7"},
      {"real", "", "real", "2.5"},
      {"string", "", "string", "any text"},
      {"ref_collection", "", "ref_collection", "Inbox"},
      {"ref_invocation", "", "ref_invocation", "Scan"},
      {"ref_invocation_qualified", "", "ref_invocation", "Scan:1"},
      {"struct_rectangle", "", "struct_rectangle", "0/0/25/25/MM"},
      {"struct_timeofday", "", "struct_timeofday", "23:59"},
      {"timestamp", "", "timestamp", "2009/12/31/23/59/59"},
      {"struct_borders", "kmt_svc_scan", "struct_borders", "10/20/30/40/MM"},
      {"struct_gutter", "kmt_svc_scan", "struct_gutter", "100/99/IN"},
      {"struct_magnification", "kmt_svc_scan", "struct_magnification", "MANANA/100/200"},
  };
}

Sample known_name(const Catalogue &list, const char *type, const std::string &written) {
  return {.name = list.name + "_" + type,
          .service = list.service,
          .type = type,
          .text = list.rows.back().name,
          .unwritable = {"MEMORY ERROR: allocation error while encoding" + written + " ..."}};
}

Sample odd_name(const Catalogue &list, const char *type) {
  return {.name = list.name + "_" + type + "_odd",
          .service = list.service,
          .type = type,
          .text = "odd name",
          .reading = {"WARNING: trying to evaluate as an 'enumerated' type:odd name ..."},
          .writing = {"CALL ERROR: Unknown enumerated value ..."},
          .unreadable = {kNoMemory, "MEMORY ERROR: allocating value :odd name ..."},
          .unwritable = {"MEMORY ERROR: allocation error while encodingodd name ..."}};
}

std::vector<Sample> enumerated_samples() {
  std::vector<Sample> samples;
  for (const Catalogue &list : catalogues()) {
    const std::string written = written_names(list)[list.rows.back().number];
    for (const char *const type : list.types) {
      samples.push_back(known_name(list, type, written));
      samples.push_back(odd_name(list, type));
    }
  }
  return samples;
}

std::string sample_name(const ::testing::TestParamInfo<Sample> &info) { return info.param.name; }

INSTANTIATE_TEST_SUITE_P(BuiltIn, EveryType, ::testing::ValuesIn(built_in_samples()), sample_name);
INSTANTIATE_TEST_SUITE_P(Enumerated, EveryType, ::testing::ValuesIn(enumerated_samples()), sample_name);

// ---- No type is left out --------------------------------------------------------------------------------

struct Table {
  const char *service;
  const jt_type *rows;
  int32_t count;
};

const Table kTables[] = {
    {"kmt_svc_desktop", desksvc_type_tab, MAX_DESKTOP_TYPES},
    {"kmt_document", doc_type_tab, MAX_DOC_TYPES},
    {"kmt_svc_docman", docman_type_tab, MAX_DOCMAN_TYPES},
    {"kmt_svc_quillform", qf_type_tab, MAX_QF_TYPES},
    {"kmt_svc_email", email_type_tab, MAX_EMAIL_TYPES},
    {"kmt_svc_fax", fax_type_tab, MAX_FAX_TYPES},
    {"kmt_svc_file", file_type_tab, MAX_FILE_TYPES},
    {"kmt_svc_general", gen_type_tab, MAX_GEN_TYPES},
    {"kmt_svc_print", print_type_tab, MAX_LPRNT_TYPES},
    {"kmt_dscrpt_metadata", metadata_type_tab, MAX_METADATA_TYPES},
    {"kmt_svc_notification", notif_type_tab, MAX_NOTIF_TYPES},
    {"kmt_svc_ocr", ocr_type_tab, MAX_OCR_TYPES},
    {"kmt_svc_traikubra", pport_type_tab, MAX_PPORT_TYPES},
    {"kmt_svc_paperware", ppware_type_tab, MAX_PPWARE_TYPES},
    {"kmt_svc_scan", scan_type_tab, MAX_SCAN_TYPES},
    {"kmt_svc_validation", validation_type_tab, MAX_VALIDATION_TYPES},
};

TEST(EveryTable, HasASampleOfEachOfItsTypes) {
  std::vector<const jt_type *> sampled;
  for (const auto &samples : {built_in_samples(), enumerated_samples()}) {
    for (const Sample &sample : samples) sampled.push_back(type_of(sample));
  }
  for (const Table &table : kTables) {
    for (const jt_type *row = table.rows; row != table.rows + table.count; ++row) {
      if (row->eval == nullptr) continue;
      EXPECT_NE(std::find(sampled.begin(), sampled.end(), row), sampled.end())
          << table.service << " " << row->name;
    }
  }
}

}  // namespace
}  // namespace jt_test
