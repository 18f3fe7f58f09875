#!/bin/sh
# Looks at built Debian packages: lintian, the pages that their pages refer to, the tool that they bring, and
# clients that are compiled with what they hold. What the clients' compilers tell goes to a log.
#
# usage: check_packages.sh FOLDER LOG, in the project's own folder
set -eu
root=$PWD/$1/root

# Three warnings do not concern us: the first package of a program that is new to Debian closes a wish of Debian's,
# cpack writes scripts that do what the package's trigger does anyway, and the manual carries the scripts of its
# search, so that it can be read from any disk.
lintian --allow-root --fail-on error \
  --suppress-tags initial-upload-closes-no-bugs,maintscript-calls-ldconfig,embedded-javascript-library "$1"/*.deb
tests/packaging/page_references.sh "$1"/*.deb

for package in "$1"/*.deb; do dpkg-deb --extract "$package" "$root"; done
"$root/usr/bin/sil" json examples/scan_to_mail.sil | "$root/usr/bin/sil" from-json - |
  "$root/usr/bin/sil" diff examples/scan_to_mail.sil -
"$root/usr/bin/jt-roundtrip" examples/scan_to_mail.sil | cmp - tests/examples/expected/scan_to_mail.sil

if ! {
  ctest --build-and-test tests/packaging/consumer "$1/find_package" --build-generator Ninja \
    --build-options -DWAY=find_package "-DCMAKE_PREFIX_PATH=$root/usr" \
    --test-command ctest --output-on-failure --no-tests=error &&
    tests/packaging/pkg_config.sh "$root/usr" "$1/pkg_config"
} >"$2" 2>&1; then
  cat "$2" >&2
  exit 1
fi
