// `sil types`: the catalogue.
#include <algorithm>

#include "command.h"
#include "core/catalogue.h"
#include "core/json_writer.h"
#include "core/suggestions.h"
#include "core/text.h"

namespace sil {
namespace {

constexpr Option kOptions[] = {{"--json", "", "", "", "as JSON"}};

// What the types are called that every service has.
constexpr std::string_view kBuiltIn = "built-in";

std::string scope_named(const std::string &name) { return name == kBuiltIn ? "" : name; }

// A service's own types, without the built-in ones.
std::vector<std::string> own_types(const std::string &scope) {
  std::vector<std::string> types = types_in(scope);
  if (!scope.empty()) types.resize(types.size() - types_in("").size());
  return types;
}

// The built-in enumerated types have a list of their own.
std::string scope_of_names(const std::string &scope, const std::string &type) {
  const std::vector<std::string> own = own_types(scope);
  const bool is_own =
      std::any_of(own.begin(), own.end(), [&](const std::string &name) { return same_name(name, type); });
  return is_own ? scope : "";
}

void print_services(bool as_json, Output &output) {
  std::vector<std::string> services = services_of_catalogue();
  services.insert(services.begin(), std::string(kBuiltIn));
  JsonWriter json;
  json.open_array();
  for (const std::string &service : services) {
    const std::size_t count = own_types(scope_named(service)).size();
    json.open_object();
    json.member("service", service);
    json.key("types");
    json.number(count);
    json.close_object();
    if (!as_json)
      output.print(service + std::string(24 - std::min<std::size_t>(22, service.size()), ' ') +
                   std::to_string(count) + " types\n");
  }
  json.close_array();
  if (as_json) output.print(json.take());
}

void print_types(const std::string &scope, bool as_json, Output &output) {
  JsonWriter json;
  json.open_array();
  for (const std::string &type : own_types(scope)) {
    json.open_object();
    json.member("type", type);
    json.member("form", form_of(type));
    json.close_object();
    if (!as_json)
      output.print(type + std::string(38 - std::min<std::size_t>(36, type.size()), ' ') + form_of(type) +
                   "\n");
  }
  json.close_array();
  if (as_json) output.print(json.take());
}

void print_type(const std::string &scope, const std::string &type, bool as_json, Output &output) {
  JsonWriter json;
  json.open_object();
  json.member("type", type);
  json.member("form", form_of(type));
  json.key("names");
  json.open_array();
  if (!as_json) output.print(type + ": " + form_of(type) + "\n");
  for (const EnumeratedName &name :
       is_enumerated(type) ? names_in_scope(scope_of_names(scope, type)) : std::vector<EnumeratedName>()) {
    json.open_object();
    json.member("name", name.name);
    json.key("number");
    json.number(name.number);
    json.close_object();
    if (!as_json) output.print("  " + name.name + "\n");
  }
  json.close_array();
  json.close_object();
  if (as_json) output.print(json.take());
}

// The name as the catalogue spells it; what is no name is said.
std::string find_name(const std::string &given, const std::string &what,
                      const std::vector<std::string> &names, Output &output) {
  for (const std::string &name : names)
    if (same_name(name, given)) return name;
  output.say("", "there is no " + what + " \"" + given + "\"" + did_you_mean(nearest(given, names)));
  return "";
}

ExitStatus run_types(const Arguments &arguments, Output &output) {
  const bool as_json = arguments.has("--json");
  if (arguments.operands.empty()) {
    print_services(as_json, output);
    return kFine;
  }
  std::vector<std::string> services = services_of_catalogue();
  services.emplace_back(kBuiltIn);
  const std::string service = find_name(arguments.operands[0], "service", services, output);
  if (service.empty()) return kFindings;
  const std::string scope = scope_named(service);
  if (arguments.operands.size() == 1) {
    print_types(scope, as_json, output);
    return kFine;
  }
  const std::string type = find_name(arguments.operands[1], "type", types_in(scope), output);
  if (type.empty()) return kFindings;
  print_type(scope, type, as_json, output);
  return kFine;
}

}  // namespace

const Command kTypes = {
    "types",
    "[SERVICE [TYPE]]",
    0,
    2,
    "list the services, the types of a service, or the names of a type",
    "\"built-in\" in place of a service stands for the types that every service has beside its "
    "own. All enumerated types of a service share one list of names: which of them fit which "
    "type is not known.",
    kOptions,
    {{"sil types kmt_svc_scan", "what a scan can be told"},
     {"sil types kmt_svc_scan enum_mediasize", "the names of sizes"}},
    run_types};

}  // namespace sil
