// A template for people: its tree, or each value with its path. Proved by tests/sil_command/cases/show_*.
#ifndef SIL_CORE_OUTLINE_H
#define SIL_CORE_OUTLINE_H

#include <functional>
#include <string>
#include <string_view>

#include "core/model.h"
#include "core/paths.h"

namespace sil {

/// What a piece of the outline is, for who colours it.
enum class Piece { kName, kType, kValue, kStatus, kComment };
using Painter = std::function<std::string(Piece, std::string_view)>;

/// All of a template. On request with what the device keeps behind each value, where that is something else.
std::string outline(const Model &model, const Painter &paint, bool shows_kept);
/// One element of it with what it holds.
std::string outline(const Model &model, const Place &place, const Painter &paint, bool shows_kept);

/// Each value of a template, or below a place, as a line `PATH=VALUE` quoted for a shell.
std::string values_with_paths(const Model &model);
std::string values_with_paths(const Model &model, const Place &place);

/// The text of a value as a person reads it: of a string in quotes, of other types where a bare word would be read otherwise.
std::string shown_value(const Attribute &attribute, std::string_view text);

/// `(NAME{text})`.
std::string shown_status(const Status &status);

/// Calls a function with the place of each attribute at or below a place, in the order of the text.
void for_each_attribute(const Model &model, const Place &place,
                        const std::function<void(const Place &)> &take);

}  // namespace sil

#endif
