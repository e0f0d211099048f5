#!/bin/sh
# Draws the tool path of every sample into docs/pictures/.
# Usage: tools/make_pictures.sh [KVTC]   (build/release/bin/kvtc where none is named)
set -eu
cd "$(dirname "$0")/.."
kvtc=${1:-build/release/bin/kvtc}
mkdir -p docs/pictures
for program in samples/*.cnc; do
    picture=docs/pictures/$(basename "$program" .cnc).svg
    # Status 1 tells of a finding in the program, which is drawn all the same.
    "$kvtc" draw "$program" -o "$picture" || [ $? -eq 1 ]
done
