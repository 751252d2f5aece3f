#!/usr/bin/env bash
# Makes the pictures of the user guide, docs/guide/*.png, from the tour: the same demo story, played through the windows as
# they are now. Run it after a change of a window that a picture shows, and look at what has changed.
# Usage: docs/guide-pictures.sh [BUILD_FOLDER]
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build/dev}

# The picture, and the beginning of its caption in the tour. UserGuide_test compares both with the guide and the tour.
pictures='
journal:  Открытая ночная смена
record:   Новая запись (Ctrl+N)
filled:   Поля заполнены с клавиатуры
comment:  Комментарий к записи об аварии
archive:  Поиск по архиву: слова в любой форме
lost:     Хранилище пропало
handover: Закрытие смены
opening:  Открытие смены
'

ninja -C "$build" --quiet vrk-workstation vrk-admin VrkLogBook VrkArchive
tour=$(mktemp -d)
trap 'rm -rf "$tour"' EXIT
QT_QPA_PLATFORM=xcb TZ=Europe/Moscow xvfb-run --auto-servernum --server-args="-screen 0 1280x720x24" \
    "$build/bin/vrk-workstation" --tour "$tour" >/dev/null
while IFS=: read -r name caption; do
    [[ -n $name ]] || continue
    caption=${caption#"${caption%%[! ]*}"}
    picture=$(grep -F "<figcaption>" "$tour/index.html" | grep -F ". $caption" | grep -om1 '[0-9]*-light\.png' | head -1) ||
        { echo "the tour has no picture: $caption" >&2; exit 1; }
    cp "$tour/$picture" "docs/guide/$name.png"
    echo "docs/guide/$name.png"
done <<<"$pictures"
