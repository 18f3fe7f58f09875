#!/usr/bin/python3 -B
"""The look at the manual finds what it is there to find: a manual in which everything is wrong, page by page."""

import tempfile
import unittest
from pathlib import Path

import browser_check

PAGES = {
    "narrow.html": "<p>a page</p>",
    "wide.html": '<p style="width: 500px">a page</p>',
    "moved.html": '<div class="content" style="overflow-x: auto"><p style="width: 600px">a page</p></div>',
    "failing.html": "<script>nonsense(</script>",
    "model.html": '<body style="background: gray"><article><img src="picture.svg"></article>',
    "search.html": '<p id="search-results">Search finished, 1 page found.</p>',
}


class BrowserCheck(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        with tempfile.TemporaryDirectory() as place:
            for name, page in PAGES.items():
                Path(place, name).write_text("<!doctype html>" + page, encoding="utf-8")
            Path(place, "picture.svg").write_text('<svg xmlns="http://www.w3.org/2000/svg"/>', encoding="utf-8")
            cls.found = browser_check.findings(Path(place))

    def count(self, part):
        return sum(part in line for line in self.found)

    def test_finds_pages_that_are_too_wide(self):
        self.assertEqual(self.count("pixels wide"), 2, self.found)
        self.assertEqual(self.count("wide.html: 5"), 1, self.found)

    def test_finds_text_that_has_to_be_moved_sideways(self):
        self.assertEqual(self.count("moved.html: 600"), 1, self.found)

    def test_finds_scripts_that_fail(self):
        self.assertEqual(self.count("failing.html: "), 1, self.found)

    def test_finds_a_page_that_does_not_get_dark(self):
        self.assertEqual(self.count("a page that is to be dark is not"), 1, self.found)
        self.assertEqual(self.count("a picture does not fit to a dark page"), 1, self.found)

    def test_finds_searches_without_a_result(self):
        self.assertEqual(self.count("does not find"), len(browser_check.SEARCHES), self.found)


if __name__ == "__main__":
    unittest.main()
