#!/bin/sh
# Draws resources/zervo.ico (ImageMagick, DejaVu Sans Bold): the Georgian letter kan between tag brackets.
# Run again only to change the picture; the result is checked in.
set -e
cd "$(dirname "$0")/.."
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
font=/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf
[ -f "$font" ] || font=DejaVu-Sans-Bold
for size in 16 24 32 48 64 256; do
  big=$((size * 4))
  r=$((big / 6))
  if [ "$size" -lt 32 ]; then text="ქ"; points=$((big * 78 / 100)); else text="‹ქ›"; points=$((big * 56 / 100)); fi
  convert -size ${big}x${big} xc:none -fill '#8E1B2C' -draw "roundrectangle 0,0 $((big - 1)),$((big - 1)) $r,$r" \
    -font "$font" -fill white -gravity center -pointsize "$points" -annotate +0-$((big / 24)) "$text" \
    -resize ${size}x${size} "$work/$size.png"
done
convert "$work/16.png" "$work/24.png" "$work/32.png" "$work/48.png" "$work/64.png" "$work/256.png" resources/zervo.ico
