#!/bin/sh
# Writes what a screen reader sees of the workbench into docs/accessible_tree.txt.
# Usage: tools/accessible_tree.sh [KVT]   (that of build/release where none is named)
set -eu
cd "$(dirname "$0")/.."
xvfb-run -a -s "-screen 0 1366x768x24 -noreset" dbus-run-session -- /usr/bin/python3 tests/desktop/accessible_walk.py \
    "${1:-build/release/bin/kvt}" samples/mk4_bolt.cnc --tree |
    sed -e "s#$PWD/##" -e '/^SpiRegistry/d' > docs/accessible_tree.txt
