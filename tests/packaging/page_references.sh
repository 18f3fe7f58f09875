#!/bin/sh
# Every page of the manual that a page of a package refers to must be installed with it: by the package itself or
# by one that it depends on, of those given here. Says each reference that is not, and fails.
#
# usage: page_references.sh PACKAGE.deb...
set -eu
work_dir=$(mktemp -d)
trap 'rm -rf "$work_dir"' EXIT

# The pages of a package, as NAME(SECTION).
pages_of() {
  find "$work_dir/$1" -path '*/man/man*' -name '*.gz' | sed 's|.*/\(.*\)\.\([^.]*\)\.gz$|\1(\2)|'
}

# What the pages of a package refer to, by mdoc's macro or in their text. One letter is no page: O(1) is a cost.
references_of() {
  find "$work_dir/$1" -path '*/man/man*' -name '*.gz' -exec zcat {} + |
    sed 's/^\.Xr \([^ ]*\) \([1-9]\)/\1(\2)/' | grep -oE '[A-Za-z][A-Za-z0-9_.-]+\([1-9]\)' | sort -u
}

# The names of the packages that a package file depends on.
dependencies_of() {
  dpkg-deb --field "$1" Depends | tr ',|' '\n' | sed 's/^ *//; s/[ (].*//'
}

for package in "$@"; do
  dpkg-deb --extract "$package" "$work_dir/$(dpkg-deb --field "$package" Package)"
done

failed=0
for package in "$@"; do
  name=$(dpkg-deb --field "$package" Package)
  for installed in $name $(dependencies_of "$package"); do
    [ ! -d "$work_dir/$installed" ] || pages_of "$installed"
  done >"$work_dir/pages"
  for reference in $(references_of "$name"); do
    if ! grep -qxF "$reference" "$work_dir/pages"; then
      echo "$name: a page refers to $reference, which is not installed with it" >&2
      failed=1
    fi
  done
done
exit $failed
