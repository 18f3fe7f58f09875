// The list of commands.
#include <array>

#include "command.h"

namespace sil {
namespace {

constexpr std::array kCommands = {&kCheck,  &kFormat, &kShow, &kReport,   &kGet,   &kSet,    &kAdd,
                                  &kRemove, &kDiff,   &kJson, &kFromJson, &kTypes, &kExplain};

constexpr std::array kCommon = {
    Option{"--color", "", "WHEN", "auto|always|never", "colours: auto, always or never"},
    Option{"--help", "-h", "", "", "print this"},
};

}  // namespace

std::span<const Command *const> commands() { return kCommands; }

std::span<const Option> common_options() { return kCommon; }

}  // namespace sil
