#!/usr/bin/env bash
# Installs the Debian packages that a step needs and that are not installed yet: dependencies.sh
# build|test|packages|tarball|install|check|lint|coverage|fuzz|qt6 ...
# The lists are read by their names.
# shellcheck disable=SC2034
set -euo pipefail

tour="xvfb xauth"
build="g++ cmake ninja-build ccache mold qtbase5-dev qtbase5-dev-tools qtdeclarative5-dev libsqlite3-dev libpq-dev libssl-dev libqrencode-dev
       libhunspell-dev hunspell-ru qttranslations5-l10n librsvg2-bin
       fonts-dejavu-core fonts-liberation tzdata ca-certificates python3"
test="sqlite3 python3 postgresql openssl poppler-utils zbar-tools bash-completion groff-base man-db"
packages="dpkg-dev debhelper fakeroot git"
tarball="binutils patchelf xz-utils qt5-qmake libqt5gui5 qttranslations5-l10n"
install="mmdebstrap lintian desktop-file-utils appstream xz-utils"
desk="xvfb x11-xkb-utils openbox python3-xlib"
check="clang-format-14 git shellcheck pyflakes3"
lint="clang-tidy-14 clazy"
clock="faketime"
qt6="qt6-base-dev qt6-5compat-dev qt6-declarative-dev"
fuzz="clang-14 libclang-rt-14-dev"
bench="libbenchmark-dev"

wanted=()
for step in "$@"; do
    read -ra names <<<"$(eval echo "\$$step")"
    wanted+=("${names[@]}")
done

missing=()
for package in "${wanted[@]}"; do
    [[ "$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null)" == "install ok installed" ]] || missing+=("$package")
done
[[ ${#missing[@]} -eq 0 ]] && exit 0

as_root=()
if [[ $(id -u) -ne 0 ]]; then
    command -v sudo >/dev/null || {
        echo "These packages are missing and only root can install them: ${missing[*]}" >&2
        exit 1
    }
    as_root=(sudo)
fi
echo "Installing ${#missing[@]} packages: ${missing[*]}"
log=$(mktemp)
trap 'rm -f "$log"' EXIT
if ! { "${as_root[@]}" apt-get update -qq &&
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
        "${missing[@]}"; } >"$log" 2>&1; then
    cat "$log" >&2
    echo "The packages could not be installed." >&2
    exit 1
fi
