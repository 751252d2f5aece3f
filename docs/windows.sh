#!/usr/bin/env bash
# Draws every window in both themes, with letters of 100, 125 and 150 %, at 1280x720 and 1920x1080, on one sheet for
# the eyes of a person: windows.png in the build folder, and the single pictures in windows.png.d beside it.
# Usage: docs/windows.sh [BUILD_FOLDER]
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build/dev}
ninja -C "$build" --quiet window_sheet vrk-workstation vrk-admin VrkLogBook VrkArchive
TZ=Europe/Moscow QT_QPA_PLATFORM=xcb xvfb-run --auto-servernum --server-args="-screen 0 1920x1080x24" \
    "$build/bin/window_sheet" "$build/windows.png"
# The administrator's window of the reference data is a program of its own.
mkdir -p "$build/windows.png.d"
ninja -C "$build" --quiet DirectoryLook_test
TZ=Europe/Moscow QT_QPA_PLATFORM=offscreen VRK_PICTURES=$(readlink -f "$build/windows.png.d") "$build/bin/DirectoryLook_test" >/dev/null
echo "$build/windows.png"
