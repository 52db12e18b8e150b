#!/usr/bin/env python3
"""run_tidy.py BUILD-FOLDER < list of sources: clang-tidy, one process per core.

Takes g++'s precompiled headers out of the commands: clang cannot read them, and a source that
leans on one instead of including what it uses is found this way.
"""

import json
import os
import re
import subprocess
import sys
import tempfile
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path


def clang_command(command):
    return re.sub(r" -fpch-preprocess\b| -Winvalid-pch -include \S*cmake_pch\.hxx", "", command)


def main():
    build = Path(sys.argv[1])
    sources = [str(Path(line.strip()).resolve()) for line in sys.stdin if line.strip()]
    database = json.loads((build / "compile_commands.json").read_text(encoding="utf-8"))
    for entry in database:
        entry["command"] = clang_command(entry["command"])

    with tempfile.TemporaryDirectory() as folder:
        (Path(folder) / "compile_commands.json").write_text(json.dumps(database), encoding="utf-8")

        def tidy(source):
            return subprocess.run(["clang-tidy", "--quiet", "-p", folder, source],
                                  stdin=subprocess.DEVNULL, capture_output=True, text=True)

        with ThreadPoolExecutor(os.cpu_count()) as pool:
            results = list(pool.map(tidy, sources))
    for result in results:
        if result.returncode != 0 or "warning:" in result.stdout:
            print(result.stdout.strip() or result.stderr.strip())
    return 1 if any(result.returncode for result in results) else 0


sys.exit(main())
