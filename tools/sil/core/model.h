// A template as plain records: what every command that needs no places works on. Nothing of it depends on a
// session, so it may be kept, compared and handed to another thread.
#ifndef SIL_CORE_MODEL_H
#define SIL_CORE_MODEL_H

#include <optional>
#include <string>
#include <vector>

namespace sil {

using MaybeText = std::optional<std::string>;

struct Status {
  std::string name;
  MaybeText text;
  friend bool operator==(const Status &, const Status &) = default;
};
using MaybeStatus = std::optional<Status>;

struct Value {
  std::string text;           // as the library writes it, without quotes and escapes
  std::string written;        // as it stands in the file, without them too
  std::optional<float> real;  // of the type "real", since six decimals do not say all of it
  friend bool operator==(const Value &, const Value &) = default;
};

struct Attribute {
  std::string type;
  std::string name;
  bool is_optional = false;
  bool is_type_known = true;
  MaybeText comment;
  MaybeStatus status;
  std::vector<Value> values;
  friend bool operator==(const Attribute &, const Attribute &) = default;
};

struct Invocation {
  MaybeText name;
  MaybeText comment;
  MaybeStatus status;
  std::vector<Attribute> attributes;
  friend bool operator==(const Invocation &, const Invocation &) = default;
};

struct Service {
  std::string type;
  std::string name;
  MaybeText comment;
  MaybeStatus status;
  std::vector<Invocation> invocations;
  friend bool operator==(const Service &, const Service &) = default;
};

struct Header {
  std::string form;  // "plain", "?" or "!"
  std::string version;
  std::string identifier;
  MaybeText comment;
  std::vector<Attribute> attributes;
  friend bool operator==(const Header &, const Header &) = default;
};

struct Section {
  MaybeText comment;
  std::vector<Service> services;
  friend bool operator==(const Section &, const Section &) = default;
};

struct Model {
  MaybeText comment;
  std::optional<Header> header;
  std::optional<Section> section;
  std::vector<Service> services;
  friend bool operator==(const Model &, const Model &) = default;
};

}  // namespace sil

#endif
