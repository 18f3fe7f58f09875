// A walk over the statuses.
#include "core/record.h"

#include "core/paths.h"
#include "core/sil_writer.h"
#include "core/text.h"

namespace sil {
namespace {

struct StatusRow {
  std::string_view name;
  Outcome outcome;
};
constexpr std::array kRows = {
    StatusRow{"KMT_STATUS_COMPLETED", Outcome::kCompleted},
    StatusRow{"KMT_STATUS_OVERRIDDEN", Outcome::kOverridden},
    StatusRow{"KMT_STATUS_IGNORED", Outcome::kIgnored},
    StatusRow{"KMT_STATUS_WARNING", Outcome::kWarning},
    StatusRow{"KMT_STATUS_ABORTED", Outcome::kFailed},
    StatusRow{"KMT_STATUS_ERROR", Outcome::kFailed},
    StatusRow{"KMT_STATUS_FILING_PROTOCOL_NOT_RUNNING", Outcome::kFailed},
    StatusRow{"KMT_STATUS_FILING_LOGIN_FAILURE", Outcome::kFailed},
    StatusRow{"KMT_STATUS_FILING_DIRECTORY_LOCK_FAILURE", Outcome::kFailed},
    StatusRow{"KMT_STATUS_FILE_DELETE_REPLACE_FAILURE", Outcome::kFailed},
    StatusRow{"KMT_STATUS_HZM_CONTENT_FILE_TRANSFER_FAILURE", Outcome::kFailed},
    StatusRow{"KMT_STATUS_FILE_TRANSFER_FAILURE", Outcome::kFailed},
    StatusRow{"KMT_STATUS_MISC_FILING_ERROR", Outcome::kFailed},
};

constexpr std::array<std::string_view, kOutcomes> kNames = {"completed", "failed",  "overridden",
                                                            "ignored",   "warning", "other"};

class Recorder {
 public:
  explicit Recorder(const Model &model) : model_(model) {}

  std::vector<Entry> run() {
    if (model_.header) add_attributes(place_of(Root::kHeader), model_.header->attributes);
    if (model_.section) add_services(Root::kSection, model_.section->services);
    add_services(Root::kBody, model_.services);
    return std::move(entries_);
  }

 private:
  void add_services(Root root, const std::vector<Service> &services) {
    for (std::size_t i = 0; i < services.size(); ++i) {
      Place place = place_of(root);
      place.service = i;
      add(place, services[i].status);
      for (std::size_t j = 0; j < services[i].invocations.size(); ++j) {
        place.invocation = j;
        add(place, services[i].invocations[j].status);
        add_attributes(place, services[i].invocations[j].attributes);
      }
    }
  }

  void add_attributes(Place place, const std::vector<Attribute> &attributes) {
    for (std::size_t i = 0; i < attributes.size(); ++i) {
      place.attribute = i;
      Entry *const entry = add(place, attributes[i].status);
      if (entry == nullptr) continue;
      entry->before.swap(entry->text);
      for (const Value &value : attributes[i].values) entry->now.push_back(text_of_value(value));
    }
  }

  Entry *add(const Place &place, const MaybeStatus &status) {
    if (!status) return nullptr;
    return &entries_.emplace_back(
        Entry{path_of(model_, place), outcome_of(status->name), status->name, status->text, {}, {}});
  }

  const Model &model_;
  std::vector<Entry> entries_;
};

}  // namespace

std::string_view name_of(Outcome outcome) { return kNames[static_cast<std::size_t>(outcome)]; }

Outcome outcome_of(std::string_view status) {
  for (const StatusRow &row : kRows)
    if (same_name(row.name, status)) return row.outcome;
  return Outcome::kOther;
}

std::vector<Entry> record_of(const Model &model) { return Recorder(model).run(); }

Counts count(const std::vector<Entry> &entries) {
  Counts counts{};
  for (const Entry &entry : entries) ++counts[static_cast<std::size_t>(entry.outcome)];
  return counts;
}

}  // namespace sil
