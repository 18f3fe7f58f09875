// The clients of the examples folder, run on an example file: what each of them prints, word for word.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/program.h"

namespace jt_test {
namespace {

std::string example(const std::string &name) { return JT_SOURCE_DIR "/examples/" + name; }

ProgramRun run_client(const std::string &name, const std::vector<std::string> &arguments) {
  std::vector<std::string> words = {JT_EXAMPLES_BIN_DIR "/" + name};
  words.insert(words.end(), arguments.begin(), arguments.end());
  return run_built_program(words);
}

void expect_output(const ProgramRun &run, const std::string &out) {
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_EQ(run.out, out);
  EXPECT_EQ(run.err, "");
}

void expect_failure(const ProgramRun &run, const std::string &err) {
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err, err);
}

// ---- client ----

TEST(Client, ChangesOneValue) {
  expect_output(run_client("client", {}),
                "[kmt_svc_scan Scan]\n"
                " {\n"
                "      enum_sided Sides = TWO_SIDED;\n"
                " }\n"
                "end\n"
                "\n");
}

TEST(Client, SaysWhyATextIsRefused) {
  const ProgramRun run = run_client("client", {"[ kmt_svc_coffee Kitchen ] end"});
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.out, "SYNTAX ERROR: while parsing for \"  TYPE  \" at:kmt_svc_coffee Kitchen ] end ...\n");
}

TEST(Client, SaysThatATextIsCutOff) {
  const ProgramRun run = run_client("client", {"< SIL 4.2.00 ASCII job > < /SIL"});
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.out, "the text is cut off\n");
  EXPECT_EQ(run.err, "");
}

// ---- build_scan_to_mail ----

TEST(BuildScanToMail, PrintsTheJob) {
  expect_output(run_client("build_scan_to_mail", {}),
                "[kmt_svc_scan Scanner]\n"
                " Letter{\n"
                "      enum_inputsource InputSource = DADH;\n"
                "      enum_mediasize MediaSize = ISO_A4SEF;\n"
                "      enum_sided Sides = TWO_SIDED;\n"
                " }\n"
                "end\n"
                "\n"
                "[kmt_svc_email Mail]\n"
                " {\n"
                "      enum_emailprotocol Protocol = SMTP;\n"
                "      string To = \"office@example.org\";\n"
                "      string Subject = \"Your \\\"scan\\\"\";\n"
                "      ref_invocation Attachment = Scanner:Letter;\n"
                "    * integer Copies = 2;\n"
                " }\n"
                "end\n"
                "\n");
}

// ---- outline ----

TEST(Outline, PrintsServicesInvocationsAttributesAndValues) {
  expect_output(run_client("outline", {example("print.sil")}),
                "Printer: kmt_svc_print\n"
                "  Handout\n"
                "    Sides: enum_sidestoprint\n"
                "      TWO_SIDED\n"
                "    Finish: enum_printfinish\n"
                "      STAPLE_TOP_LEFT\n"
                "      PUNCH\n"
                "    Collation: enum_collationType\n"
                "      SEPARATE_DOCUMENTS_COLLATED_COPIES\n"
                "    Where: enum_printmode\n"
                "      LOCAL\n"
                "    Copies: integer\n"
                "      3\n"
                "    Documents: ref_collection\n"
                "      Handouts\n");
}

TEST(Outline, ShowsUnnamedInvocationsAndStars) {
  expect_output(run_client("outline", {example("ocr_of_a_scan.sil")}),
                "Scanner: kmt_svc_scan\n"
                "  Page\n"
                "    InputSource: enum_inputsource\n"
                "      SINGLE_SHEET_FEEDER\n"
                "    Original: enum_originalsubtype\n"
                "      INKJET\n"
                "    Rotation: enum_rotation\n"
                "      ROT_90\n"
                "Reader: kmt_svc_ocr\n"
                "  (unnamed)\n"
                "    Language: enum_conversionlanguage\n"
                "      ENGLISH\n"
                "      GWICH'IN\n"
                "    Format: enum_outputdocumentconversionformat\n"
                "      RTF_WORD_2000\n"
                "    Source: ref_invocation\n"
                "      Scanner:Page\n"
                "    Confidence: real *\n"
                "      0.750000\n");
}

TEST(Outline, WalksEveryInvocation) {
  expect_output(run_client("outline", {example("no_header.sil")}),
                "MyScan: kmt_svc_scan\n"
                "  (unnamed)\n"
                "kmt_svc_print: kmt_svc_print\n");
}

TEST(Outline, SaysWhyAFileIsRefused) {
  expect_failure(run_client("outline", {example("rejected/service_twice.sil")}),
                 "SYNTAX ERROR: Trying to save multiple definitions for:SCANNER ...\n");
}

TEST(Outline, SaysThatAFileIsCutOff) {
  for (const char *file : {"rejected/end_marker_cut_off.sil", "rejected/section_cut_off.sil"})
    expect_failure(run_client("outline", {example(file)}), "the text is cut off\n");
}

TEST(Outline, NeedsAFileThatCanBeRead) {
  expect_failure(run_client("outline", {example("missing.sil")}), "USAGE: outline FILE\n");
  expect_failure(run_client("outline", {JT_SOURCE_DIR}), "USAGE: outline FILE\n");
}

TEST(Outline, NeedsAFile) { expect_failure(run_client("outline", {}), "USAGE: outline FILE\n"); }

// ---- everything ----

TEST(Everything, PrintsHeaderSectionAndServices) {
  expect_output(run_client("everything", {example("header_question_section.sil")}),
                "template 4.2.00 ask-first\n"
                "# The section says what the device should ask for; the body what it does.\n"
                "  <? sil_header\n"
                "  template\n"
                "    service kmt_dscrpt_metadata Questions\n"
                "      invocation kmt_dscrpt_metadata Invoice\n"
                "        attribute string Label\n"
                "          value string Invoice number\n"
                "  service kmt_svc_scan Scanner\n"
                "    invocation kmt_svc_scan\n"
                "      attribute enum_inputsource InputSource\n"
                "        value enum_inputsource ADH\n");
}

TEST(Everything, PrintsTheAttributesOfAHeader) {
  expect_output(run_client("everything", {example("header_exclaim_section.sil")}),
                "template 4.2.00 settings\n"
                "# All services stand in the section; there is no body.\n"
                "  <! sil_header\n"
                "    attribute string Device\n"
                "      value string Second floor\n"
                "  template\n"
                "    service kmt_svc_paperware Forms\n"
                "      invocation kmt_svc_paperware\n"
                "        attribute ref_collection Trays\n"
                "          value ref_collection Upper\n"
                "          value ref_collection Lower\n"
                "        attribute real Weight\n"
                "          value real 80.000000\n"
                "          value real 120.500000\n"
                "    service kmt_svc_docman Store (KMT_STATUS_INSTANTIATED)\n"
                "      invocation kmt_svc_docman\n"
                "        attribute integer KeepDays\n"
                "          value integer 30\n");
}

TEST(Everything, PrintsStarsStatusesAndTheTextsBehindThem) {
  expect_output(
      run_client("everything", {example("finished_job.sil")}),
      "template 4.2.00 finished-job\n"
      "# What came back: the mail went out, one folder refused, and the device changed two values.\n"
      "  < sil_header\n"
      "  service kmt_svc_scan Scanner (KMT_STATUS_COMPLETED)\n"
      "    invocation kmt_svc_scan Letter (KMT_STATUS_COMPLETED)\n"
      "      attribute enum_inputsource InputSource (KMT_STATUS_COMPLETED)\n"
      "        value enum_inputsource DADH\n"
      "      attribute * enum_mediasize MediaSize (KMT_STATUS_OVERRIDDEN) {ISO_A3SEF}\n"
      "        value enum_mediasize ISO_A4SEF\n"
      "      attribute * integer Pages (KMT_STATUS_OVERRIDDEN) {0}\n"
      "        value integer 12\n"
      "      attribute * enum_colormode ColorMode\n"
      "        value enum_colormode GRAYSCALE\n"
      "  service kmt_svc_file Archive (KMT_STATUS_ABORTED) {tries:see-log}\n"
      "    invocation kmt_svc_file Upload (KMT_STATUS_FILING_LOGIN_FAILURE) {wrong-password}\n"
      "      attribute enum_filingprotocol Protocol\n"
      "        value enum_filingprotocol FTP\n"
      "      attribute string Host (KMT_STATUS_FILING_PROTOCOL_NOT_RUNNING)\n"
      "        value string archive.example.org\n"
      "    invocation kmt_svc_file Retry (KMT_STATUS_IGNORED)\n"
      "      attribute enum_filingprotocol Protocol\n"
      "        value enum_filingprotocol SFTP\n"
      "  service kmt_svc_email Mail (KMT_STATUS_COMPLETED)\n"
      "    invocation kmt_svc_email\n"
      "      attribute enum_emailprotocol Protocol\n"
      "        value enum_emailprotocol SMTP\n");
}

TEST(Everything, PrintsACommentInFrontOfItsElement) {
  const std::vector<std::string> lines = lines_of(run_client("everything", {example("comments.sil")}).out);
  ASSERT_EQ(lines.size(), 83U);
  EXPECT_EQ(lines[0], "# 28 between section and body");
  EXPECT_EQ(lines[15], "template 4.2.00 comments");
  EXPECT_EQ(lines[28], "  <? sil_header");
  EXPECT_EQ(lines[31], "# 13");
  EXPECT_EQ(lines[32], "    attribute string Owner");
}

TEST(Everything, SaysWhyAFileIsRefused) {
  expect_failure(run_client("everything", {example("rejected/service_twice.sil")}),
                 "SYNTAX ERROR: Trying to save multiple definitions for:SCANNER ...\n");
  expect_failure(run_client("everything", {example("rejected/section_cut_off.sil")}),
                 "the text is cut off\n");
}

TEST(Everything, NeedsAFileThatCanBeRead) {
  expect_failure(run_client("everything", {example("missing.sil")}), "USAGE: everything FILE\n");
  expect_failure(run_client("everything", {}), "USAGE: everything FILE\n");
}

// ---- change_value ----

TEST(ChangeValue, ChangesOneAndKeepsTheRest) {
  expect_output(run_client("change_value", {example("print.sil"), "printer", "COPIES", "5"}),
                "# Print a stored document: three sets, stapled, on both sides.\n"
                "\n"
                "< SIL 4.2.00 ASCII print-handout >\n"
                "\n"
                "[kmt_svc_print Printer]\n"
                " Handout{\n"
                "      enum_sidestoprint Sides = TWO_SIDED;\n"
                "      enum_printfinish Finish = STAPLE_TOP_LEFT, PUNCH;\n"
                "      enum_collationType Collation = SEPARATE_DOCUMENTS_COLLATED_COPIES;\n"
                "      enum_printmode Where = LOCAL;\n"
                "      integer Copies = 5;\n"
                "      ref_collection Documents = Handouts;\n"
                " }\n"
                "end\n"
                "\n"
                "\n"
                "< /SIL >\n");
}

TEST(ChangeValue, FindsTheInvocationThatHasTheAttribute) {
  expect_output(run_client("change_value", {example("metadata.sil"), "Metadata", "MinimumLength", "6"}),
                "# Ask at the panel for what the filing system wants to know.\n"
                "\n"
                "< SIL 4.2.00 ASCII metadata >\n"
                "\n"
                "[kmt_dscrpt_metadata Metadata]\n"
                " Customer{\n"
                "      enum_metadatamaskingrequired Masking = NONE;\n"
                "      string Label = \"Customer\";\n"
                "      string Default = \"\";\n"
                "      boolean Required = TRUE;\n"
                " }\n"
                " PinCode{\n"
                "      enum_metadatamaskingrequired Masking = MASK_AND_OMIT;\n"
                "      string Label = \"PIN\";\n"
                "      integer MinimumLength = 6;\n"
                "      boolean Required = TRUE;\n"
                " }\n"
                "end\n"
                "\n"
                "\n"
                "< /SIL >\n");
}

TEST(ChangeValue, SaysWhyAValueIsRefused) {
  expect_failure(
      run_client("change_value", {example("print.sil"), "Printer", "Copies", "many"}),
      "SYNTAX ERROR: trying to evaluate the following value string as -- integer --:\n\nmany ...\n");
}

TEST(ChangeValue, SaysWhichServiceIsMissing) {
  expect_failure(run_client("change_value", {example("print.sil"), "Fax", "Copies", "5"}),
                 "CALL ERROR: does not exist:Fax ...\n");
}

TEST(ChangeValue, SaysThatTheAttributeIsMissing) {
  expect_failure(run_client("change_value", {example("print.sil"), "Printer", "Colour", "5"}),
                 "no such attribute\n");
}

TEST(ChangeValue, SaysThatAFileIsCutOff) {
  expect_failure(
      run_client("change_value", {example("rejected/section_cut_off.sil"), "Scanner", "Copies", "5"}),
      "the text is cut off\n");
}

TEST(ChangeValue, SaysThatAValueIsRefusedWithoutAMessage) {
  expect_failure(run_client("change_value", {example("print.sil"), "Printer", "Copies", ""}),
                 "no such value\n");
}

// The doubts of the decoding are older and not the reason.
TEST(ChangeValue, DoesNotBlameAnOlderMessage) {
  expect_failure(run_client("change_value", {example("doubtful_values.sil"), "Scanner", "Colour", "5"}),
                 "no such attribute\n");
}

TEST(ChangeValue, NeedsFourArguments) {
  expect_failure(run_client("change_value", {"file"}), "USAGE: change_value FILE SERVICE ATTRIBUTE VALUE\n");
}

// ---- finish_job ----

TEST(FinishJob, SetsStatusesAndOverridesAValue) {
  expect_output(run_client("finish_job", {example("fax.sil"), "Fax", "Retries", "5"}),
                "# Fax a page to two numbers after office hours.\n"
                "\n"
                "< SIL 4.2.00 ASCII fax-at-night >\n"
                "\n"
                "[kmt_svc_scan Scanner]\n"
                " {\n"
                "      enum_inputsource InputSource = PLATEN;\n"
                "      enum_resolution Resolution = AUTO;\n"
                "      enum_imagemode Contents = TEXT;\n"
                " }(KMT_STATUS_COMPLETED)\n"
                "end(KMT_STATUS_COMPLETED)\n"
                "\n"
                "[kmt_svc_fax Fax]\n"
                " {\n"
                "      enum_transmissionmode Mode = FASTEST_POSSIBLE;\n"
                "      enum_jobpriority Priority = LOW;\n"
                "      enum_type Type = AUTO;\n"
                "      string Number = \"+49 89 555 0100\", \"+49 89 555 0199\";\n"
                "      string Subject = \"Order 4711\";\n"
                "      struct_timeofday NotBefore = 20:5;\n"
                "    * integer Retries = 5;(KMT_STATUS_OVERRIDDEN{3})\n"
                " }(KMT_STATUS_COMPLETED)\n"
                "end(KMT_STATUS_COMPLETED)\n"
                "\n"
                "\n"
                "< /SIL >\n");
}

// The value is of a type that only the service's type, not its name, leads to.
TEST(FinishJob, FindsTheTypesOfAServiceWithANameOfItsOwn) {
  const ProgramRun run =
      run_client("finish_job", {example("scan_to_mail.sil"), "Scanner", "Original", "PHOTOGRAPH"});
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(lines_of(run.out)[10],
            "    * enum_originalsubtype Original = PHOTOGRAPH;(KMT_STATUS_OVERRIDDEN{PRINTED_ORIGINAL})");
}

TEST(FinishJob, SaysThatACompulsoryValueCannotBeOverridden) {
  expect_failure(run_client("finish_job", {example("scan_to_mail.sil"), "Scanner", "Sides", "ONE_SIDED"}),
                 "CALL ERROR: it is a compulsory attributeSides ...\n");
}

TEST(FinishJob, SaysWhyAValueIsRefused) {
  expect_failure(
      run_client("finish_job", {example("fax.sil"), "Fax", "Retries", "often"}),
      "SYNTAX ERROR: trying to evaluate the following value string as -- integer --:\n\noften ...\n");
}

TEST(FinishJob, SaysWhichAttributeIsMissing) {
  expect_failure(run_client("finish_job", {example("fax.sil"), "Fax", "Colour", "5"}),
                 "CALL ERROR: does not exist:Colour ...\n");
}

TEST(FinishJob, SaysThatAFileIsCutOff) {
  expect_failure(
      run_client("finish_job", {example("rejected/end_marker_cut_off.sil"), "Scanner", "Sides", "ONE_SIDED"}),
      "the text is cut off\n");
}

TEST(FinishJob, SaysThatAnAttributeHasNoValue) {
  const ScratchDirectory scratch;
  const std::string file = scratch.write("job.sil", "[ kmt_svc_scan Scan ] { * integer Copies; } end");
  expect_failure(run_client("finish_job", {file, "Scan", "Copies", "5"}), "the attribute has no value\n");
}

TEST(FinishJob, NeedsFourArguments) {
  expect_failure(run_client("finish_job", {}), "USAGE: finish_job FILE SERVICE ATTRIBUTE VALUE\n");
}

// ---- lint ----

TEST(Lint, PrintsEveryFindingWithItsLineAndACaret) {
  const ScratchDirectory scratch;
  const std::string file = scratch.write("job.sil",
                                         "[ kmt_svc_scan Scanner ]\n"
                                         "{\n"
                                         "  integer Copies 2;\n"
                                         "  integer Retries = many;\n"
                                         "  enum_sided Sides = TWO_SIDE;\n"
                                         "end\n");
  const ProgramRun run = run_client("lint", {file});
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.out, file + ":3:17: error: found 2, expected = ; [syntax-expected]\n" +
                         "    integer Copies 2;\n"
                         "                  ^\n" +
                         file + ":4:21: loss: found many [value-malformed]\n" +
                         "    integer Retries = many;\n"
                         "                      ^\n" +
                         file + ":5:22: warning: found TWO_SIDE [value-unknown-name]\n" +
                         "    enum_sided Sides = TWO_SIDE;\n"
                         "                       ^\n" +
                         file + ":5:31: error: found end, expected } ( * [syntax-unclosed]\n" +
                         "    enum_sided Sides = TWO_SIDE;\n"
                         "                                ^\n");
}

TEST(Lint, SaysThatATextEndsTooEarly) {
  const ScratchDirectory scratch;
  const std::string file = scratch.write("job.sil", "[ kmt_svc_scan");
  const ProgramRun run = run_client("lint", {file});
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.out,
            file + ":1:15: error: found the end [syntax-expected]\n  [ kmt_svc_scan\n                ^\n");
}

TEST(Lint, HasNothingToSayOfAGoodFile) {
  expect_output(run_client("lint", {example("copy.sil"), example("fax.sil")}), "");
}

TEST(Lint, GoesOnBehindAFileThatCannotBeRead) {
  const ProgramRun run = run_client("lint", {example("missing.sil"), example("rejected/service_twice.sil")});
  EXPECT_EQ(run.exit_status, 2);
  EXPECT_EQ(run.err, "cannot read " + example("missing.sil") + "\n");
  EXPECT_NE(run.out.find("[name-duplicate]"), run.out.npos) << run.out;
}

TEST(Lint, NeedsAFile) {
  const ProgramRun run = run_client("lint", {});
  EXPECT_EQ(run.exit_status, 2);
  EXPECT_EQ(run.err, "USAGE: lint FILE...\n");
}

// ---- list_types ----

TEST(ListTypes, NamesTheTypesAndTheirValues) {
  expect_output(run_client("list_types", {"kmt_svc_validation"}),
                "enum_protocol\n"
                "  CANCEL_WITHOUT_VALIDATION\n"
                "  SUBMIT_WITHOUT_VALIDATION\n"
                "  HTTP\n"
                "  HTTPS\n"
                "enum_validationtimeoutpolicy\n"
                "  CANCEL_WITHOUT_VALIDATION\n"
                "  SUBMIT_WITHOUT_VALIDATION\n"
                "  HTTP\n"
                "  HTTPS\n"
                "kmt_svc_validation (a kind of block)\n");
}

TEST(ListTypes, KnowsEveryServiceInAnyCase) {
  expect_output(run_client("list_types", {"KMT_SVC_Docman"}), "kmt_svc_docman (a kind of block)\n");
}

TEST(ListTypes, ListsTypesWithoutNames) {
  const std::vector<std::string> lines = lines_of(run_client("list_types", {"kmt_svc_scan"}).out);
  const std::vector<std::string> last(lines.end() - 4, lines.end());
  const std::vector<std::string> expected = {"kmt_svc_scan (a kind of block)", "struct_borders",
                                             "struct_gutter", "struct_magnification"};
  EXPECT_EQ(last, expected);
}

TEST(ListTypes, NeedsAServiceOfTheTables) {
  expect_failure(run_client("list_types", {"kmt_svc_coffee"}),
                 "USAGE: list_types SERVICE, for instance list_types kmt_svc_scan\n");
}

}  // namespace
}  // namespace jt_test
