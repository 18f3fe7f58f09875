// Line by line; only the values of an attribute may go over several.
#include "core/sil_writer.h"

#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

#include "core/text.h"

namespace sil {
namespace {

constexpr std::size_t kInvocationIndent = 1;
constexpr std::size_t kAttributeIndent = 6;
constexpr std::size_t kValueIndent = 25;
constexpr std::size_t kFoldColumn = 70;

class Writer {
 public:
  std::string run(const Model &model) {
    root_comment_ = model.comment;
    if (model.header) write_header(*model.header);
    if (model.section) write_section(*model.section, model.header ? model.header->form : "?");
    write_services(model.services, root_comment_);
    if (model.header) write_line("< /SIL >");
    if (root_comment_) write_apart(*root_comment_);
    while (out_.ends_with("\n\n")) out_.pop_back();
    return std::move(out_);
  }

 private:
  std::size_t column() const { return out_.size() - line_begin_; }

  void end_line() {
    out_ += '\n';
    line_begin_ = out_.size();
  }

  // A mark behind the last column begins a line.
  void fold(std::size_t indent) {
    if (column() <= kFoldColumn) return;
    end_line();
    out_.append(indent, ' ');
  }

  void write_line(std::string_view line) {
    out_ += line;
    end_line();
  }

  void write_comment(const MaybeText &comment, std::size_t indent) {
    if (!comment) return;
    for_each_line(*comment, [this, indent](std::string_view line) {
      out_.append(indent, ' ');
      write_line(line);
    });
  }

  // Between elements, where nothing may touch it.
  void write_apart(const std::string &comment) {
    if (!out_.empty() && !out_.ends_with("\n\n")) end_line();
    write_comment(comment, 0);
    end_line();
  }

  void write_header(const Header &header) {
    write_comment(header.comment, 0);
    const std::string mark = header.form == "plain" ? " " : header.form + " ";
    write_line("<" + mark + "SIL " + header.version + " ASCII " + header.identifier + " >");
    end_line();
    for (const Attribute &attribute : header.attributes) write_attribute(attribute, 0);
    if (!header.attributes.empty()) end_line();
  }

  void write_section(const Section &section, const std::string &mark) {
    write_line("< " + mark + " >");
    end_line();
    if (section.comment) write_apart(*section.comment);
    MaybeText none;
    write_services(section.services, none);
    write_line("< /" + mark + " >");
    end_line();
  }

  // The comment of what holds them stands behind the first one, where it is nobody else's.
  void write_services(const std::vector<Service> &services, MaybeText &comment) {
    for (const Service &service : services) {
      write_service(service);
      if (comment) write_apart(*comment);
      comment.reset();
    }
  }

  void write_service(const Service &service) {
    out_ += "[" + service.type + " " + service.name;
    fold(0);
    write_line("]");
    write_comment(service.comment, kInvocationIndent);
    for (const Invocation &invocation : service.invocations) write_invocation(invocation);
    out_ += "end";
    write_status(service.status);
    end_line();
  }

  void write_invocation(const Invocation &invocation) {
    out_ += " " + invocation.name.value_or("");
    fold(kInvocationIndent);
    write_line("{");
    write_comment(invocation.comment, kAttributeIndent);
    for (const Attribute &attribute : invocation.attributes) write_attribute(attribute, kAttributeIndent);
    out_ += " }";
    write_status(invocation.status);
  }

  void write_attribute(const Attribute &attribute, std::size_t indent) {
    if (attribute.is_optional) {
      out_.append(indent == 0 ? 0 : indent - 2, ' ');
      out_ += "* ";
    } else {
      out_.append(indent, ' ');
    }
    out_ += attribute.type + " " + attribute.name;
    if (!attribute.values.empty()) {
      fold(kValueIndent);
      out_ += " =";
    }
    if (attribute.comment) end_line();
    write_comment(attribute.comment, kValueIndent);
    write_values(attribute);
    out_ += ';';
    write_status(attribute.status);
  }

  // A value that would begin behind the last column begins a line, and so does what follows a comment.
  void write_values(const Attribute &attribute) {
    if (attribute.comment) out_.append(kValueIndent, ' ');
    bool is_first = true;
    for (const Value &value : attribute.values) {
      if (!is_first) out_ += ',';
      const bool is_behind_comment = is_first && attribute.comment;
      if (column() + 1 > kFoldColumn) {
        end_line();
        out_.append(kValueIndent, ' ');
      } else if (!is_behind_comment) {
        out_ += ' ';
      }
      is_first = false;
      const std::string text = text_of_value(value);
      out_ += same_name(attribute.type, "string") ? quoted(text) : as_token(text);
    }
  }

  void write_status(const MaybeStatus &status) {
    if (status) {
      out_ += "(" + as_token(status->name);
      if (status->text) out_ += "{" + as_token(*status->text) + "}";
      out_ += ")";
    }
    end_line();
  }

  std::string out_;
  std::size_t line_begin_ = 0;
  MaybeText root_comment_;
};

}  // namespace

std::string to_sil(const Model &model) { return Writer().run(model); }

std::string text_of_value(const Value &value) {
  if (!value.real) return value.text;
  // No exponent is read. An infinite number is read from more digits than a single has.
  if (std::isinf(*value.real)) return "1" + std::string(39, '0');
  std::array<char, 64> digits{};
  const auto written =
      std::to_chars(digits.data(), digits.data() + digits.size(), *value.real, std::chars_format::fixed);
  return {digits.data(), written.ptr};
}

}  // namespace sil
