// Lines with indents; the columns of an invocation's attributes stand below each other.
#include "core/outline.h"

#include <algorithm>

#include "core/sil_writer.h"
#include "core/text.h"

namespace sil {
namespace {

// Longer names do not push the others' columns aside.
constexpr std::size_t kWidestColumn = 32;

class Outline {
 public:
  Outline(const Painter &paint, bool shows_kept) : paint_(paint), shows_kept_(shows_kept) {}

  void add(const Model &model) {
    add_comment(model.comment, 0);
    if (model.header) add(*model.header);
    if (model.section) {
      add_line(0, paint_(Piece::kName, "section"), {});
      add_comment(model.section->comment, 2);
      for (const Service &service : model.section->services) add(service, 2);
    }
    for (const Service &service : model.services) add(service, 0);
  }

  void add(const Header &header) {
    add_line(0,
             paint_(Piece::kName, "header") + "  " + header.form + "  " + printable(header.version) + "  " +
                 printable(header.identifier),
             {});
    add_comment(header.comment, 2);
    add(header.attributes, 2);
  }

  void add(const Service &service, std::size_t indent) {
    add_line(indent,
             paint_(Piece::kName, printable(service.name)) + "  " + paint_(Piece::kType, service.type),
             service.status);
    add_comment(service.comment, indent + 2);
    for (std::size_t i = 0; i < service.invocations.size(); ++i) add(service.invocations[i], i, indent + 2);
  }

  void add(const Invocation &invocation, std::size_t number, std::size_t indent) {
    const std::string name = invocation.name ? printable(*invocation.name) : "#" + std::to_string(number + 1);
    add_line(indent, paint_(Piece::kName, name), invocation.status);
    add_comment(invocation.comment, indent + 2);
    add(invocation.attributes, indent + 2);
  }

  void add(const std::vector<Attribute> &attributes, std::size_t indent) {
    std::size_t name_width = 0;
    std::size_t type_width = 0;
    for (const Attribute &attribute : attributes) {
      name_width = std::max(name_width, std::min(attribute.name.size(), kWidestColumn));
      type_width = std::max(type_width, std::min(attribute.type.size(), kWidestColumn));
    }
    for (const Attribute &attribute : attributes) {
      add_comment(attribute.comment, indent + 2);
      add(attribute, indent, name_width, type_width);
    }
  }

  void add(const Attribute &attribute, std::size_t indent, std::size_t name_width, std::size_t type_width) {
    std::string line = attribute.is_optional ? "* " : "  ";
    add_cell(line, Piece::kName, attribute.name, name_width);
    add_cell(line, Piece::kType, attribute.type, type_width);
    std::string values;
    for (const Value &value : attribute.values) {
      if (!values.empty()) values += ", ";
      values += paint_(Piece::kValue, shown_value(attribute, value.written));
      if (shows_kept_ && text_of_value(value) != value.written)
        values += paint_(Piece::kComment, " (is " + shown_value(attribute, text_of_value(value)) + ")");
    }
    add_line(indent, line + values, attribute.status);
  }

  std::string take() { return std::move(out_); }

 private:
  void add_cell(std::string &line, Piece piece, const std::string &text, std::size_t width) const {
    line += paint_(piece, printable(text)) + "  ";
    if (text.size() < width) line.append(width - text.size(), ' ');
  }

  void add_line(std::size_t indent, std::string line, const MaybeStatus &status) {
    if (status) line += (line.ends_with("  ") ? "" : "  ") + paint_(Piece::kStatus, shown_status(*status));
    line.erase(std::min(line.find_last_not_of(' ') + 1, line.size()));
    out_.append(indent, ' ').append(line).append("\n");
  }

  void add_comment(const MaybeText &comment, std::size_t indent) {
    if (!comment) return;
    for_each_line(*comment, [&](std::string_view line) {
      add_line(indent, paint_(Piece::kComment, printable(line)), {});
    });
  }

  const Painter &paint_;
  bool shows_kept_;
  std::string out_;
};

template <typename F>
void for_each_invocation(const Service &service, Place place, F &&take) {
  for (std::size_t i = 0; i < service.invocations.size(); ++i) {
    place.invocation = i;
    take(place, service.invocations[i]);
  }
}

void take_all(Place place, const std::vector<Attribute> &attributes,
              const std::function<void(const Place &)> &take) {
  for (std::size_t i = 0; i < attributes.size(); ++i) {
    place.attribute = i;
    take(place);
  }
}

}  // namespace

void for_each_attribute(const Model &model, const Place &place,
                        const std::function<void(const Place &)> &take) {
  const Element element = element_at(model, place);
  if (element.attribute != nullptr) return take(place);
  if (element.invocation != nullptr) return take_all(place, element.invocation->attributes, take);
  if (element.service != nullptr) {
    return for_each_invocation(*element.service, place, [&](const Place &in, const Invocation &invocation) {
      take_all(in, invocation.attributes, take);
    });
  }
  if (place.root == Root::kHeader) return take_all(place, model.header->attributes, take);
  const std::vector<Service> &services =
      place.root == Root::kSection ? model.section->services : model.services;
  for (std::size_t i = 0; i < services.size(); ++i) {
    Place service = place;
    service.service = i;
    for_each_attribute(model, service, take);
  }
}

std::string outline(const Model &model, const Painter &paint, bool shows_kept) {
  Outline lines(paint, shows_kept);
  lines.add(model);
  return lines.take();
}

std::string outline(const Model &model, const Place &place, const Painter &paint, bool shows_kept) {
  Outline lines(paint, shows_kept);
  const Element element = element_at(model, place);
  if (element.attribute != nullptr) {
    lines.add({*element.attribute}, 0);
  } else if (element.invocation != nullptr) {
    lines.add(*element.invocation, *place.invocation, 0);
  } else if (element.service != nullptr) {
    lines.add(*element.service, 0);
  }
  return lines.take();
}

std::string values_with_paths(const Model &model) {
  std::string lines;
  if (model.header) lines += values_with_paths(model, place_of(Root::kHeader));
  if (model.section) lines += values_with_paths(model, place_of(Root::kSection));
  return lines + values_with_paths(model, place_of(Root::kBody));
}

std::string values_with_paths(const Model &model, const Place &place) {
  std::string lines;
  for_each_attribute(model, place, [&](Place at) {
    const std::vector<Value> &values = element_at(model, at).attribute->values;
    const std::optional<std::size_t> wanted = at.value;
    for (std::size_t i = 0; i < values.size(); ++i) {
      if (wanted && *wanted != i) continue;
      if (values.size() > 1) at.value = i;
      lines += for_shell(path_of(model, at) + "=" + values[i].written) + "\n";
    }
  });
  return lines;
}

std::string shown_value(const Attribute &attribute, std::string_view text) {
  return printable(same_name(attribute.type, "string") ? quoted(text) : as_token(text));
}

std::string shown_status(const Status &status) {
  std::string text = "(" + as_token(status.name);
  if (status.text) text += "{" + as_token(*status.text) + "}";
  return printable(text + ")");
}

}  // namespace sil
