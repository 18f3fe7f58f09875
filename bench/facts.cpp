// Generates the facts. A job is eight services of a device; its rows stand in one table. Larger shapes repeat
// the job with numbered services, and each repetition takes the next alternative of every row's values.
#include "facts.h"

#include <algorithm>
#include <span>

namespace bench {
namespace {

// The alternatives of a value are separated by bars; several values take several of them in turn.
struct Row {
  const char *type;
  const char *name;
  bool compulsory;
  std::size_t values;
  std::string_view alternatives;
};

struct ServiceRow {
  const char *type;
  const char *name;
  const char *invocation;
  std::span<const Row> attributes;
};

constexpr Row kScan[] = {
    {"enum_inputsource", "InputSource", true, 1, "DADH|PLATEN|ADH"},
    {"enum_mediasize", "MediaSize", true, 1, "ISO_A4SEF|NA_8.5x11SEF|ISO_A3SEF|NA_11x17SEF"},
    {"enum_sided", "SidesToScan", true, 1, "TWO_SIDED|ONE_SIDED"},
    {"enum_colormode", "ColorMode", true, 1, "GRAYSCALE|FULL_COLOR|BLACK_AND_WHITE"},
    {"enum_originalsubtype", "OriginalSubType", false, 1, "PRINTED_ORIGINAL|PHOTOCOPY|INKJET"},
    {"enum_autoexposure", "BackgroundSuppression", false, 1, "OFF|FULL_PAGE|LEAD_EDGE"},
    {"struct_rectangle", "ScanRegion", false, 1, "0/0/210/297/MM|10/12/180/250/MM|4/4/850/1100/IN"},
    {"struct_magnification", "Magnification", false, 1, "MANISO/71|AUTOISO|MANANA/64/141|NONE"},
    {"struct_gutter", "BindingGutter", false, 1, "10/5/MM|0/1/IN"},
    {"integer", "Sharpness", false, 1, "2|0|-1|4"},
    {"integer", "PagesToScan", true, 1, "12|250|1|9999"},
    {"boolean", "MixedOriginals", false, 1, "FALSE|TRUE"},
};

constexpr Row kDocument[] = {
    {"enum_docformat", "DocumentFormat", true, 1, "PDF|TIFF_V6|XPS|PDF/A-1b"},
    {"enum_resolution", "Resolution", true, 1, "RES_300X300|RES_600X600|RES_200X200"},
    {"enum_compression", "ImageCompressions", false, 3, "G4|FLATE_COMPRESSED_JPEG|JPEG_LOW|FLATE"},
    {"enum_searchabletext", "SearchableText", false, 1, "SEARCHABLE_IMAGE|IMAGE_ONLY"},
    {"enum_outputsize", "OutputSize", true, 1, "SAME_AS_ORIGINAL|AUTO"},
    {"ref_invocation", "Source", true, 1, "Scanner:Letter"},
    {"string", "DocumentName", true, 1,
     "Quarterly report of the northern branches, 2009-Q4|Minutes of the meeting of the works council"},
    {"string", "Keywords", false, 5,
     "letter|incoming|second floor|November|to be answered|archive|confidential"},
    {"timestamp", "CreationDate", true, 1, "2009/11/03/08/15/00|2010/02/28/23/59/59|2008/07/01/12/00/30"},
};

constexpr Row kMail[] = {
    {"enum_emailprotocol", "DeliveryProtocol", true, 1, "SMTP"},
    {"enum_jobpriority", "Priority", false, 1, "NORMAL|URGENT|LOW"},
    {"string", "To", true, 4,
     "office@example.org|archive@example.org|front.desk@example.com|accounts.payable@example.net|"
     "managing.director@example.com"},
    {"string", "CarbonCopy", false, 2,
     "scans@example.org|records.department@example.net|auditor@example.com"},
    {"string", "From", true, 1, "device-0114@example.org"},
    {"string", "Subject", true, 1,
     "Your scan \"Letter\" & its copies|Scanned by the device on the second floor"},
    {"string", "Body", false, 1,
     "Good morning,\n\nplease find the scanned letter attached. It has been filed in the archive under the\n"
     "number in its subject; the original is kept at the front desk for seven days.\n\nYour front desk\n|"
     "The document that you asked for has been scanned on both sides and is attached as a searchable file.\n"
     "Please do not answer this message: it was sent by a device that nobody reads the mail of.\n"},
    {"string", "Disclaimer", false, 1,
     "This message and what is attached to it are meant for those whom it is addressed to. If you are not\n"
     "one of them, please delete it and tell its sender; do not copy it, and do not pass it on to others.\n|"
     "Prices are without obligation and hold for thirty days. The general terms of delivery and payment\n"
     "apply in the version that is valid on the day of the order; they are sent on demand.\n"},
    {"ref_invocation", "Attachment", true, 1, "Document:Pages"},
    {"boolean", "ReadReceipt", false, 1, "FALSE|TRUE"},
};

constexpr Row kFax[] = {
    {"enum_transmissionmode", "TransmissionMode", true, 1, "FASTEST_POSSIBLE|FORCED_4800BAUD|AUTO"},
    {"enum_jobpriority", "Priority", false, 1, "NORMAL|URGENT|LOW"},
    {"string", "PhoneNumbers", true, 4, "+1 555 010 0199|+44 20 7946 0958|+49 30 901820|+33 1 99 00 12 34"},
    {"struct_timeofday", "DelayedStart", false, 1, "23:30|0:00|6:45"},
    {"boolean", "CoverSheet", false, 1, "TRUE|FALSE"},
    {"string", "CoverText", false, 1,
     "To be handed to the head of the purchasing department; an answer is expected before Friday noon.|"
     "Two pages with this one. Should any be missing, please call the number above."},
    {"real", "FirstLineHeight", false, 1, "4.250000|3.500000"},
};

constexpr Row kFile[] = {
    {"enum_filingprotocol", "FilingProtocol", true, 1, "FTP|SMB|SFTP|WEBDAVS"},
    {"enum_filingpolicy", "FilingPolicy", true, 1, "NEW_EXACT|OVERWRITE|NEW_AUTO_GENERATE"},
    {"enum_loginsource", "LoginSource", false, 1, "SYSTEM|PROMPT_IF_NECESSARY|DOMAIN_USER"},
    {"string", "ServerName", true, 1, "archive.example.org:2121|files.example.com|10.0.0.17"},
    {"string", "DocumentPath", true, 1,
     "/scans/2009/november/invoices/to-be-paid|/public/incoming/second-floor"},
    {"string", "IndexFields", false, 3, "customer=4711-08|branch=north/harbour|period=2009-11|kind=letter"},
    {"ref_invocation", "Content", true, 1, "Document:Pages"},
    {"integer", "PortNumber", false, 1, "21|445|22|8443"},
};

constexpr Row kGeneral[] = {
    {"enum_confmethod", "ConfirmationMethod", false, 1, "PRINT|EMAIL|FAX|NONE"},
    {"enum_confstage", "ConfirmationStage", false, 1, "AFTER_JOB_COMPLETE|AFTER_SCAN"},
    {"string", "TemplateName", true, 1, "Letters to the archive|Invoices by mail|Copies for the front desk"},
    {"string", "Description", false, 1,
     "Scans a letter from both sides, mails it as a searchable document, and keeps a copy in the archive|"
     "For the incoming mail of the morning: one document a letter, named by the time of its scanning"},
    {"timestamp", "LastChanged", true, 1, "2009/10/30/17/20/11|2009/12/24/09/00/00"},
    {"boolean", "SuppressJobLog", false, 1, "FALSE|TRUE"},
    {"integer", "TimesUsed", false, 1, "1482|7|65536"},
};

constexpr Row kPrint[] = {
    {"enum_sidestoprint", "Sides", true, 1, "TWO_SIDED|ONE_SIDED|SECOND_SIDE_ROTATION"},
    {"enum_printfinish", "Finishing", false, 2, "STAPLE_TOP_LEFT|PUNCH|SADDLE_STITCH|COVER"},
    {"enum_collationType", "Collation", false, 1, "SEPARATE_DOCUMENTS_COLLATED_COPIES|SINGLE_DOCUMENT"},
    {"integer", "Copies", true, 1, "2|1|75"},
    {"string", "Note", false, 1,
     "Tray 2 holds the headed paper: put the first page on it, all others on plain paper|"
     "For the display case in the entrance hall"},
    {"real", "Darkness", false, 1, "0.750000|1.000000|0.125000"},
    {"string", "OutputDestination", false, 1, "Mailbox 3|Finisher, upper tray"},
};

constexpr Row kNotification[] = {
    {"enum_units", "Unit", true, 1, "MM|IN|MIL"},
    {"kmt_enum_status", "NotifyOn", true, 3, "KMT_STATUS_COMPLETED|KMT_STATUS_ERROR|KMT_STATUS_WARNING"},
    {"struct_timeofday", "QuietFrom", false, 1, "22:00|18:30"},
    {"string", "Recipient", true, 1,
     "http://10.0.0.4:8080/jobs/notify?device=114&floor=2|https://ops.example.org/devices/114/events"},
    {"ref_collection", "Collection", false, 1, "Inbox"},
};

constexpr ServiceRow kJob[] = {
    {"kmt_svc_general", "General", "Settings", kGeneral},
    {"kmt_svc_scan", "Scanner", "Letter", kScan},
    {"kmt_document", "Document", "Pages", kDocument},
    {"kmt_svc_email", "Mail", "Office", kMail},
    {"kmt_svc_fax", "Fax", "Partners", kFax},
    {"kmt_svc_file", "Archive", "Upload", kFile},
    {"kmt_svc_print", "Printer", "Copies", kPrint},
    {"kmt_svc_notification", "Notifier", "Events", kNotification},
};

// One invocation can use the types of one service and the base types: those of a scan here, in about the
// proportions of the whole job.
constexpr Row kWide[] = {
    kScan[0],  kScan[1],     kScan[3], kScan[4],  kScan[5],    kScan[6],    kScan[7],         kScan[10],
    kScan[11], kDocument[5], kMail[2], kMail[3],  kMail[5],    kMail[6],    kDocument[8],     kFax[3],
    kFax[6],   kFile[4],     kFile[5], kPrint[3], kGeneral[2], kGeneral[3], kNotification[1],
};

constexpr std::size_t kSiblings = 100000;

struct ShapeRow {
  Shape shape;
  const char *name;
  std::size_t jobs;
};

constexpr ShapeRow kShapeRows[] = {
    {Shape::kTypical, "typical", 1}, {Shape::kMedium, "medium", 24}, {Shape::kLarge, "large", 2400},
    {Shape::kWide, "wide", 0},       {Shape::kLong, "long", 0},
};
static_assert(std::size(kShapeRows) == kShapes.size());

struct KindRow {
  std::string_view type;
  Kind kind;
};

// Every other type is an enumeration.
constexpr KindRow kKinds[] = {
    {"boolean", Kind::kBoolean},
    {"integer", Kind::kInteger},
    {"real", Kind::kReal},
    {"ref_collection", Kind::kReference},
    {"ref_invocation", Kind::kReference},
    {"string", Kind::kString},
    {"struct_gutter", Kind::kGutter},
    {"struct_magnification", Kind::kMagnification},
    {"struct_rectangle", Kind::kRectangle},
    {"struct_timeofday", Kind::kTimeOfDay},
    {"timestamp", Kind::kTimestamp},
};

const ShapeRow &row_of(Shape shape) { return kShapeRows[static_cast<std::size_t>(shape)]; }

std::vector<std::string_view> split(std::string_view alternatives) {
  std::vector<std::string_view> parts;
  for (;;) {
    const std::size_t bar = alternatives.find('|');
    parts.push_back(alternatives.substr(0, bar));
    if (bar == std::string_view::npos) return parts;
    alternatives.remove_prefix(bar + 1);
  }
}

Attribute make_attribute(const Row &row, std::string name, std::size_t turn) {
  const std::vector<std::string_view> alternatives = split(row.alternatives);
  Attribute attribute = {row.type, std::move(name), row.compulsory, {}};
  for (std::size_t i = 0; i < row.values; ++i) {
    attribute.values.emplace_back(alternatives[(turn + i) % alternatives.size()]);
  }
  return attribute;
}

void add_job(Facts &facts, std::size_t number, bool numbered) {
  for (const ServiceRow &row : kJob) {
    Invocation invocation = {row.invocation, {}};
    for (const Row &attribute : row.attributes) {
      invocation.attributes.push_back(make_attribute(attribute, attribute.name, number));
    }
    const std::string suffix = numbered ? std::to_string(number + 1) : "";
    facts.services.push_back({row.type, row.name + suffix, {std::move(invocation)}});
  }
}

Facts one_invocation(const char *identifier) {
  return {identifier, {{"kmt_svc_scan", "Scanner", {{"Letter", {}}}}}};
}

Facts make_wide() {
  Facts facts = one_invocation("wide");
  std::vector<Attribute> &attributes = facts.services[0].invocations[0].attributes;
  for (std::size_t i = 0; i < kSiblings; ++i) {
    const Row &row = kWide[i % std::size(kWide)];
    const std::size_t turn = i / std::size(kWide);
    attributes.push_back(make_attribute(row, row.name + std::to_string(turn + 1), turn));
  }
  return facts;
}

Facts make_long() {
  Facts facts = one_invocation("long");
  Attribute recipients = {"string", "Recipients", true, {}};
  for (std::size_t i = 0; i < kSiblings; ++i) {
    recipients.values.push_back("user" + std::to_string(i + 1) + "@example.org");
  }
  facts.services[0].invocations[0].attributes.push_back(std::move(recipients));
  return facts;
}

}  // namespace

Counts count(const Facts &facts) {
  Counts counts;
  counts.services = facts.services.size();
  for (const Service &service : facts.services) {
    counts.invocations += service.invocations.size();
    for (const Invocation &invocation : service.invocations) {
      counts.attributes += invocation.attributes.size();
      for (const Attribute &attribute : invocation.attributes) counts.values += attribute.values.size();
    }
  }
  return counts;
}

const char *name_of(Shape shape) { return row_of(shape).name; }

Facts make_facts(Shape shape) {
  if (shape == Shape::kWide) return make_wide();
  if (shape == Shape::kLong) return make_long();
  const ShapeRow &row = row_of(shape);
  Facts facts = {row.name, {}};
  for (std::size_t i = 0; i < row.jobs; ++i) add_job(facts, i, row.jobs > 1);
  return facts;
}

Kind kind_of(std::string_view type) {
  const auto *const row = std::ranges::lower_bound(kKinds, type, {}, &KindRow::type);
  return row != std::end(kKinds) && row->type == type ? row->kind : Kind::kEnumeration;
}

std::vector<std::string_view> enumerated_names() {
  std::vector<std::string_view> names;
  for (const ServiceRow &service : kJob) {
    for (const Row &row : service.attributes) {
      if (kind_of(row.type) != Kind::kEnumeration) continue;
      for (const std::string_view name : split(row.alternatives)) names.push_back(name);
    }
  }
  std::ranges::sort(names);
  names.erase(std::unique(names.begin(), names.end()), names.end());
  return names;
}

}  // namespace bench
