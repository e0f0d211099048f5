#!/bin/sh
# Makes the help documents as pages to be read without the program, docs/help/.
# Usage: tools/make_help.sh [MAKE_HELP]   (that of build/release where none is named)
#        tools/make_help.sh --check MAKE_HELP    only compares the pages with what would be made
set -eu
cd "$(dirname "$0")/.."
if [ "${1:-}" = --check ]; then
    made=$(mktemp -d)
    trap 'rm -rf "$made"' EXIT
    "$2" help "$made"
    diff -r -q -x README.md docs/help "$made"
    exit
fi
rm -rf docs/help
mkdir -p docs/help
"${1:-build/release/bin/make_help}" help docs/help
cat > docs/help/README.md <<'END'
# The help documents

Made from `help/` by `tools/make_help.sh`; the window shows the same pages with F1 and Shift+F1.

| | English | Deutsch |
|---|---|---|
| Help | [editor](en/editor.html) | [Hilfe](de/editor.html) |
| Codes of the MK2 | [gcode_mk2](en/gcode_mk2.html) | [gcode_mk2](de/gcode_mk2.html) |
| Codes of the MK4 (and F1) | [gcode_mk4](en/gcode_mk4.html) | [gcode_mk4](de/gcode_mk4.html) |
| About | [about](en/about.html) | [about](de/about.html) |
END
