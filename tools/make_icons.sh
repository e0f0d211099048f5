#!/bin/sh
# Makes the icon's pictures icons/kvt_SIZE.png from icons/kvt.svg; to be run when the drawing has changed.
# Needs rsvg-convert (package librsvg2-bin).
set -eu
cd "$(dirname "$0")/../icons"
for size in 16 22 24 32 48 64 128 256; do
    rsvg-convert --width="$size" --height="$size" kvt.svg --output="kvt_$size.png"
done
