#!/usr/bin/env bash
# Kills a workbench that is being typed into, 100 times at a random moment, and starts it again: each time the
# unsaved program has to be there, at most one second (of the script's clock) old.
# Usage: tools/kill_test.sh [KVTC [TIMES]]
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
kvtc=${1:-build/release/bin/kvtc}
times=${2:-100}
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# A line is typed every 250 ms; what "show" prints is the number of lines that were in by then.
{
    echo 'start'
    echo 'show state.lineCount'
    for line in $(seq 1 150); do
        printf 'type G01\\r%d\\r%d\\r50\\rLine %d\\r\n' $((line * 10)) $((line * -10)) "$line"
        printf 'show state.lineCount\nadvance 250\n'
    done
} > "$scratch/typing.kvts"
cat > "$scratch/again.kvts" <<'END'
answer yes
start
show state.lineCount
show state.programChanged
show state.errorFlagged
END

lost=0
caught=0
for run in $(seq 1 "$times"); do
    data=$scratch/data$run
    mkdir "$data"
    stdbuf -oL "$kvtc" script --data "$data" "$scratch/typing.kvts" > "$scratch/typed" 2> /dev/null &
    typist=$!
    sleep "0.$(printf '%03d' $((RANDOM % 400)))"
    kill -9 "$typist" 2> /dev/null || true
    wait "$typist" 2> /dev/null || true
    typed=$(sed -n 's/^state.lineCount = //p' "$scratch/typed" | tail -1)
    typed=${typed:-0}
    # Half a second is two lines; the third is the one that was being shown.
    wanted=$((typed > 3 ? typed - 3 : 0))
    "$kvtc" script --data "$data" "$scratch/again.kvts" > "$scratch/restored" 2> /dev/null
    found=$(sed -n 's/^state.lineCount = //p' "$scratch/restored")
    if [ "$found" -lt "$wanted" ]; then
        echo "run $run: $typed lines were typed, $found are there"
        lost=$((lost + 1))
    fi
    if [ "$wanted" -gt 0 ] && grep -q 'programChanged = true' "$scratch/restored"; then caught=$((caught + 1)); fi
    rm -rf "$data"
done
echo "$times kills, $caught of them with something to restore, $lost lost more than a second"
[ "$lost" -eq 0 ] && [ "$caught" -gt $((times / 4)) ]
