"""What Doxygen reads in place of include/jt.hpp. Its chapters become groups; what is for the header alone is left
out, and so is the inner namespace, which no client writes. A comment holds for all declarations up to the next
empty line, so it is repeated; what needs none has one made up."""

import re

SELF_EVIDENT = "/// As its name says."
BANNER = re.compile(r"// -{4} (.*?) -+$")


def chapter_lines(title):
    name = re.sub(r"\W+", "_", title.lower())
    return [f"/// \\defgroup cpp_{name} {title}", "/// \\ingroup cpp", "/// \\{"]


def with_groups(lines):
    """Banners open groups, the remarks right below them are their text."""
    shown = []
    below_banner = False
    open_chapter = False
    for line in lines:
        banner = BANNER.match(line)
        if banner:
            shown += (["/// \\}"] if open_chapter else []) + chapter_lines(banner[1])
            open_chapter = below_banner = True
        elif below_banner and line.startswith("//") and not line.startswith("///"):
            shown.insert(len(shown) - 1, "/" + line)
        elif line == "inline namespace client {":
            while shown[-1].startswith("///"):
                shown.pop()
        elif line == "}  // namespace client":
            shown.append("/// \\}")
        else:
            below_banner = False
            shown.append(line)
    return shown


def without_details(lines):
    hidden = {"namespace detail {": ["/// \\cond", None], "}  // namespace detail": [None, "/// \\endcond"]}
    shown = []
    for line in lines:
        before, after = hidden.get(line, (None, None))
        shown += [part for part in (before, line, after) if part is not None]
    return shown


VARIABLES = re.compile(r"( *[\w:<>, ]+?) (\w+(?: = [^,;{}()]+)?(?:, \w+(?: = [^,;{}()]+)?)+);$")
NO_DECLARATION = re.compile(r"\s*(///|//|[}#]|namespace|inline namespace|public:|private:|friend class|(class|struct) \w+;)")


def one_by_one(lines):
    """A declaration of several variables becomes as many."""
    for line in lines:
        several = VARIABLES.match(line)
        if several:
            yield from (f"{several[1]} {variable};" for variable in several[2].split(", "))
        else:
            yield line


class Paragraph:
    """The comment of a paragraph, for each declaration in it."""

    def __init__(self):
        self.comment = []
        self.settled = False  # the declaration that comes next has its comment

    def lines_above(self, line, made_up):
        text = line.strip()
        if text.startswith("///"):
            self.comment = (self.comment if self.settled else []) + [line]
            self.settled = True
        elif not text:
            self.__init__()
        elif not NO_DECLARATION.match(line):
            needed = not self.settled
            self.settled = text.startswith("template <")
            return (self.comment or made_up) if needed else []
        return []


def with_shared_comments(lines):
    """Members stand at the indent of their class; what is indented further belongs to the line above."""
    shown = []
    indents = [0]
    paragraph = Paragraph()
    for line in one_by_one(lines):
        indent = len(line) - len(line.lstrip())
        if not line or indent == indents[-1]:
            made_up = [" " * indent + SELF_EVIDENT] if indent > 0 else []
            shown += paragraph.lines_above(line, made_up)
        if re.match(r" *(class|struct) .*\{$", line) and indent == indents[-1]:
            indents.append(indent + 2)
            paragraph = Paragraph()
        elif line.strip() == "};" and indent == indents[-1] - 2:
            indents.pop()
            paragraph = Paragraph()
        shown.append(line)
    return shown


def shown(source):
    lines = with_shared_comments(without_details(with_groups(source.splitlines())))
    text = "\n".join(["/// \\defgroup cpp The calls in C++", "/// \\details"] + lines)
    return text.replace("\n#ifndef", "\n\n#ifndef", 1)
