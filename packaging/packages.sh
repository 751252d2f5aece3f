#!/usr/bin/env bash
# Builds the Debian packages from the files of this tree, changed ones included: packages.sh FOLDER
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

case "${1:-}" in
--help | -h) sed -n '2s/^# \{0,1\}//p' "$0"; exit 0 ;;
"") echo "usage: packages.sh FOLDER" >&2; exit 2 ;;
esac
packaging/dependencies.sh build packages
mkdir -p "$1"
out=$(readlink -f "$1")

# From a tree of its own: a package contains nothing that lies about here.
work=$out/build
rm -rf "$work"
mkdir -p "$work/vrk-logbook"
git ls-files -z --cached --others --exclude-standard | xargs -0 cp -a --parents -t "$work/vrk-logbook"
cd "$work/vrk-logbook"
SOURCE_DATE_EPOCH=$(dpkg-parsechangelog --show-field Timestamp)
export SOURCE_DATE_EPOCH TZ=UTC LC_ALL=C.UTF-8 DEB_BUILD_OPTIONS="${DEB_BUILD_OPTIONS:-parallel=$(nproc)}"
umask 022
if ! dpkg-buildpackage --build=binary --no-sign >"$out/build.log" 2>&1; then
    tail -n 60 "$out/build.log" >&2
    exit 1
fi
mv "$work"/*.deb "$work"/*.changes "$work"/*.buildinfo "$out"
rm -rf "$work"
ls "$out"/*.deb
