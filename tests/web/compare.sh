#!/usr/bin/env bash
# What the builds for the browser make of programs, under node, is byte for byte what the program of this machine makes:
# "check --json" and "draw --json" of the samples and of generated programs.
# Usage: tests/web/compare.sh KVTC WEB_BIN...
#   KVTC         the program of this machine
#   WEB_BIN      the programs' folder of a build for the browser; the first one has generate_programs too
#   KVT_PROGRAMS how many programs are generated, 100 where it is not set
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
native=$1
shift
programs=${KVT_PROGRAMS:-100}
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
mkdir "$scratch/programs"
node "$1/generate_programs.js" "$scratch/programs" "$programs"
mapfile -t files < <(printf '%s\n' samples/*.cnc; find "$scratch/programs" -name '*.cnc' | sort)

# Each run's output with its status and what it tells; the status of a finding is 1.
run() {
    local out=$1 status=0
    shift
    "$@" "${files[@]}" > "$out" 2> "$out.told" || status=$?
    echo "status $status" >> "$out.told"
}
for command in check draw; do run "$scratch/native.$command" "$native" $command --json; done
for bin; do
    for command in check draw; do
        run "$scratch/web.$command" node "$bin/kvtc.js" $command --json
        for part in "" .told; do cmp "$scratch/native.$command$part" "$scratch/web.$command$part"; done
    done
    echo "$bin: ${#files[@]} programs are checked and drawn as natively," \
        "$(cat "$scratch"/web.check "$scratch"/web.draw | wc -c) bytes"
done
