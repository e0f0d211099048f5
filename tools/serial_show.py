#!/usr/bin/env python3
"""Sends every sample over a pseudo-terminal pair at the true pace, with and without the filter, and takes it back
from the played machine, all at once; compares byte for byte and measures how long the line is idle between lines.

Usage: tools/serial_show.py [--kvtc PATH] [--baud 300] [FILE...]
"""

import argparse
import os
import pathlib
import pty
import select
import subprocess
import sys
import tempfile
import time
import tty

ROOT = pathlib.Path(__file__).resolve().parent.parent
BITS = 10  # of a character, with one start bit and one stop bit
LONGEST_IDLE = 20  # milliseconds
TURN = 0.1  # seconds


def lines_on_the_wire(file, filtered):
    """The plain rule: what of a file's lines goes out."""
    begun, out = not filtered, b""
    for line in file.split(b"\r\n"):
        begun = begun or line == b"%"
        if begun and line and not line.startswith(b";"):
            out += (line[:30] if filtered else line) + b"\r\n"
    return out


class Sending:
    """kvtc send, with this program as the other end of the line."""

    def __init__(self, kvtc, file, expected, filtered, baud):
        self.name = f"{file.name} {'filtered' if filtered else 'whole'}"
        self.expected, self.each = expected, BITS / baud
        self.handle, self.other = pty.openpty()
        tty.setraw(self.other)
        self.arrived, self.busy_until, self.idle = b"", None, 0.0
        command = [kvtc, "send", file, "--port", os.ttyname(self.other), "--settings", f"{baud},N,8,1"]
        self.process = subprocess.Popen(command + ([] if filtered else ["--comments"]), stdout=subprocess.DEVNULL)

    def take(self):
        piece, now = os.read(self.handle, 65536), time.monotonic()
        if self.busy_until is not None:
            self.idle = max(self.idle, now - self.busy_until)
        self.busy_until = max(now, self.busy_until or now) + len(piece) * self.each
        self.arrived += piece

    def over(self):
        return self.process.poll() is not None and not select.select([self.handle], [], [], 0)[0]

    def result(self):
        return self.process.returncode == 0 and self.arrived == self.expected


class Played:
    """kvtc machine at one end, kvtc send or receive at the other one."""

    def __init__(self, kvtc, file, expected, sends, baud, folder):
        self.name = f"{file.name} {'to' if sends else 'from'} the played machine"
        self.out = folder / (self.name + ".out")
        self.expected = expected
        machine = file.name[:3].upper() if not file.name.startswith("f1") else "F1"
        way = ["--receive", self.out] if sends else ["--send", file]
        command = [kvtc, "machine", "--machine", machine, "--baud", str(baud), *way]
        self.machine = subprocess.Popen(command, stdout=subprocess.PIPE, text=True)
        self.machine.stdout.readline()
        port = self.machine.stdout.readline().strip().removeprefix("KVT_PORTS=")
        command = [kvtc, "send", file] if sends else [kvtc, "receive", self.out, "--idle", "5"]
        command += ["--port", port, "--settings", f"{baud},N,8,1"]
        self.process = subprocess.Popen(command, stdout=subprocess.DEVNULL)

    def over(self):
        return self.process.poll() is not None and self.machine.poll() is not None

    def result(self):
        return (self.process.returncode, self.machine.returncode) == (0, 0) and (
            self.out.read_bytes() == self.expected)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--kvtc", default=ROOT / "build/release/bin/kvtc")
    parser.add_argument("--baud", type=int, default=300)
    parser.add_argument("files", nargs="*", type=pathlib.Path)
    given = parser.parse_args()
    with tempfile.TemporaryDirectory() as scratch:
        folder = pathlib.Path(scratch)
        runs = []
        for sample in given.files or sorted((ROOT / "samples").glob("*.cnc")):
            file = folder / sample.name
            # Status 1 is a program with findings; it crosses the line like any other.
            if subprocess.run([given.kvtc, "format", sample, "-o", file], stdout=subprocess.DEVNULL).returncode > 1:
                sys.exit(f"{sample} cannot be read")
            whole, filtered = (lines_on_the_wire(file.read_bytes(), f) for f in (False, True))
            runs += [Sending(given.kvtc, file, whole, False, given.baud),
                     Sending(given.kvtc, file, filtered, True, given.baud),
                     Played(given.kvtc, file, filtered, True, given.baud, folder),
                     Played(given.kvtc, file, filtered, False, given.baud, folder)]
        began, waiting = time.monotonic(), list(runs)
        away, back = 0.0, began  # for how long the computer had no time for this program
        while waiting:
            ends = {run.handle: run for run in waiting if isinstance(run, Sending)}
            for handle in select.select(list(ends), [], [], TURN)[0]:
                ends[handle].take()
            waiting = [run for run in waiting if not run.over()]
            away, back = max(away, time.monotonic() - back - TURN), time.monotonic()
        wrong = [run.name for run in runs if not run.result()]
    sendings = [run for run in runs if isinstance(run, Sending)]
    idle = max(run.idle for run in sendings) * 1000
    print(f"{len(runs)} transfers at {given.baud} baud in {time.monotonic() - began:.0f} s, "
          f"{sum(len(run.expected) for run in runs)} characters; {len(wrong)} differ")
    late = sum(run.idle * 1000 > LONGEST_IDLE for run in sendings)
    print(f"longest idle line in {len(sendings)} sendings: {idle:.1f} ms, in {late} of them above {LONGEST_IDLE} ms; "
          f"this program itself was away for {away * 1000:.0f} ms at the most")
    for name in wrong:
        print("differs:", name)
    return 1 if wrong or idle > LONGEST_IDLE else 0


if __name__ == "__main__":
    sys.exit(main())
