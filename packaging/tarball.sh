#!/usr/bin/env bash
# Makes an archive that runs from any folder of another distribution: tarball.sh FOLDER
# Its programs are those of the packages in FOLDER, which are built if they are missing; the libraries of Qt are inside.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

case "${1:-}" in
--help | -h) sed -n '2,3s/^# \{0,1\}//p' "$0"; exit 0 ;;
"") echo "usage: tarball.sh FOLDER" >&2; exit 2 ;;
esac
packaging/dependencies.sh build packages tarball
version=$(dpkg-parsechangelog --show-field Version)
epoch=$(dpkg-parsechangelog --show-field Timestamp)
mkdir -p "$1"
out=$(readlink -f "$1")
[[ -e $(echo "$out"/vrk-workstation_"$version"_*.deb) ]] || packaging/packages.sh "$out" >/dev/null

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
umask 022
for package in vrk-workstation vrk-admin vrk-directory vrk-report libvrk-logbook vrk-logbook-demo vrk-logbook-doc; do
    dpkg-deb --extract "$out/${package}_${version}"_*.deb "$work/unpacked"
done
name=vrk-logbook-$version-$(uname -m)
top=$work/$name
# The units of systemd name programs in /usr/bin; a server takes the packages.
mv "$work/unpacked/usr" "$top"
rm -rf "$top"/share/doc/{vrk-*,lib*}/changelog*

home=$top/lib/vrk-logbook
licences=$top/share/doc/vrk-logbook/licences
mkdir -p "$licences"

# What a desktop has, in a version that fits its drivers and fonts. Whatever these need comes from the system, too.
from_system() {
    case "$1" in
    ld-linux* | libc.so.* | libm.so.* | libdl.so.* | libpthread.so.* | librt.so.* | libresolv.so.* | libstdc++.so.* | libgcc_s.so.*) ;;
    libGL.so.* | libGLX.so.* | libOpenGL.so.* | libEGL.so.* | libX11*.so.* | libX*.so.* | libSM.so.* | libICE.so.* | libxcb.so.*) ;;
    libfontconfig.so.* | libfreetype.so.* | libharfbuzz.so.* | libglib-2.0.so.* | libgthread-2.0.so.*) ;;
    libz.so.* | libpng16.so.* | libdbus-1.so.* | libcups.so.*) ;;
    *) return 1 ;;
    esac
}

licence_of() {
    local package
    # A path may lead over the link from /lib to /usr/lib; one of them is in the list of a package.
    package=$(dpkg-query --search "$(readlink -f "$1")" "$1" "/usr$1" "${1#/usr}" 2>/dev/null || true)
    package=${package%%:*}
    [[ -n $package ]] || { echo "No package has $1, so its licence is unknown." >&2; exit 1; }
    cp -L "/usr/share/doc/$package/copyright" "$licences/$package"
}

# Copies the libraries that a program or library needs into the folder lib, and those that they need.
take_libraries_of() {
    local needed path
    for needed in $(objdump -p "$1" | awk '$1 == "NEEDED" { print $2 }'); do
        if from_system "$needed" || [[ -e $home/lib/$needed ]]; then
            continue
        fi
        path=$(ldd "$1" | awk -v name="$needed" '$1 == name { print $3 }')
        [[ -e $path ]] || { echo "$1 needs $needed, which is not installed." >&2; exit 1; }
        licence_of "$path"
        install -m 644 "$path" "$home/lib/$needed"
        take_libraries_of "$path"
        patchelf --set-rpath "\$ORIGIN" "$home/lib/$needed"
    done
}

qt=$(qmake -qt=qt5 -query QT_INSTALL_PLUGINS)
for plugin in platforms/libq{xcb,offscreen,vnc}.so imageformats/libq{jpeg,gif,ico}.so printsupport/libcupsprintersupport.so \
    platforminputcontexts/lib{compose,ibus}platforminputcontextplugin.so; do
    licence_of "$qt/$plugin"
    install -D -m 644 "$qt/$plugin" "$home/qt/plugins/$plugin"
    take_libraries_of "$qt/$plugin"
    patchelf --set-rpath "\$ORIGIN/../../../lib" "$home/qt/plugins/$plugin"
done
for file in "$home"/bin/vrk-{workstation,admin,directory,report} "$home"/lib/libVrk*; do
    take_libraries_of "$file"
done
translations=$(qmake -qt=qt5 -query QT_INSTALL_TRANSLATIONS)
licence_of "$translations/qtbase_ru.qm"
install -D -m 644 -t "$home/qt/translations" "$translations/qtbase_ru.qm"
# Qt reads this file in the folder of the program and looks nowhere else then.
printf '[Paths]\nPrefix=..\nPlugins=qt/plugins\nTranslations=qt/translations\n' >"$home/bin/qt.conf"

tar --create --directory "$work" --sort=name --mtime="@$epoch" --owner=0 --group=0 --numeric-owner "$name" |
    xz --threads=1 >"$out/$name.tar.xz"
ls "$out/$name.tar.xz"
