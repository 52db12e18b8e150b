#!/usr/bin/env python3
"""Compares the programs of bench/programs with those that do the same in plain Qt. They must not
have more lines; empty ones and comments do not count.

check_programs.py --times BUILD     how long each is compiled as well: the least processor time of
                                    some runs in which the sides take turns, with the headers of the
                                    build tree BUILD and without optimisation
"""

import os
import re
import resource
import subprocess
import sys
from pathlib import Path

PROGRAMS = Path("bench/programs")
QT = "/usr/include/x86_64-linux-gnu/qt6"
RUNS = 5


def lines_of(path):
    return sum(not re.fullmatch(r"\s*(//.*)?", line) for line in path.read_text().splitlines())


def flags(path, build):
    if path.stem.endswith("_voxi"):
        rooms = sorted(Path("platform").glob("*/include"))
        return [*(f"-I{room}" for room in rooms), f"-I{build}/export"]
    return [f"-I{QT}", *(f"-I{QT}/Qt{part}" for part in ("Core", "Gui", "Widgets")), f"-I{build}"]


def compile_time(path, build):
    """What moc and the compiler take together, in seconds."""
    used = lambda: sum(resource.getrusage(resource.RUSAGE_CHILDREN)[:2])
    before = used()
    if "Q_OBJECT" in path.read_text():
        moc = os.environ.get("MOC", "/usr/lib/qt6/libexec/moc")
        subprocess.run([moc, path, "-o", f"{build}/{path.stem}.moc"], check=True)
    subprocess.run(["g++", "-std=c++20", "-fPIC", "-c", "-o", "/dev/null", *flags(path, build), path],
                   check=True)
    return used() - before


def main():
    build = sys.argv[2] if sys.argv[1:2] == ["--times"] else None
    status = 0
    for ours in sorted(PROGRAMS.glob("*_voxi.cpp")):
        theirs = ours.with_name(ours.name.replace("_voxi", "_qt"))
        lines = lines_of(ours), lines_of(theirs)
        name = ours.stem.removesuffix("_voxi")
        if lines[0] > lines[1]:
            print(f"{ours} has {lines[0]} lines, {theirs} {lines[1]}")
            status = 1
        if build:
            runs = [(compile_time(ours, build), compile_time(theirs, build)) for _ in range(RUNS)]
            times = [min(side) for side in zip(*runs)]
            print(f"| {name} | {lines[0]} | {lines[1]} | {times[0]:.2f} s | {times[1]:.2f} s |")
    return status


if __name__ == "__main__":
    sys.exit(main())
