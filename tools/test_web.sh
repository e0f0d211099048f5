#!/usr/bin/env bash
# Builds the browser page and tests it: what it makes of programs against this machine's kvtc, then the page itself in
# Chromium.
#
# Usage: tools/test_web.sh [--yes] [NATIVE_BIN] [-- TEST...]
#   --yes       missing packages are installed with sudo without a question
#   NATIVE_BIN  the programs' folder of a build with tests; build/dev/bin where none is named
#   TEST        files of tests/web that are run instead of all
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
sure=()
native=build/dev/bin
while [ $# -gt 0 ] && [ "$1" != -- ]; do
    case $1 in
        --yes) sure=(--yes) ;;
        *) native=$1 ;;
    esac
    shift
done
[ $# -eq 0 ] || shift
tests=("$@")
[ ${#tests[@]} -gt 0 ] || tests=(tests/web/*.test.mjs)

tools/web.sh "${sure[@]}" --build
cmake --build "$(dirname "$native")" --target kvtc generate_programs
tests/web/compare.sh "$native" build/web/bin build/web-fast/bin

# The driver of the browser, as the lock file has it.
modules=build/web/node
mkdir -p "$modules"
if ! cmp -s tests/web/package-lock.json "$modules/installed.json"; then
    cp tests/web/package.json tests/web/package-lock.json "$modules"
    (cd "$modules" && PUPPETEER_SKIP_DOWNLOAD=1 npm ci --no-audit --no-fund --loglevel=error)
    cp tests/web/package-lock.json "$modules/installed.json"
fi
node --test --test-concurrency=1 "${tests[@]}"
