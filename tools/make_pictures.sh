#!/bin/sh
# Draws the tool path of every sample into docs/pictures/, and takes pictures of the window into docs/pictures/window/.
# Usage: tools/make_pictures.sh [KVTC [KVT_PICTURES]]   (those of build/release and build/dev where none is named)
set -eu
cd "$(dirname "$0")/.."
kvtc=${1:-build/release/bin/kvtc}
mkdir -p docs/pictures
for program in samples/*.cnc; do
    picture=docs/pictures/$(basename "$program" .cnc).svg
    # Status 1 tells of a finding in the program, which is drawn all the same.
    "$kvtc" draw "$program" -o "$picture" || [ $? -eq 1 ]
done

# The window, at three sizes, where the desktop half has been built and xvfb is there:
#   cmake --build build/dev --target kvt_pictures
photographer=${2:-build/dev/bin/kvt_pictures}
[ -x "$photographer" ] || exit 0
mkdir -p docs/pictures/window
take() { # screen, prefix, scale
    ASAN_OPTIONS=detect_leaks=0 QT_QPA_PLATFORM=xcb xvfb-run -a -s "-screen 0 $1x24" \
        "$photographer" docs/pictures/window "$2" "$3" 2>/dev/null
}
take 1366x768 1366x768 1
take 1920x1080 1920x1080 1
take 1920x1080 150_percent 1.5
