#!/usr/bin/env bash
# Builds the workbench with sanitizers and runs its tests. Arguments go to ctest: tools/test.sh -R Editor
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
"$root/tools/install_packages.sh"
cd "$root"
cmake --preset dev --log-level=WARNING
cmake --build --preset dev
ctest --preset dev --output-on-failure -j2 "$@"
