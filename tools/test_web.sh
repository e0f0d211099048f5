#!/usr/bin/env bash
# Builds the browser page and tests it: what it makes of programs against this machine's kvtc, then the page itself in
# Chromium.
#
# Usage: tools/test_web.sh [--yes] [KVTC] [-- TEST...]
#   --yes  missing packages are installed with sudo without a question
#   KVTC   the program of this machine; that of build/release, which is built, where none is named
#   TEST   files of tests/web that are run instead of all
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
sure=()
kvtc=
while [ $# -gt 0 ] && [ "$1" != -- ]; do
    case $1 in
        --yes) sure=(--yes) ;;
        *) kvtc=$1 ;;
    esac
    shift
done
[ $# -eq 0 ] || shift
tests=("$@")
[ ${#tests[@]} -gt 0 ] || tests=(tests/web/*.test.mjs)

tools/web.sh "${sure[@]}" --build
cmake --build build/web --target generate_programs
if [ -z "$kvtc" ]; then
    kvtc=build/release/bin/kvtc
    cmake --preset release -DKVT_CCACHE=ON --log-level=WARNING > /dev/null
    cmake --build build/release --target kvtc
fi
tests/web/compare.sh "$kvtc" build/web/bin build/web-fast/bin

# The driver of the browser, as the lock file has it.
modules=build/web/node
mkdir -p "$modules"
if ! cmp -s tests/web/package-lock.json "$modules/installed.json"; then
    cp tests/web/package.json tests/web/package-lock.json "$modules"
    (cd "$modules" && PUPPETEER_SKIP_DOWNLOAD=1 npm ci --no-audit --no-fund --loglevel=error)
    cp tests/web/package-lock.json "$modules/installed.json"
fi
# A browser on a busy machine can come too late for a moment: a file that fails has a second try, and both are told. Each
# core has one file at a time, the longest first.
run() {
    local told
    told=$(node --test --test-concurrency=1 "$1" 2>&1) || {
        echo "$told"
        echo "$1 failed; once more."
        told=$(node --test --test-concurrency=1 "$1" 2>&1) || { echo "$told"; return 1; }
    }
    echo "$told"
}
export -f run
printf '%s\0' "${tests[@]}" | sort -rz | xargs -0 -P "$(nproc)" -I{} bash -c 'run {}'
