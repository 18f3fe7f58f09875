#!/usr/bin/python3 -B
"""The check of the manual finds what it is there to find: each case is a manual of one or two small pages with one
thing wrong, or with nothing wrong."""

import tempfile
import unittest
from pathlib import Path

import manual_check


class ManualCheck(unittest.TestCase):
    def setUp(self):
        place = tempfile.TemporaryDirectory()
        self.addCleanup(place.cleanup)
        self.folder = Path(place.name)

    def write(self, name, text):
        path = self.folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")

    def pages(self, **texts):
        for name, text in texts.items():
            self.write(name + ".html", text)
        return manual_check.pages_of(self.folder)

    def left_over(self, text):
        return list(manual_check.left_over_markup(self.pages(page=text)))

    def dead(self, **texts):
        return list(manual_check.dead_links(self.folder, self.pages(**texts)))

    def test_finds_marks_of_markdown(self):
        for text in ["a **bold word", "an unclosed `quote", "[text](page.md)", "<br>## Head", "| a | b |", "a | | b"]:
            self.assertEqual(len(self.left_over(f"<p>{text}</p>")), 1, text)

    def test_finds_directives_that_were_not_read(self):
        for text in ["{ref}", "{{figure", "see :doc:", "\\ref values", "\\of_service", "{#anchor}", "[TOC]"]:
            self.assertTrue(self.left_over(f"<p>{text}</p>"), text)

    def test_finds_tags_that_became_text(self):
        self.assertTrue(self.left_over("<p>&lt;dt&gt; and &lt;/dd&gt;</p>"))

    def test_an_unclosed_quote_before_a_list_of_messages_is_found(self):
        self.assertTrue(self.left_over("<p>write the quote as \\&quot;. ``CALL ERROR: no name`` + text</p>"))

    def test_code_may_have_any_marks(self):
        self.assertEqual(self.left_over("<p>as <code>**a** `b` {ref}</code> and</p><pre>\\ref | a | b |</pre>"), [])

    def test_plain_text_has_none(self):
        self.assertEqual(self.left_over("<p>2 * 3, \"quoted\" text [as here] (and here); #include &lt;SIL&gt;</p>"), [])

    def test_finds_a_page_that_is_missing(self):
        self.assertEqual(self.dead(one='<a href="two.html">'), ["one.html: leads to two.html, which is not there"])

    def test_finds_a_place_that_is_missing(self):
        found = self.dead(one='<a href="two.html#here">', two='<p id="there">')
        self.assertEqual(found, ["one.html: leads to two.html#here, which has no such place"])

    def test_finds_a_place_that_is_missing_in_the_same_page(self):
        self.assertEqual(self.dead(one='<a href="#a">'), ["one.html: leads to #a, which has no such place"])

    def test_finds_what_only_a_server_would_have(self):
        self.assertEqual(len(self.dead(one='<a href="/one.html">')), 1)

    def test_places_pictures_and_other_sites_are_good(self):
        self.write("picture.svg", "")
        links = '<a href="two.html#a">' + '<img src="picture.svg" alt="a">' + '<a href="https://example.org/none">'
        self.assertEqual(self.dead(one=links, two='<p id="a">'), [])

    def test_finds_what_a_style_leads_to_in_vain(self):
        self.write("style.css", "@import url(none.css); p { background: url('data:abc') }")
        found = list(manual_check.dead_links_of_styles(self.folder))
        self.assertEqual(found, ["style.css: leads to none.css, which is not there"])

    def test_finds_a_picture_without_a_text(self):
        pages = self.pages(one='<img src="a.svg" alt=" "><img src="b.svg"><img src="c.svg" alt="what it shows">')
        self.assertEqual(
            manual_check.pictures_without_text(pages),
            ["one.html: a.svg has no text", "one.html: b.svg has no text"],
        )

    def test_finds_a_call_that_is_not_described(self):
        self.write("src/exported_symbols.txt", "jt_one\njt_two\n")
        self.write("c/a.html", '<dt id="c.jt_one">')
        found = list(manual_check.missing_calls(manual_check.pages_of(self.folder), self.folder))
        self.assertEqual(found, ["not described: jt_two"])

    def test_finds_a_message_that_is_not_described(self):
        self.write("src/any/messages.h", 'constexpr char kA[] = "A: \\"";\nconstexpr char kB[] =\n    "B: b  c";')
        pages = self.pages(messages="<code>A: &quot;</code> and B: b  c")
        self.assertEqual(list(manual_check.missing_messages(pages, self.folder)), ["not among the messages: B: b  c"])

    def test_finds_types_that_are_not_in_the_catalogue(self):
        rows = "".join(f'type<E>("enum_{number}"),' for number in range(60))
        self.write("src/types/tables.cpp", rows)
        listed = "".join(f"<code>enum_{number}</code>" for number in range(2, 60))
        self.write("catalogue/enum_1.html", listed)
        found = list(manual_check.missing_types(manual_check.pages_of(self.folder), self.folder))
        self.assertEqual(found, ["in no page of the catalogue: enum_0"])


if __name__ == "__main__":
    unittest.main()
