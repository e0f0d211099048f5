#!/usr/bin/env bash
# Builds the workbench as a browser page and serves it at a port of this machine, for a try.
#
# Usage: tools/web.sh [--yes] [--build] [PORT]
#   --yes    missing packages are installed with sudo without a question
#   --build  only builds; the page is then the folder build/web/page, and kvt.html in it the page in a single file
#   PORT     8080 where none is named
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
sure=()
serves=yes
port=8080
for word; do
    case $word in
        --yes) sure=(--yes) ;;
        --build) serves=no ;;
        [0-9]*) port=$word ;;
        *) echo "usage: tools/web.sh [--yes] [--build] [PORT]" >&2; exit 2 ;;
    esac
done

tools/install_packages.sh "${sure[@]}" web
# Two builds of the same sources: the second one is for browsers that switch stacks themselves.
cmake --preset web --log-level=WARNING > /dev/null
cmake --build --preset web
cmake --preset web-fast --log-level=WARNING > /dev/null
cmake --build --preset web-fast
node tools/make_page.mjs build/web/page build/web/bin build/web-fast/bin
[ $serves = yes ] || exit 0

echo "The workbench is at http://127.0.0.1:$port/ until Ctrl+C."
exec python3 -m http.server "$port" --bind 127.0.0.1 --directory build/web/page
