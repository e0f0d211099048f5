#!/usr/bin/env bash
# Runs the checks of .clang-tidy over the sources that need no toolkit.
# Usage: tools/check_code.sh [FILE...]
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
if ! command -v clang-tidy > /dev/null; then
    echo "check_code: clang-tidy is not installed, so its checks were not made."
    exit 0
fi
if [ $# -eq 0 ]; then
    mapfile -t sources < <(git ls-files --cached --others --exclude-standard -- 'src/*.cpp' |
        grep -vE '^src/(desktop/|app/(kvt|pictures)\.cpp)')
    set -- "${sources[@]}"
fi
# What the build defines for one file.
defined=(-DKVT_VERSION='""' -DKVT_SHARED_FOLDER='""' -DKVT_PREPROCESSOR_FOLDER='""')
# Its standard error counts the warnings in headers of others.
printf '%s\0' "$@" | xargs -0 -P "$(nproc)" -n 4 bash -c \
    'clang-tidy --quiet "$@" -- -std=c++20 -Isrc '"${defined[*]@Q}"' 2> /dev/null' _
echo "check_code: $# files"
