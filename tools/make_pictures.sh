#!/bin/sh
# Draws the tool path of every sample into docs/pictures/, and takes pictures of the window into docs/pictures/window/.
# Usage: tools/make_pictures.sh [KVTC [KVT_PICTURES]]   (those of build/release and build/dev where none is named)
#        tools/make_pictures.sh --check KVTC    only compares the tool paths with what would be drawn
set -eu
cd "$(dirname "$0")/.."
if [ "${1:-}" = --check ]; then
    made=$(mktemp -d)
    trap 'rm -rf "$made"' EXIT
    for program in samples/*.cnc; do
        name=$(basename "$program" .cnc).svg
        "$2" draw "$program" -o "$made/$name" || [ $? -eq 1 ]
        cmp "docs/pictures/$name" "$made/$name"
    done
    exit
fi
kvtc=${1:-build/release/bin/kvtc}
mkdir -p docs/pictures
for program in samples/*.cnc; do
    picture=docs/pictures/$(basename "$program" .cnc).svg
    # Status 1 tells of a finding in the program, which is drawn all the same.
    "$kvtc" draw "$program" -o "$picture" || [ $? -eq 1 ]
done

# The windows, at three sizes, the drawing of each machine, and a film strip of one that grows, where the desktop half
# has been built and xvfb is there:
#   cmake --build build/dev --target kvt_pictures
photographer=${2:-build/dev/bin/kvt_pictures}
[ -x "$photographer" ] || exit 0
take() { # screen, prefix, scale, what of, folder
    mkdir -p "docs/pictures/${5:-window}"
    ASAN_OPTIONS=detect_leaks=0 QT_QPA_PLATFORM=xcb xvfb-run -a -s "-screen 0 $1x24" \
        "$photographer" "docs/pictures/${5:-window}" "$2" "$3" "${4:-editor}" 2>/dev/null
}
take 1366x768 1366x768 1
take 1920x1080 1920x1080 1
take 1920x1080 150_percent 1.5
take 1366x768 1366x768 1 drawing
take 1920x1080 150_percent 1.5 drawing
take 1366x768 1366x768 1 help
take 1366x768 1366x768 1 german

# As a desktop with another font shows the windows, and one that is dark as well: the toolkit reads both from this file.
desk() { # prefix
    XDG_CURRENT_DESKTOP=KDE KDE_SESSION_VERSION=5 XDG_CONFIG_HOME="$desktop" take 1366x768 "$1" 0 desk
}
group() { # name, background, text
    printf '[Colors:%s]\nBackgroundNormal=%s\nBackgroundAlternate=%s\nForegroundNormal=%s\n' "$1" "$2" "$2" "$3"
}
desktop=$(mktemp -d)
trap 'rm -rf "$desktop"' EXIT
printf '[General]\nfont=Cantarell,11,-1,5,50,0,0,0,0,0\n' > "$desktop/kdeglobals"
desk 1366x768_cantarell
{
    for name in Button Window Tooltip; do group $name 49,54,59 239,240,241; done
    group View 35,38,41 239,240,241
    group Selection 61,174,233 239,240,241
} >> "$desktop/kdeglobals"
desk 1366x768_dark_cantarell

rm -f docs/pictures/film/*.png
take 1100x760 mk2_knob 1 film film
