#!/usr/bin/env python3
"""bench_ratios.py PAIRS.json BENCH.json COUNTS.json [PAGE.md]: the toolkit beside plain Qt.

BENCH.json is Google Benchmark's: a pair is the benches NAME/voxi and NAME/qt. Compared are the
medians over the repetitions: of the time, and of each counter that both have (p50_ns ...). What
bench_counts.py counted stands beside them. PAIRS.json says per pair what the plain side does, and
by measure the greatest ratio allowed. The table is printed, and put into PAGE.md if there is one.
"""

import json
import re
import sys
from collections import defaultdict
from pathlib import Path
from statistics import median

SIDES = ("voxi", "qt")
NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}
# What Google Benchmark itself writes into each run; every other number is a counter of the bench,
# of which the heap's means nothing in a process that runs many.
NO_MEASURES = {
    "family_index", "per_family_instance_index", "repetitions", "repetition_index", "threads",
    "iterations", "real_time", "cpu_time", "bytes",
}
NAME = re.compile(r"(.+)/(voxi|qt)(/|$)")
TABLE = re.compile(r"(?<=<!-- table -->\n).*(?=<!-- end of table -->)", re.DOTALL)


def read(file):
    return json.loads(Path(file).read_text(encoding="utf-8"))


def measurements(runs, counts):
    """pair -> measure -> [ours, plain]."""
    values = defaultdict(lambda: defaultdict(lambda: ([], [])))
    for run in runs:
        if run.get("run_type") != "iteration":
            continue
        if run.get("error_occurred"):
            print(f"{run['run_name']}: {run.get('error_message', 'failed')}")
            continue
        pair, side, _ = NAME.match(run["run_name"]).groups()
        found = {"time": run["real_time"] * NANOSECONDS[run["time_unit"]]}
        found |= {field: value for field, value in run.items()
                  if field not in NO_MEASURES | {"time"} and isinstance(value, (int, float))}
        for measure, value in found.items():
            values[pair][measure][SIDES.index(side)].append(value)
    medians = {pair: {measure: list(map(median, sides)) for measure, sides in measures.items()
                      if all(sides)}
               for pair, measures in values.items()}
    for pair, measures in counts.items():
        medians.setdefault(pair, {}).update(measures)
    return medians


def number(value, measure):
    if measure == "time" or measure.endswith("_ns"):
        for unit, size in (("s", 1e9), ("ms", 1e6), ("us", 1e3)):
            if value >= size:
                return f"{value / size:.3g} {unit}"
        return f"{value:.3g} ns"
    return f"{value:,.0f}".replace(",", " ")


def rows(pairs, measured):
    for name in [*pairs, *sorted(measured.keys() - pairs.keys())]:
        pair = pairs.get(name, {"plain": "NOT IN PAIRS.json"})
        for index, (measure, sides) in enumerate(measured.get(name, {}).items()):
            ratio = sides[0] / sides[1] if sides[1] else None
            goal = pair.get(measure)
            verdict = "" if goal is None or ratio is None else "met" if ratio <= goal else "MISSED"
            yield [name, measure, *(number(side, measure) for side in sides),
                   "-" if ratio is None else f"{ratio:.2f}", "" if goal is None else f"{goal:g}",
                   verdict, pair["plain"] if index == 0 else ""]


def aligned(table):
    widths = [max(map(len, column)) for column in zip(*table)]
    for row in table:
        yield "  ".join(cell.ljust(width) if column < 2 else cell.rjust(width)
                        for column, (cell, width) in enumerate(zip(row, widths))).rstrip()


def main():
    pairs_file, bench_file, counts_file, *page = sys.argv[1:]
    pairs = read(pairs_file)
    report = read(bench_file)
    table = list(rows(pairs, measurements(report["benchmarks"], read(counts_file))))
    if not table:
        print("no bench ran")
        return 1
    head = ["bench", "measure", *SIDES, "ratio", "goal", ""]
    print("", *aligned([head, *(row[:-1] for row in table)]), sep="\n")
    if page:
        lines = [[*head[:-1], "the plain side"], ["---"] * 2 + ["---:"] * 4 + ["---"]]
        lines += [[*row[:-2], row[-1]] for row in table]
        machine = report["context"]
        text = (f"Medians of {report['benchmarks'][0]['repetitions']}; {machine['num_cpus']} "
                f"processors, whose load was {machine['load_avg'][0]:.1f} before.\n\n")
        text += "".join(f"| {' | '.join(line)} |\n" for line in lines)
        path = Path(page[0])
        path.write_text(TABLE.sub(text, path.read_text(encoding="utf-8")), encoding="utf-8")
    return 0


sys.exit(main())
