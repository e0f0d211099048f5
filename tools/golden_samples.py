#!/usr/bin/env python3
"""Writes what kvtc makes of program files: golden_samples.py KVTC FOLDER, from the project's folder.

FOLDER/samples gets one text a sample: the listing, the state with one member or row a line, and a digest of the
drawing that a person can review: strokes by kind and colour, extents, and a hash of all of it. FOLDER/files gets the
state and the written file of each program in tests/golden/files, whose lines test the columns of the file formats.
"""

import collections
import hashlib
import json
import pathlib
import subprocess
import sys
import tempfile


def output(*words):
    """What a call prints; 1 is the status of a program with a finding."""
    run = subprocess.run([str(word) for word in words], capture_output=True, check=False)
    if run.returncode not in (0, 1):
        sys.exit(f"{words}: {run.stderr.decode(errors='replace')}")
    return run.stdout.decode()


def compact(value):
    return json.dumps(value, ensure_ascii=False, separators=(",", ":"))


def state_lines(state):
    for name, value in state.items():
        if name == "rows":
            yield "rows:"
            yield from ("  " + compact(row) for row in value)
        elif name == "labels":
            yield from (f"  {key} {text}" for key, text in value.items())
        else:
            yield f"{name}: {compact(value)}"


def drawing_lines(text):
    counts = collections.Counter()
    places = {axis: [] for axis in "xy"}
    for one in json.loads(text):
        colour = one.get("color")
        counts[f"{one['op']} {colour:06X}" if isinstance(colour, int) else one["op"]] += 1
        # The lines of the grid cross the whole field.
        if 40000 in (one.get("x2"), one.get("y2")):
            continue
        for name in ("x1", "x2", "y1", "y2"):
            if name in one:
                places[name[0]].append(one[name])
    yield from (f"{count} {kind}" for kind, count in sorted(counts.items()))
    yield from (f"{axis} {min(found):g} to {max(found):g}" for axis, found in places.items() if found)
    yield "sha256 " + hashlib.sha256(text.encode()).hexdigest()


def write(folder, name, lines):
    folder.mkdir(parents=True, exist_ok=True)
    (folder / f"{name}.txt").write_text("\n".join(lines) + "\n", encoding="utf-8")


def main():
    kvtc, folder = sys.argv[1], pathlib.Path(sys.argv[2])
    samples = sorted(pathlib.Path("samples").glob("*.cnc"))
    states = output(kvtc, "check", "--json", *samples).splitlines()
    drawings = output(kvtc, "draw", "--json", *samples).splitlines()
    for sample, state, drawing in zip(samples, states, drawings, strict=True):
        lines = ["== Listing", output(kvtc, "check", sample).rstrip("\n"), "== State"]
        lines += [*state_lines(json.loads(state)), "== Drawing", *drawing_lines(drawing)]
        write(folder / "samples", sample.stem, lines)

    files = sorted(pathlib.Path("tests/golden/files").glob("*.cnc"))
    states = output(kvtc, "check", "--json", *files).splitlines()
    with tempfile.TemporaryDirectory() as temporary:
        for file, state in zip(files, states, strict=True):
            written = pathlib.Path(temporary) / file.name
            output(kvtc, "format", file, "-o", written)
            text = written.read_bytes().decode("cp1252", errors="backslashreplace")
            lines = [*state_lines(json.loads(state)), "== Written"]
            write(folder / "files", file.stem, lines + [line + "$" for line in text.split("\r\n")])


main()
