#!/bin/sh
# render-icons.sh OUT SIZE:SUFFIX[,SIZE:SUFFIX...] SVG...
# Draws every picture at every size as OUT/NAMESUFFIX.png.
set -eu
out=$1 sizes=$(echo "$2" | tr ',' ' ')
shift 2
mkdir -p "$out"
for picture in "$@"; do
    name=$(basename "$picture" .svg)
    for size in $sizes; do
        pixels=${size%%:*}
        echo "-w $pixels -h $pixels -o $out/$name${size#*:}.png $picture"
    done
done | xargs -P 2 -L 1 rsvg-convert
