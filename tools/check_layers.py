#!/usr/bin/env python3
"""Checks who includes whom. The map below is the architecture; the rest only reads it."""

import re
import subprocess
import sys
from pathlib import Path

# Room -> (its folders, the rooms that it may see besides itself). The words "qt" and "boost"
# stand for those libraries; the standard library is open to all.
PLATFORM = ["voxi_util", "trov", "voxi", "voxi2", "jhost_services"]
ROOMS = {
    "voxi_util": (["platform/voxi_util"], []),
    "trov": (["platform/trov"], ["voxi_util"]),
    "voxi": (["platform/voxi"], ["trov", "voxi_util"]),
    "voxi2": (["platform/voxi2"], ["voxi", "trov", "voxi_util"]),
    "jhost_services": (["platform/jhost_services"], ["boost"]),
    "qthost": (["platform/qthost"], [*PLATFORM, "qt", "boost"]),
    "kernel": (
        ["voxi2_qt/kernel", "voxi2_qt/export/include/voxi2_qt/kernel"],
        [*PLATFORM, "qthost", "qt", "boost"],
    ),
    **{
        folder: (
            [f"voxi2_qt/{folder}", f"voxi2_qt/export/include/voxi2_qt/{folder}"],
            ["kernel", *PLATFORM, "qt", "boost"],
        )
        for folder in ("containers", "controls", "modelview")
    },
    # The engine of web pages; only a library of its own.
    "web": (["voxi2_qt/web"], ["kernel", "controls", *PLATFORM, "qt"]),
    # What the explorer does with databases; tests and programs need no toolkit for it.
    "sql": (["apps/explorer/sql"], []),
    # A program's user interface is written against the abstract objects and plain values.
    "apps": (["apps"], ["voxi2", "voxi_util", "sql"]),
}

# File (a trailing * matches any ending) -> rooms that it alone may see as well.
EXCEPTIONS = {
    "voxi2_qt/kernel/qtfactory2.cpp": ["containers", "controls", "modelview"],
    "apps/*/main.cpp": ["qthost"],
    "apps/runprogram.h": ["qthost"],
}

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')
QT = re.compile(r"Q[A-Z]\w*$|Qt\w*/|private/q|qt?[a-z]+\.h$|qpa/")


def room_of_file(path):
    for room, (folders, _) in ROOMS.items():
        if any(path.is_relative_to(folder) for folder in folders):
            return room
    return None


def room_of_include(name, quoted, path):
    """The room that an include leads to; None for the standard library and one's own folder."""
    prefix, _, rest = name.partition("/")
    if prefix in ("voxi2_qt", "voxi2_qt_scene", "voxi2_qt_svg", "voxi2_qt_web"):
        folder = rest.partition("/")[0]
        return folder if folder in ROOMS else None
    if prefix in ROOMS and rest:
        return prefix
    if prefix == "boost":
        return "boost"
    if not quoted:
        return "qt" if QT.match(name) else None
    if name.endswith(".moc") or any((parent / name).exists() for parent in path.parents[:-1]):
        return None
    return "unknown"


def may_see(path, room):
    allowed = {room_of_file(path), *ROOMS[room_of_file(path)][1]}
    for pattern, rooms in EXCEPTIONS.items():
        if path.match(pattern):
            allowed.update(rooms)
    return room is None or room in allowed


def main():
    listing = subprocess.run(
        ["git", "ls-files", "-co", "--exclude-standard", "--", "*.cpp", "*.h"],
        capture_output=True, text=True, check=True)
    faults = 0
    files = 0
    for path in map(Path, listing.stdout.split()):
        if room_of_file(path) is None or not path.exists():
            continue
        files += 1
        for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
            include = INCLUDE.match(line)
            if not include:
                continue
            room = room_of_include(include[2], include[1] == '"', path)
            if not may_see(path, room):
                print(f"{path}:{number}: {room_of_file(path)} may not see {room}: {include[2]}")
                faults += 1
    print(f"note: {files} files looked at")
    return 1 if faults else 0


sys.exit(main())
