#!/usr/bin/env bash
# Builds the workbench with sanitizers and runs its tests.
#
# Usage: tools/test.sh [--yes] [ARGUMENT...]
#   --yes   missing packages are installed with sudo without a question
#   What follows goes to ctest: tools/test.sh -R Editor
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
sure=()
if [ "${1:-}" = --yes ]; then
    sure=(--yes)
    shift
fi
"$root/tools/install_packages.sh" "${sure[@]}"
cd "$root"
cmake --preset dev --log-level=WARNING
cmake --build --preset dev
ctest --preset dev --output-on-failure -j2 "$@"
