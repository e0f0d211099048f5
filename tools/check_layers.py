#!/usr/bin/env python3
"""Checks that the includes of src/ follow the layering that docs/architecture.md describes.

Usage: check_layers.py [PROJECT_ROOT]

Prints one line per include that goes the wrong way and exits with 1 if there was any. An include is
judged by the folder that the named file stands in, however its path is written.
"""

import re
import sys
from pathlib import Path

CORE = ("basic", "platform", "program", "interpreter", "editor", "files")

# Room -> the other rooms whose headers it may include.
MAY_INCLUDE = {room: set(CORE[:level]) for level, room in enumerate(CORE)}
MAY_INCLUDE["transfer"] = set(CORE)
MAY_INCLUDE["draw"] = set(CORE)
MAY_INCLUDE["shell"] = {*CORE, "transfer", "draw"}
MAY_INCLUDE["system"] = {"basic", "platform"}
MAY_INCLUDE["headless"] = {"basic", "platform", "system"}
MAY_INCLUDE["desktop"] = {"basic", "platform", "system"}
MAY_INCLUDE["web"] = {"basic", "platform"}
MAY_INCLUDE["console"] = {*MAY_INCLUDE["shell"], "shell", "system", "scripts"}
# The files of console/ that run scripts: no other command plays a user, or plans failures.
MAY_INCLUDE["scripts"] = {*MAY_INCLUDE["console"], "console", "headless"}
MAY_INCLUDE["app"] = {*MAY_INCLUDE["scripts"], "desktop", "web"} - {"headless"}

# Headers from outside, by the beginning of their names -> the rooms that may include them.
FOREIGN = (
    (re.compile(r"Q[A-Za-z]"), {"desktop", "app"}, "the windowing toolkit"),
    (re.compile(r"CLI/"), {"console", "scripts", "app"}, "the option library"),
    (re.compile(r"rapidjson/"), {"console", "scripts", "web", "app"}, "the JSON library"),
    (re.compile(r"png\.h"), {"platform"}, "the library of PNG files"),
)

INCLUDE = re.compile(r'\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>)')


def room_of(path: Path, src: Path) -> str | None:
    """The room that a file stands in, or None for one outside src/."""
    try:
        parts = path.resolve().relative_to(src).parts
        return "scripts" if parts[0] == "console" and parts[-1].startswith("script") else parts[0]
    except ValueError:
        return None


def fault(path: Path, room: str, quoted: str | None, angled: str | None, src: Path) -> str | None:
    """What is wrong with one include, or None."""
    name = quoted or angled or ""
    for pattern, rooms, what in FOREIGN:
        if pattern.match(name) and room not in rooms:
            return f"{what} may not be included in {room}/: {name}"
    for place in (path.parent / name, src / name):
        if place.is_file():
            target = room_of(place, src)
            if target is None:
                return f"includes a file outside src/: {name}"
            if target != room and target not in MAY_INCLUDE[room]:
                return f"{room}/ may not include {target}/: {name}"
            return None
    target = name.split("/")[0]
    if target in MAY_INCLUDE and "/" in name:
        return f"no such file: {name}"
    return None


def check(root: Path) -> list[str]:
    """All faults of the project at root, each as FILE:LINE: text."""
    src = (root / "src").resolve()
    if not src.is_dir():
        return [f"{root}: no folder src"]
    faults = []
    for path in sorted(p for p in src.rglob("*") if p.suffix in {".h", ".hpp", ".cpp", ".cc"}):
        shown = path.relative_to(src.parent)
        room = room_of(path, src)
        if room not in MAY_INCLUDE:
            faults.append(f"{shown}: stands in no room")
            continue
        for number, line in enumerate(path.read_text(encoding="utf-8", errors="replace").splitlines(), 1):
            found = INCLUDE.match(line)
            wrong = found and fault(path, room, found[1], found[2], src)
            if wrong:
                faults.append(f"{shown}:{number}: {wrong}")
    return faults


def main() -> int:
    default = Path(__file__).resolve().parent.parent
    faults = check(Path(sys.argv[1]) if len(sys.argv) > 1 else default)
    print("\n".join(faults) if faults else "check_layers: all includes point the right way")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
