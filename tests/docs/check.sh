#!/bin/sh
# Checks the built manual: the spelling of what it is made from, then what is in its pages, then how they look in a
# browser. Debian's Python is named in the programs, because the packages that they use are Debian's.
#
#   check.sh HTML_DIRECTORY
set -eu
html=$(realpath "$1")
source=$(realpath "$(dirname "$0")/../..")
cd "$source"

# Two words that published messages spell in their own way, the macros of man pages, and a compression.
codespell --ignore-words-list=existant,dereferce,fo,nd,flate docs include tests/docs examples README.md CHANGELOG.md \
  CONTRIBUTING.md SECURITY.md
tests/docs/manual_check_test.py
tests/docs/manual_check.py "$html" "$source"
tests/docs/browser_check_test.py
tests/docs/browser_check.py "$html"
