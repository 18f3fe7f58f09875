// The value lists of a few names each: the base list and those of the smaller services.
#include <array>

#include "types/value_lists.h"
#include "types/value_packing.h"

namespace jt_core {
namespace {

constexpr auto kBase = std::to_array<NamedNumber>({
    {"KMT_STATUS_ABORTED", 1},
    {"KMT_STATUS_UNKNOWN", 2},
    {"KMT_STATUS_NOTINSTANTIATED", 3},
    {"KMT_STATUS_INSTANTIATED", 4},
    {"KMT_STATUS_COMPLETED", 5},
    {"KMT_STATUS_OVERRIDDEN", 6},
    {"KMT_STATUS_IGNORED", 7},
    {"KMT_STATUS_UNDETERMINED", 8},
    {"KMT_STATUS_INITIALIZED", 9},
    {"KMT_STATUS_UNINITIALIZED", 10},
    {"KMT_STATUS_FILING_PROTOCOL_NOT_RUNNING", 11},
    {"KMT_STATUS_FILING_LOGIN_FAILURE", 12},
    {"KMT_STATUS_FILING_DIRECTORY_LOCK_FAILURE", 13},
    {"KMT_STATUS_FILE_DELETE_REPLACE_FAILURE", 14},
    {"KMT_STATUS_HZM_CONTENT_FILE_TRANSFER_FAILURE", 15},
    {"KMT_STATUS_FILE_TRANSFER_FAILURE", 16},
    {"KMT_STATUS_MISC_FILING_ERROR", 17},
    {"KMT_STATUS_ERROR", 18},
    {"KMT_STATUS_WARNING", 19},
    {"MM", 20},
    {"IN", 21},
    {"MIL", 22},
    {"IETF_SYSTEM_OBJECT_ID", 23},
    {"PROPRIETARY", 24},
});
static_assert(kBase.size() == 24);

constexpr auto kEmail = std::to_array<NamedNumber>({
    {"SMTP", 0},
    {"MHS", 1},
    {"XNS", 2},
    {"URGENT", 3},
    {"NORMAL", 4},
    {"LOW", 5},
});
static_assert(kEmail.size() == 6);

constexpr auto kFax = std::to_array<NamedNumber>({
    {"AUTO", 0},
    {"FASTEST_POSSIBLE", 1},
    {"FORCED_4800BAUD", 2},
    {"144_BPS", 3},
    {"336_BPS", 4},
    {"LOW", 5},
    {"NORMAL", 6},
    {"URGENT", 7},
});
static_assert(kFax.size() == 8);

constexpr auto kFile = std::to_array<NamedNumber>({
    {"PUBLIC", 1},
    {"PRIVATE", 2},
    {"TCPIP", 3},
    {"NETWARE", 4},
    {"NCP", 5},
    {"FTP", 6},
    {"TFTP", 7},
    {"TELNET", 8},
    {"SMB", 9},
    {"RPC", 10},
    {"RCP", 11},
    {"NFS", 12},
    {"APPLESHARE", 13},
    {"AFT", 14},
    {"NETBIOS", 15},
    {"KMTHTTP", 16},
    {"KMTHTTPS", 17},
    {"SFTP", 18},
    {"WEBDAV", 19},
    {"WEBDAVS", 20},
    {"KMT_SCANWEBSERVICE", 21},
    {"NETWARE3X", 22},
    {"NETWARE4X", 23},
    {"OS/2", 24},
    {"UNIX", 25},
    {"MACOS", 26},
    {"WINDOWSNT", 27},
    {"DOS", 28},
    {"OVERWRITE", 29},
    {"APPEND", 30},
    {"NEW_EXACT", 31},
    {"NEW_AUTO_GENERATE", 32},
    {"GEN_DATE_TIME_ID", 33},
    {"USERLOGIN", 34},
    {"PROMPT", 35},
    {"PROMPT_IF_NECESSARY", 36},
    {"NONE", 37},
    {"SYSTEM", 38},
    {"TEMPLATE", 39},
    {"DOMAIN_USER", 40},
});
static_assert(kFile.size() == 40);

constexpr auto kGeneral = std::to_array<NamedNumber>({
    {"EMAIL", 1},
    {"FAX", 2},
    {"PRINT", 3},
    {"NONE", 4},
    {"ALL", 5},
    {"ANY", 6},
    {"AFTER_SCAN", 7},
    {"AFTER_JOB_COMPLETE", 8},
    {"MODEL_01", 9},
    {"MODEL_02", 10},
    {"MODEL_03", 11},
    {"MODEL_04", 12},
    {"MODEL_05", 13},
    {"MODEL_06", 14},
    {"MODEL_07", 15},
    {"MODEL_08", 16},
    {"MODEL_09", 17},
    {"MODEL_10", 18},
    {"MODEL_11", 19},
    {"MODEL_12", 20},
    {"MODEL_13", 21},
    {"MODEL_14", 22},
    {"MODEL_15", 23},
    {"MODEL_16", 24},
    {"MODEL_17", 25},
    {"ASCII", 26},
    {"UCS-2", 27},
    {"LATIN-1", 28},
    {"SHIFT-JIS", 29},
    {"UTF-8", 30},
    {"UTF-16", 31},
    {"VantuSimplePassword_1", 32},
    {"KMT_STATUS_ABORTED", 33},
    {"KMT_STATUS_COMPLETED", 34},
    {"KMT_STATUS_FILE_DELETE_REPLACE_FAILURE", 35},
    {"KMT_STATUS_FILE_TRANSFER_FAILURE", 36},
    {"KMT_STATUS_FILING_DIRECTORY_LOCK_FAILURE", 37},
    {"KMT_STATUS_FILING_LOGIN_FAILURE", 38},
    {"KMT_STATUS_FILING_PROTOCOL_NOT_RUNNING", 39},
    {"KMT_STATUS_IGNORED", 40},
    {"KMT_STATUS_INITIALIZED", 41},
    {"KMT_STATUS_INSTANTIATED", 42},
    {"KMT_STATUS_MISC_FILING_ERROR", 43},
    {"KMT_STATUS_NOTINSTANTIATED", 44},
    {"KMT_STATUS_OVERRIDDEN", 45},
    {"KMT_STATUS_UNDETERMINED", 46},
    {"KMT_STATUS_UNINITIALIZED", 47},
    {"KMT_STATUS_UNKNOWN", 48},
    {"KMT_STATUS_HZM_CONTENT_FILE_TRANSFER_FAILURE", 49},
});
static_assert(kGeneral.size() == 49);

constexpr auto kMetadata = std::to_array<NamedNumber>({
    {"NONE", 1},
    {"MASK_ONLY", 2},
    {"MASK_AND_OMIT", 3},
});
static_assert(kMetadata.size() == 3);

constexpr auto kPrint = std::to_array<NamedNumber>({
    {"ONE_SIDED", 0},
    {"ONE_TWOTWO", 1},
    {"SECOND_SIDE_ROTATION", 2},
    {"TWO_SIDED", 3},
    {"NONE", 4},
    {"STAPLE", 5},
    {"STAPLE_TOP_LEFT", 6},
    {"STAPLE_BOTTOM_LEFT", 7},
    {"STAPLE_TOP_RIGHT", 8},
    {"STAPLE_BOTTOM_RIGHT", 9},
    {"SADDLE_STITCH", 10},
    {"EDGE_STITCH", 11},
    {"PUNCH", 12},
    {"COVER", 13},
    {"BIND", 14},
    {"LOCAL", 15},
    {"REMOTE", 16},
    {"SEPARATE_DOCUMENTS_COLLATED_COPIES", 17},
    {"SEPARATE_DOCUMENTS_UNCOLLATED_COPIES", 18},
    {"SINGLE_DOCUMENT", 19},
});
static_assert(kPrint.size() == 20);

constexpr auto kValidation = std::to_array<NamedNumber>({
    {"CANCEL_WITHOUT_VALIDATION", 1},
    {"SUBMIT_WITHOUT_VALIDATION", 2},
    {"HTTP", 3},
    {"HTTPS", 4},
});
static_assert(kValidation.size() == 4);

static_assert(number_of(kBase, "MM") == unit::kMm);
static_assert(number_of(kBase, "IN") == unit::kIn);
static_assert(number_of(kBase, "MIL") == unit::kMil);

constexpr auto kPackedBase = pack<kBase>();
static_assert(kPackedBase.written.size() == kBaseNumberEnd);
constexpr auto kPackedEmail = pack<kEmail>();
constexpr auto kPackedFax = pack<kFax>();
constexpr auto kPackedFile = pack<kFile>();
constexpr auto kPackedGeneral = pack<kGeneral>();
constexpr auto kPackedMetadata = pack<kMetadata>();
constexpr auto kPackedPrint = pack<kPrint>();
constexpr auto kPackedValidation = pack<kValidation>();

}  // namespace

constinit const ValueList kBaseValues = kPackedBase.list();
constinit const ValueList kEmailValues = kPackedEmail.list();
constinit const ValueList kFaxValues = kPackedFax.list();
constinit const ValueList kFileValues = kPackedFile.list();
constinit const ValueList kGeneralValues = kPackedGeneral.list();
constinit const ValueList kMetadataValues = kPackedMetadata.list();
constinit const ValueList kPrintValues = kPackedPrint.list();
constinit const ValueList kValidationValues = kPackedValidation.list();

}  // namespace jt_core
