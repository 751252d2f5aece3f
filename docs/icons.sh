#!/usr/bin/env bash
# Creates icons.png, the contact sheet of all pictures on a light and on a dark background, at 24 and at 48
# pixels.
set -euo pipefail
cd "$(dirname "$0")/.."
pictures=(plugin/resources/svg/icons/*.svg plugin/resources/svg/markers/*.svg platform/widgets/icons/vrk/*.svg)
columns=10 cell_w=110 cell_h=96
rows=$(((${#pictures[@]} + columns - 1) / columns))
width=$((columns * cell_w)) height=$((rows * cell_h))

drawing() { sed -e '1,2d' -e '$d' "$1"; } # the content of the svg element
stroke() { sed -n 's/.* stroke="\(#[0-9a-f]*\)" stroke-width="2".*/\1/p' "$1" | head -1; }

{
    echo "<svg xmlns='http://www.w3.org/2000/svg' width='$width' height='$((2 * height))'>"
    top=0
    for ground in '#ffffff #232629' '#232629 #eff0f1'; do
        read -r back ink <<< "$ground"
        echo "<rect y='$top' width='$width' height='$height' fill='$back'/>"
        for index in "${!pictures[@]}"; do
            picture=${pictures[index]}
            x=$((index % columns * cell_w)) y=$((top + index / columns * cell_h))
            echo "<g fill='none' stroke='$(stroke "$picture")' stroke-width='2' stroke-linecap='round'" \
                 "stroke-linejoin='round'>"
            echo "<g transform='translate($((x + 10)),$((y + 30)))'>$(drawing "$picture")</g>"
            echo "<g transform='translate($((x + 46)),$((y + 14))) scale(2)'>$(drawing "$picture")</g></g>"
            echo "<text x='$((x + 54))' y='$((y + 84))' font-family='sans-serif' font-size='11'" \
                 "text-anchor='middle' fill='$ink'>$(basename "$picture" .svg)</text>"
        done
        top=$((top + height))
    done
    echo "</svg>"
} | rsvg-convert -o docs/icons.png
