#!/usr/bin/env python3
"""Notes files over 400 lines and functions over 60. It fails nothing: some have a reason."""

import re
import subprocess
from pathlib import Path

FILE_LINES = 400
FUNCTION_LINES = 60

# A body of a function that clang-format laid out: its braces stand alone in the same column.
OPEN = re.compile(r"^( *)\{$")
NO_FUNCTION = re.compile(r"\b(class|struct|union|enum|namespace)\b[^()]*$")


def long_functions(lines):
    for start, line in enumerate(lines):
        brace = OPEN.match(line)
        if not brace or start == 0 or NO_FUNCTION.search(lines[start - 1]):
            continue
        for end in range(start + 1, len(lines)):
            if lines[end].rstrip() in (brace[1] + "}", brace[1] + "};"):
                if end - start > FUNCTION_LINES:
                    yield start, end - start
                break


def main():
    listing = subprocess.run(
        ["git", "ls-files", "-co", "--exclude-standard", "--", "*.cpp", "*.h"],
        capture_output=True, text=True, check=True)
    for path in map(Path, listing.stdout.split()):
        if not path.exists():
            continue
        lines = path.read_text(encoding="utf-8").splitlines()
        if len(lines) > FILE_LINES:
            print(f"note: {path} has {len(lines)} lines")
        for start, length in long_functions(lines):
            print(f"note: {path}:{start}: a function of {length} lines")


main()
