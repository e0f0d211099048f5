#!/usr/bin/env bash
# Writes the golden files below tests/golden/ anew; `git diff tests/golden` then shows what a change makes different.
# Usage: tools/make_golden.sh [KVTC KVT_TESTS]    (those of build/dev where none are named)
#        tools/make_golden.sh --check KVTC        only compares what is made of the samples and files
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

if [ "${1:-}" = --check ]; then
    made=$(mktemp -d)
    trap 'rm -rf "$made"' EXIT
    python3 tools/golden_samples.py "$2" "$made"
    diff -r -U1 tests/golden/samples "$made/samples"
    diff -r -U1 -x '*.cnc' tests/golden/files "$made/files"
    exit
fi
rm -f tests/golden/samples/*.txt tests/golden/files/*.txt
python3 tools/golden_samples.py "${1:-build/dev/bin/kvtc}" tests/golden
KVT_GOLDEN=write "${2:-build/dev/bin/kvt_tests}" --gtest_filter='GoldenTest.*'
git status --short tests/golden
