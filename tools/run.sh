#!/usr/bin/env bash
# Builds the workbench and opens it.
#
# Usage: tools/run.sh [--yes] [FILE]
#   With a display the window opens, with FILE in it if one is named. Without one, FILE is checked in the
#   terminal, and its exit status is that of kvtc check. Its drawing goes beside FILE; to build/drawings where FILE
#   is one of this project's own, its folder can't be written, or a file of that name is no drawing of kvtc's.
#   With --yes missing packages are installed with sudo without a question.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
sure=()
if [ "${1:-}" = --yes ]; then
    sure=(--yes)
    shift
fi
if [ $# -gt 1 ] || [[ ${1:-} == -* ]]; then
    echo "usage: tools/run.sh [--yes] [FILE]" >&2
    exit 2
fi

# What comes of the building goes to standard error, so that the output is the workbench's alone.
"$root/tools/install_packages.sh" "${sure[@]}" build
(
    cd "$root"
    cmake --preset release -DKVT_CCACHE=ON --log-level=WARNING
    cmake --build --preset release --target apps
) >&2
bin=$root/build/release/bin

if [ -x "$bin/kvt" ] && [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    exec "$bin/kvt" "$@"
fi

if [ -x "$bin/kvt" ]; then
    why="there is no display here"
else
    why="the window is not part of this build"
fi
if [ $# -eq 0 ]; then
    echo "usage: tools/run.sh FILE ($why, so name a program to check; there are some in $root/samples/)" >&2
    exit 2
fi
echo "Checking $1 in the terminal: $why." >&2
status=0
"$bin/kvtc" check "$1" || status=$?

# A console that cannot draw answers with its general help, which tells of no picture.
if [ $status -lt 2 ] && "$bin/kvtc" draw --help 2>/dev/null | grep -q 'svg'; then
    folder=$(dirname "$1")
    name=$(basename "$1")
    picture=$folder/${name%.*}.svg
    of_others=no
    if [ -e "$picture" ] && ! grep -qs 'data-twips-a-unit' "$picture"; then of_others=yes; fi
    if [[ $(realpath "$1") == "$(realpath "$root")"/* ]] || [ ! -w "$folder" ] || [ $of_others = yes ]; then
        mkdir -p "$root/build/drawings"
        picture=$root/build/drawings/${name%.*}.svg
    fi
    "$bin/kvtc" draw "$1" -o "$picture" && echo "Drawing: $picture" >&2
fi
exit $status
