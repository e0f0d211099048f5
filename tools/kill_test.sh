#!/usr/bin/env bash
# Kills a workbench that is being typed into, 100 times at a random moment, and starts it again: each time the
# unsaved program has to be there, at most one second (of the script's clock) old. Then kills one that receives,
# imports, converts and saves, as often: every program that stood for half a second has to be in some file.
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

# Waits until a program under test has left a first trace, a file with something in it below a folder; a busy machine
# takes its time.
begun() {
    for _ in $(seq 1000); do
        [ -z "$(find "$1" -name "$2" -size +0)" ] || return 0
        sleep 0.01
    done
}

lost=0
caught=0
for run in $(seq 1 "$times"); do
    data=$scratch/data$run
    mkdir "$data"
    : > "$scratch/typed"
    stdbuf -oL "$kvtc" script --data "$data" "$scratch/typing.kvts" > "$scratch/typed" 2> /dev/null &
    typist=$!
    begun "$scratch" typed
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

# Each round brings three programs, known by a word in their notes or comments, and tells of each that has stood
# long enough to be kept.
program() { printf '%s\\r\\n%%\\r\\n    N` G`   X `    Z `  F`  H \\r\\n    00 00  1000    100\\r\\n    01M30\\r\\n   M\\r\\n' "$1"; }
{
    echo '# options: --ports 1'
    # shellcheck disable=SC2016 # for the pre-processor's own shell
    printf 'program ${PP}/copy.MK4 #!/bin/sh\\ncp "$KVT_FILE" "$KVT_FILE.~pp"\n'
    echo 'start'
    for round in $(seq 1 40); do
        printf 'receive %s\nclick cmdReceiveImport\nadvance 600\necho received_%d_\n' "$(program "received_${round}_")" "$round"
        printf 'row 2\nfocus txtGMcode\ntype 00\\r100\\r100\\rtyped_%d_\\r\nadvance 600\necho typed_%d_\n' "$round" "$round"
        printf 'click %s\nadvance 600\n' "$([ $((round % 2)) -eq 1 ] && echo mnuMMtoINCH || echo mnuINCHtoMM)"
        printf 'write ${DATA}/in%d.nc %s\n' "$round" "$(program "imported_${round}_")"
        printf 'answer yes\nfile ${DATA}/in%d.nc\nfile ${DATA}/saved%d.cnc\nclick mnuPP 0\nadvance 600\necho imported_%d_\n' "$round" "$round" "$round"
    done
} | sed 's/^echo \(.*\)$/write ${DATA}\/stood_\1 1/' > "$scratch/working.kvts"

lost=0
programs=0
for run in $(seq 1 "$times"); do
    data=$scratch/work$run
    mkdir "$data"
    "$kvtc" script --data "$data" "$scratch/working.kvts" > /dev/null 2>&1 &
    worker=$!
    begun "$data" stood_received_1_
    sleep "0.$(printf '%03d' $((RANDOM % 700)))"
    kill -9 "$worker" 2> /dev/null || true
    wait "$worker" 2> /dev/null || true
    while read -r name; do
        word=${name#stood_}
        programs=$((programs + 1))
        # What it was made from does not count.
        if ! grep -rqlF --include='*.txt' --include='saved*.cnc' -- "$word" "$data"; then
            echo "run $run: $word is nowhere"
            lost=$((lost + 1))
        fi
    done < <(find "$data" -name 'stood_*' -printf '%f\n')
    rm -rf "$data"
done
echo "$times kills at work, $programs programs had stood, $lost are lost"
[ "$lost" -eq 0 ] && [ "$programs" -gt "$times" ]
