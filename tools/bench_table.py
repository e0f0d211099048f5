#!/usr/bin/env python3
"""Runs the benchmarks and prints their medians beside the budget of docs/architecture.md, as a table.

Usage: bench_table.py KVT_BENCH [SECONDS]    SECONDS each benchmark is given, 0.1 without

It judges nothing: a busy machine is slow. The status is 0 unless the benchmarks do not run.
"""

import json
import subprocess
import sys

# Name -> budget in microseconds.
BUDGET = {
    "CheckPass210": 60,
    "Load210": 120,
    "Undo210/0": 2000,
    "Write210": 200,
    "Draw210": 200,
    "DrawGrowth/20000": 200_000,
    "CheckJson210": 1_000_000 / 3000,
}


def measured(program, seconds):
    """The time of each benchmark in microseconds, by name."""
    run = subprocess.run(
        [program, "--benchmark_format=json", f"--benchmark_min_time={seconds}"], stdout=subprocess.PIPE, check=True)
    times = {}
    for one in json.loads(run.stdout)["benchmarks"]:
        if one.get("error_occurred"):
            sys.exit(f"bench_table: {one['name']}: {one['error_message']}")
        times[one["name"], one.get("label", "")] = one["real_time"]
    return times


def row(what, value, budget, unit="us"):
    share = f"{100 * value / budget:4.0f} %" if budget else ""
    print(f"{what:36} {value:12.1f} {unit:5} {f'{budget:12.0f}' if budget else '':12} {share:>7}")


def main():
    if len(sys.argv) not in (2, 3):
        sys.exit(__doc__.split("\n\n")[1])
    times = measured(sys.argv[1], sys.argv[2] if len(sys.argv) == 3 else "0.1")
    print(f"{'what':36} {'measured':>12} {'':5} {'budget':>12} {'of it':>7}")
    for (name, label), time in times.items():
        row(f"{name} {label}".strip(), time, BUDGET.get(name, BUDGET.get(name.split("/")[0])))
    by_name = {name: time for (name, _), time in times.items()}
    yardstick = by_name.get("Yardstick210")
    passes = [time for name, time in by_name.items() if name.startswith("CheckPass210")]
    if yardstick and passes:
        row("slowest pass", max(passes) / yardstick, 3, "yards")
    few, many = by_name.get("CheckPassGrowth/200"), by_name.get("CheckPassGrowth/20000")
    if few and many:
        row("20,000 lines for 200", many / few, 110, "times")


main()
