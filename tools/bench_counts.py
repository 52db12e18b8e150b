#!/usr/bin/env python3
"""bench_counts.py PAIRS.json BIN_DIR OUT.json [FILTER]: counts where time is too noisy to decide.

Counted are the instructions, or the bytes too, of the pairs that have a goal for them, or null for
no goal. Each side runs in processes of its own, plain Qt without the toolkit: once under callgrind,
once with an allocator that keeps no freed blocks at hand, so that no block is taken for used or
overlooked. Instructions are those inside bench::measure, bytes those that the bench reports; both
of a program as a whole for Start pairs.
"""

import json
import os
import re
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

SIDES = ("voxi", "qt")
# The argument of the programs start_voxi and start_qt.
STARTS = {"StartEmpty": "0", "Start300": "100"}
CALLGRIND = ["valgrind", "--tool=callgrind", "--callgrind-out-file=/dev/null"]
MEASURED = "--toggle-collect=bench::measure(*"
NO_CACHE = {"GLIBC_TUNABLES": "glibc.malloc.tcache_count=0"}


def run(command, environment):
    environment = os.environ | {"QT_QPA_PLATFORM": "offscreen", "QT_HASH_SEED": "0"} | environment
    done = subprocess.run(command, env=environment, capture_output=True, text=True, check=False)
    if done.returncode != 0:
        raise RuntimeError(f"{' '.join(map(str, command))}: {done.stderr or done.returncode}")
    return done


def count(pair, side, folder, with_bytes):
    """measure -> what there is for each of the things that the bench is about."""
    plain = {"VOXI_BENCH_PLAIN": "1"} if side == "qt" else {}
    is_program = pair in STARTS
    command = [folder / "voxi_bench", f"--benchmark_filter=^{pair}/{side}/",
               "--benchmark_min_time=0", "--benchmark_format=json"]
    if is_program:
        command = [folder / f"start_{side}", STARTS[pair]]

    def report(output):
        if is_program:
            return {"bytes": int(output), "iterations": 1}
        bench, = json.loads(output)["benchmarks"]
        if bench.get("error_occurred"):
            raise RuntimeError(f"{pair}: {bench['error_message']}")
        return bench

    counted = run([*CALLGRIND, *([] if is_program else [MEASURED]), *command], plain)
    collected = int(re.search(r"Collected : (\d+)", counted.stderr)[1])
    counts = {"instructions": collected / report(counted.stdout)["iterations"]}
    if with_bytes:
        counts["bytes"] = report(run(command, plain | NO_CACHE).stdout)["bytes"]
    return counts


def main():
    pairs_file, folder, out, *only = sys.argv[1:]
    pairs = {name: pair
             for name, pair in json.loads(Path(pairs_file).read_text(encoding="utf-8")).items()
             if "instructions" in pair and re.search(only[0] if only else "", name)}
    with ThreadPoolExecutor(os.cpu_count()) as executor:
        jobs = {name: [executor.submit(count, name, side, Path(folder), "bytes" in pair)
                       for side in SIDES]
                for name, pair in pairs.items()}
    counts = {}
    for name, sides in jobs.items():
        ours, plain = (side.result() for side in sides)
        counts[name] = {measure: [round(ours[measure], 1), round(plain[measure], 1)]
                        for measure in ours}
    Path(out).write_text(json.dumps(counts, indent=4) + "\n", encoding="utf-8")


main()
