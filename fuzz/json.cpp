// Templates as JSON and back, which is promised to lose nothing. The bytes are taken for SIL, then for JSON; what they
// are a template in either way comes back from its JSON as the same JSON.
#include "core/json_in.h"
#include "core/json_out.h"
#include "core/load.h"
#include "support.h"

namespace {

using jt_fuzz::check;

void check_round_trip(const sil::Model &model) {
  const std::string json = sil::to_json(model);
  const sil::FromJson written = sil::from_json(json);
  check(written.text.has_value(), "what was a template can be one again", json);
  const sil::Loaded again = sil::load(*written.text);
  check(again.model.has_value(), "what is written is read", *written.text);
  check(sil::to_json(*again.model) == json, "the JSON is the same", *written.text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  const std::string text(reinterpret_cast<const char *>(data), size);
  const sil::Loaded loaded = sil::load(text);
  if (loaded.model) check_round_trip(*loaded.model);
  const sil::FromJson written = sil::from_json(text);
  check(written.text.has_value() == written.findings.empty(), "there is a text or a finding", text);
  if (!written.text) return 0;
  const sil::Loaded read = sil::load(*written.text);
  check(read.model.has_value(), "what JSON says is read", *written.text);
  check_round_trip(*read.model);
  return 0;
}
