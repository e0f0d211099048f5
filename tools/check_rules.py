#!/usr/bin/env python3
"""Looks whether the files and names of docs/rules.md are there."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
ROW = re.compile(r"^\| .* \| (\S+) \| `(\w+)` \|$")


def main():
    missing = []
    for number, line in enumerate((ROOT / "docs/rules.md").read_text(encoding="utf-8").splitlines(), 1):
        row = ROW.match(line)
        if not row:
            continue
        files = [ROOT / "src" / (row[1] + ending) for ending in (".h", ".cpp")]
        text = "".join(file.read_text(encoding="utf-8") for file in files if file.exists())
        if not re.search(rf"\b{row[2]}\b", text):
            missing.append(f"docs/rules.md:{number}: no {row[2]} in {row[1]}")
    print("\n".join(missing) or "check_rules: every rule is where the page says")
    return 1 if missing else 0


sys.exit(main())
