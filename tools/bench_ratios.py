#!/usr/bin/env python3
"""bench_ratios.py BENCH.json [GOALS.json]: the toolkit's benches beside plain Qt's, as ratios.

A pair is two benches whose names differ only in the part voxi or qt: Click/voxi/100 and
Click/qt/100. Compared are the medians over the repetitions: of the real time, and of each user
counter that both sides have (p50_ns, bytes_per_widget ...). A goal is the greatest ratio allowed,
by pair name, or by pair name and counter: {"Click/100": 1.1, "Click/100 p99_ns": 2.0}.
"""

import json
import re
import sys
from collections import defaultdict
from pathlib import Path
from statistics import median

SIDES = ("voxi", "qt")
NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}
# What Google Benchmark itself writes into each run; every other number is a counter of the bench.
OWN_FIELDS = {
    "family_index", "per_family_instance_index", "repetitions", "repetition_index", "threads",
    "iterations", "real_time", "cpu_time", "label", "bytes_per_second", "items_per_second",
}
# How a bench was run is no part of what it measures.
RUN_OPTIONS = re.compile(r"/(repeats|iterations|min_time|min_warmup_time|threads):[^/]+"
                         r"|/(real_time|process_time|manual_time)\b")
TIME = "time"


def side_and_pair(name):
    parts = RUN_OPTIONS.sub("", name).split("/")
    for index, part in enumerate(parts):
        if part in SIDES:
            return part, "/".join(parts[:index] + parts[index + 1:])
    return None, "/".join(parts)


def measurements(runs):
    """pair -> measure -> side -> values of the repetitions. A bench without a pair counts as ours."""
    values = defaultdict(lambda: defaultdict(lambda: defaultdict(list)))
    for run in runs:
        if run.get("run_type") != "iteration":
            continue
        side, pair = side_and_pair(run["run_name"])
        if run.get("error_occurred"):
            print(f"{run['run_name']}: {run.get('error_message', 'failed')}")
            continue
        side = side or "voxi"
        values[pair][TIME][side].append(run["real_time"] * NANOSECONDS[run["time_unit"]])
        for field, value in run.items():
            if field not in OWN_FIELDS and isinstance(value, (int, float)):
                values[pair][field][side].append(value)
    return values


def number(value, measure):
    if measure == TIME or measure.endswith("_ns"):
        for unit, size in (("s", 1e9), ("ms", 1e6), ("us", 1e3)):
            if value >= size:
                return f"{value / size:.3g} {unit}"
        return f"{value:.3g} ns"
    return f"{value:.4g}"


def rows(values, goals):
    for pair, measures in values.items():
        for measure, sides in measures.items():
            medians = {side: median(sides[side]) for side in SIDES if sides.get(side)}
            shown = [number(medians[side], measure) if side in medians else "-" for side in SIDES]
            ratio = medians["voxi"] / medians["qt"] if len(medians) == 2 and medians["qt"] else None
            goal = goals.get(pair if measure == TIME else f"{pair} {measure}")
            verdict = ""
            if ratio is not None and goal is not None:
                verdict = "met" if ratio <= goal else "MISSED"
            yield [pair, measure, *shown, "-" if ratio is None else f"{ratio:.2f}",
                   "" if goal is None else f"{goal:g}", verdict]


def main():
    report = json.loads(Path(sys.argv[1]).read_text(encoding="utf-8"))
    goals = {}
    if len(sys.argv) > 2 and Path(sys.argv[2]).is_file():
        goals = json.loads(Path(sys.argv[2]).read_text(encoding="utf-8"))

    table = [["bench", "measure", *SIDES, "ratio", "goal", ""]]
    table += rows(measurements(report["benchmarks"]), goals)
    if len(table) == 1:
        print("no bench ran")
        return 1
    widths = [max(len(row[column]) for row in table) for column in range(len(table[0]))]
    print()
    for row in table:
        cells = [cell.ljust(width) if column < 2 else cell.rjust(width)
                 for column, (cell, width) in enumerate(zip(row, widths))]
        print("  ".join(cells).rstrip())
    return 0


sys.exit(main())
