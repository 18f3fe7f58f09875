"""A Sphinx extension for what this manual does with the calls of jt.h: their names in any text lead to their
descriptions, and the texts of messages to theirs; a description leads to the recipes of the cookbook that use the call, and what a comment says under
\\errors, \\owner and \\cost stands beside its parameters. It also puts figures of the measurements into pages."""

import re
from pathlib import Path

from docutils import nodes
from sphinx import addnodes
from sphinx.transforms.post_transforms import SphinxPostTransform
from sphinx.util import logging
from sphinx.util.nodes import make_refnode

LOGGER = logging.getLogger(__name__)

FIELDS = ("Frame", "Errors", "Owner", "Cost")
USUAL_COST = "O(1) on average."
CALL = re.compile(r"\b(\w+)\(\)")


def figure(performance, place):
    """What a table of performance.md has: {{first heading / row / column}}."""
    table, row, column = [part.strip() for part in place.split(" / ")]
    columns = []
    for line in performance.splitlines():
        cells = [cell.strip() for cell in line.strip("|").split("|")]
        if cells[0] == table:
            columns = cells
        if cells[0] == row and column in columns:
            return cells[columns.index(column)]
    raise ValueError("performance.md has no " + place)


def put_figures(app, _name, source):
    if "{{" in source[0]:
        performance = (Path(app.srcdir) / "performance.md").read_text(encoding="ascii")
        source[0] = re.sub(r"\{\{(.*?)\}\}", lambda match: figure(performance, match[1]), source[0])


def functions_of(env):
    """Where each call of jt.h is described: its page and the place there."""
    objects = env.get_domain("c").get_objects()
    return {name: (page, place) for name, _, kind, page, place, _ in objects if kind == "function"}


def recipes_of(env):
    """The sections of the cookbook that use a call."""
    recipes = {}
    for section in env.get_doctree("cookbook").findall(nodes.section):
        code = " ".join(block.astext() for block in section.children if isinstance(block, nodes.literal_block))
        for name in set(re.findall(r"\w+(?=\()", code)):
            recipes.setdefault(name, []).append((section["ids"][0], section[0].astext()))
    return recipes


def mark_messages(app, document):
    """Each entry of the page of messages is a place to lead to."""
    if app.env.docname == "messages":
        places = set()
        for term in document.findall(nodes.term):
            place = nodes.make_id(term[0].astext())
            place += "-2" if place in places else ""  # there are texts that differ by a colon alone
            places.add(place)
            term["ids"].append(place)


def messages_of(env):
    terms = env.get_doctree("messages").findall(nodes.term)
    return {term[0].astext().strip(): term["ids"][-1] for term in terms}


def collect(app, env):
    env.jt_functions, env.jt_recipes, env.jt_messages = functions_of(env), recipes_of(env), messages_of(env)


def field(name, *content):
    return nodes.field("", nodes.field_name("", name), nodes.field_body("", *content))


class LinkCalls(SphinxPostTransform):
    default_priority = 400

    def link(self, place, text):
        page, anchor = place
        return make_refnode(self.app.builder, self.env.docname, page, anchor, nodes.Text(text))

    def linked(self, text):
        """The text with its calls as links; None where it has none."""
        functions = self.env.jt_functions
        parts = CALL.split(text.astext())
        if not any(name in functions for name in parts[1::2]):
            return None
        new = [nodes.Text(parts[0])]
        for name, after in zip(parts[1::2], parts[2::2]):
            call = name + "()"
            new += [self.link(functions[name], call) if name in functions else nodes.Text(call), nodes.Text(after)]
        return new

    def run(self):
        closed = (nodes.reference, nodes.title, nodes.literal, nodes.literal_block, addnodes.desc_signature)
        for text in list(self.document.findall(nodes.Text)):
            above = text.parent
            while above is not None and not isinstance(above, closed):
                above = above.parent
            new = self.linked(text) if above is None else None
            if new:
                text.parent.replace(text, new)
        for literal in list(self.document.findall(nodes.literal)) if self.env.docname != "messages" else []:
            place = self.env.jt_messages.get(literal.astext().strip())
            if place:
                reference = self.link(("messages", place), "")
                reference.children = [literal.deepcopy()]
                literal.replace_self(reference)
        for name in self.document.findall(addnodes.desc_name):
            if name.astext() == "[anonymous]":
                name.children = [nodes.Text("of constants")]
        self.list_calls()
        for description in list(self.document.findall(addnodes.desc)):
            if description["objtype"] == "group":  # its title is the page's
                places = list(description[0].findall(nodes.target))
                description.replace_self([*places, *description[-1].children])
            if description["domain"] == "c" and description["objtype"] == "function":
                self.complete(description)

    def list_calls(self):
        """All calls of a page in front of the first."""
        calls = [d for d in self.document.findall(addnodes.desc) if d["objtype"] == "function" and d["domain"] == "c"]
        if len(calls) > 1:
            places = [call[0]["ids"][0] for call in calls]
            links = [self.link((self.env.docname, place), place.removeprefix("c.") + "()") for place in places]
            items = [nodes.list_item("", nodes.paragraph("", "", link)) for link in links]
            above = calls[0].parent
            above.insert(above.index(calls[0]), nodes.container("", nodes.bullet_list("", *items), classes=["names"]))

    def complete(self, description):
        """Fields for what Doxygen has as paragraphs with a title, the usual cost, and the recipes."""
        content = description[-1]
        own = {}
        for entry in list(content.findall(nodes.definition_list_item)):
            own[entry[0].astext()] = entry[-1].children
        for block in [block for block in content if isinstance(block, nodes.paragraph)]:
            if any(isinstance(child, nodes.definition_list) for child in block):
                content.remove(block)
        fields = next(iter(content.findall(nodes.field_list)), None)
        if fields is None:
            fields = nodes.field_list()
            content += fields
        self.check(description[0], fields)
        own.setdefault("Cost", [nodes.paragraph("", USUAL_COST)])
        fields += [field(name, *own[name]) for name in FIELDS if name in own]
        self.add_recipes(fields, description[0]["ids"][0].removeprefix("c."))

    def check(self, signature, fields):
        """Each parameter is described, and the result."""
        described = {part.astext() for part in fields.findall(addnodes.literal_strong)}
        named = [parameter.astext() for parameter in signature.findall(addnodes.desc_parameter)]
        parameters = {re.search(r"\w+$", name)[0] for name in named if name != "void"}
        if parameters != described:
            LOGGER.warning("%s: not described: %s", signature.astext(), ", ".join(parameters ^ described))
        if not signature.astext().startswith("void ") and "Returns" not in [part[0].astext() for part in fields]:
            LOGGER.warning("%s: its result is not described", signature.astext())

    def add_recipes(self, fields, name):
        links = [self.link(("cookbook", place), title) for place, title in self.env.jt_recipes.get(name, [])]
        if links:
            items = [nodes.list_item("", nodes.paragraph("", "", link)) for link in links]
            fields += field("Recipes", nodes.bullet_list("", *items))


def setup(app):
    app.connect("source-read", put_figures)
    app.connect("doctree-read", mark_messages)
    app.connect("env-updated", collect)
    app.add_post_transform(LinkCalls)
    return {"parallel_read_safe": True, "parallel_write_safe": True}
