#!/usr/bin/env bash
# Runs the checks of .clang-tidy over the sources; those of the window where Qt is installed.
# Usage: tools/check_code.sh [FILE...]
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
if ! command -v clang-tidy > /dev/null; then
    echo "check_code: clang-tidy is not installed, so its checks were not made."
    exit 0
fi
# What the build defines for single files.
flags=(-std=c++20 -Isrc -DKVT_VERSION='""' -DKVT_SHARED_FOLDER='""' -DKVT_PREPROCESSOR_FOLDER='""' -DKVT_SOURCE_DIR='""')
# What needs headers that are not here: those of Emscripten, and of Qt where that was not found.
left_out='^src/web/emscripten_'
needs_qt='^src/(desktop/|app/(kvt|pictures)\.cpp)'
if qt=$(pkg-config --cflags Qt6Widgets Qt6PrintSupport Qt6Test 2> /dev/null); then
    # As headers of the system, which are not looked at.
    read -ra qt <<< "${qt//-I/-isystem}"
    flags+=(-DQT_NO_KEYWORDS "${qt[@]}")
else
    left_out="$left_out|$needs_qt"
    echo "check_code: Qt was not found by pkg-config, so the sources of the window were left out."
fi
if [ $# -eq 0 ]; then
    mapfile -t sources < <(git ls-files --cached --others --exclude-standard -- 'src/*.cpp' | grep -vE "$left_out")
    set -- "${sources[@]}"
fi
# Its standard error counts the warnings in headers of others.
printf '%s\0' "$@" | xargs -0 -P "$(nproc)" -n 4 bash -c \
    'clang-tidy --quiet "$@" -- '"${flags[*]@Q}"' 2> /dev/null' _
echo "check_code: $# files"
