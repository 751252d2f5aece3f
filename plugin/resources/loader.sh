#!/usr/bin/env bash
# Makes loader.gif, the animation of the busy indicator, from drawn frames: a ring of twelve dots whose head goes
# round. Run it after a change and commit the result. Needs rsvg-convert, ImageMagick and gifsicle.
set -euo pipefail
cd "$(dirname "$0")"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

for frame in {0..11}; do
    awk -v frame="$frame" 'BEGIN {
        print "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"192\" height=\"192\" viewBox=\"0 0 24 24\">"
        for (dot = 0; dot < 12; ++dot) {
            age = (frame - dot + 12) % 12           # 0 is the head
            angle = dot * 3.14159265 / 6
            light = 1 - age / 11
            # From the blue of the icons at the head to a grey that shows on dark and on light.
            printf "<circle cx=\"%.3f\" cy=\"%.3f\" r=\"%.2f\" fill=\"rgb(%d,%d,%d)\"/>\n",
                12 + 9.4 * sin(angle), 12 - 9.4 * cos(angle), 0.9 + 1.1 * light,
                140 - 60 * light, 148 + 12 * light, 158 + 88 * light
        }
        print "</svg>"
    }' > "$work/frame.svg"
    rsvg-convert "$work/frame.svg" -o "$work/$(printf %02d "$frame").png"
done
convert -delay 8 -dispose Background -loop 0 "$work"/??.png -channel A -threshold 50% +channel "$work/loader.gif"
gifsicle -O3 --colors 32 "$work/loader.gif" -o loader.gif
