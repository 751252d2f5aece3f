#!/usr/bin/env bash
# Makes the attachments of the demo's night shift from their drawings; commit the results. Needs rsvg-convert and
# ImageMagick. The names the journal shows are given in story.txt.
set -euo pipefail
cd "$(dirname "$0")"
rsvg-convert -f pdf scheme.svg -o scheme.pdf
photo=$(mktemp --suffix .png)
trap 'rm -f "$photo"' EXIT
rsvg-convert photo.svg -o "$photo"
# The grain and blur of a picture taken at night in wet snow.
convert "$photo" -blur 0x0.7 -seed 7 -attenuate 0.12 +noise Gaussian -modulate 100,80 -colors 96 \
    -define png:compression-level=9 -strip photo.png
