#!/usr/bin/env python3
"""Checks that every peer has its other halves, found by rule from its header's name:

    voxi2_qt/export/include/voxi2_qt/controls/qtbutton2.h     the peer's header
    voxi2_qt/controls/qtbutton2.cpp                           its source
    platform/voxi2/include/voxi2/controls/vxbutton2.h         the abstract class
    platform/voxi2/src/controls/vxbutton2.cpp                 its source
    button2 in voxi_add_kinds(controls ...)                   lists each pair in CMake
    a row in voxi2_qt/kernel/qtfactory2.cpp                   serves the peer's class
    a test under tests/voxi2_qt/controls/                     names one of the two classes

A request `setFlat` is served by an operation `doSetFlat`, or `doimSetFlat` where that acts as the
user; where there are both, the second request is `setFlatAsUser`. What is asked to see the widget
as its user does may be a `doimIsFlat`, too. The factory's rows stand in the
order of its requests. Operations stand in the order of the rows, in the header and in each source,
there under "Requests"; what Qt tells comes in slots, and stands under "Reports".

An abstract class whose object has an emitters table retires in its destructor, while the table
still stands. Abstract kinds that no peer serves are reported and fail nothing.
"""

import re
import sys
from pathlib import Path

FOLDERS = ["kernel", "containers", "controls", "modelview"]
PEER_HEADERS = Path("voxi2_qt/export/include/voxi2_qt")
PEER_SOURCES = Path("voxi2_qt")
ABSTRACT_HEADERS = Path("platform/voxi2/include/voxi2")
ABSTRACT_SOURCES = Path("platform/voxi2/src")
FACTORY = PEER_SOURCES / "kernel/qtfactory2.cpp"
TESTS = Path("tests/voxi2_qt")

# Stems (without qt and .h) of headers that are no peers: helpers, and bases without an abstract
# class of their own. In the kernel, which is mostly machinery, a header counts when it has an
# abstract header beside it.
NOT_PEERS = {
    "kernel": {"factory2"},
    "containers": {"anchor", "container2", "dialog2shim", "splitterhandle", "tabbar"},
    "controls": {"abstractedit2shim", "elidinglabel", "range2shim", "texteventfilter2"},
    "modelview": {"abstractview2shim"},
}

# Bases are made by no row of the factory, and tested through the peers that derive from them.
BASES = {
    "object2",
    "widget2",
    "abstractgroupview2",
    "abstractview2",
    "layout2",
    "abstractwindow2",
    "abstractdialog2",
    "abstractbutton2",
    "abstractedit2",
    "range2",
}

# Where a peer's functions stand: what it is asked, what Qt tells it, and the rest.
SECTIONS = ["Requests", "Reports", "Helpers"]
SECTION = re.compile(r"^// (\S.*?) -{9,}$", re.MULTILINE)
REPORT = re.compile(r"slot[A-Z]|connectSignals$")

ROW = re.compile(r"\b(row|asUserRow)<&E::(\w+),\s*&P::(\w+)[,>]")
CLASS = re.compile(r"^class\s+(?:\w+_EXPORT\s+)?(\w+)[^;{]*\{?\s*$", re.MULTILINE)


def text(path):
    return path.read_text(encoding="utf-8") if path.is_file() else ""


def class_in(header, stem, prefix):
    """The class that gives the header its name: qtbutton2.h holds QtButton2."""
    for name in CLASS.findall(text(header)):
        if name.lower() == prefix + stem:
            return name
    return None


def peers():
    for folder in FOLDERS:
        for header in sorted((PEER_HEADERS / folder).glob("qt*.h")):
            stem = header.stem[2:]
            if stem in NOT_PEERS[folder]:
                continue
            if folder == "kernel" and not (ABSTRACT_HEADERS / folder / f"vx{stem}.h").is_file():
                continue
            yield folder, stem, header


def faults_of(folder, stem, header, tests):
    peer = class_in(header, stem, "qt")
    if peer is None:
        yield f"{header}: holds no class of the name qt{stem}"
        return

    abstract_header = ABSTRACT_HEADERS / folder / f"vx{stem}.h"
    files = [
        (header, PEER_SOURCES),
        (PEER_SOURCES / folder / f"qt{stem}.cpp", PEER_SOURCES),
        (abstract_header, ABSTRACT_SOURCES.parent),
        (ABSTRACT_SOURCES / folder / f"vx{stem}.cpp", ABSTRACT_SOURCES.parent),
    ]
    for file, library in files:
        if not file.is_file():
            yield f"{peer}: no {file}"
        elif str(file.relative_to(library)) not in cmake_lists(library):
            yield f"{peer}: {file} is not listed in {library}/CMakeLists.txt"
    abstract = class_in(abstract_header, stem, "vx")
    if abstract is None:
        yield f"{peer}: no abstract class in {abstract_header}"
    if stem in BASES:
        return
    if f"serve<{peer}>(" not in text(FACTORY):
        yield f"{peer}: no row in {FACTORY}"
    if not re.search(rf"\b({peer}|{abstract})\b", tests[folder]):
        yield f"{peer}: no test under {TESTS / folder}"


def shape_faults(folder, stem, header):
    """Names and order of what serves the requests, and the sections around it."""
    peer = class_in(header, stem, "qt")
    sources = sorted((PEER_SOURCES / folder).glob(f"qt{stem}*.cpp"))
    main = PEER_SOURCES / folder / f"qt{stem}.cpp"
    rows = ROW.findall(text(main))
    operations = [operation for _, _, operation in rows]
    if len(rows) != len(re.findall(r"\b(?:row|asUserRow)<", text(main))):
        yield f"{main}: not every row reads row<&E::request, &P::operation>"
    for kind, request, operation in rows:
        prefixes = ["doim"] if kind == "asUserRow" else ["do"]
        if prefixes == ["do"] and request.startswith(("get", "is")):
            prefixes.append("doim")
        if kind == "asUserRow":
            request = request.removesuffix("AsUser")
        if operation not in [prefix + request[0].upper() + request[1:] for prefix in prefixes]:
            yield f"{peer}: {kind} {request} is served by {operation}"
    declared = re.findall(r"\b(do\w+)\([^;{]*\)[\w ]*;", text(header))
    yield from order_faults(header, declared, operations)
    for source in sources:
        sections = [(at.start(), at[1]) for at in SECTION.finditer(text(source))]
        names = [name for _, name in sections]
        if names != [name for name in SECTIONS if name in names]:
            yield f"{source}: the sections are {', '.join(names)} and not {', '.join(SECTIONS)}"
        functions = list(re.finditer(rf"^(?:\w.*\b)?{peer}::(\w+)\(", text(source), re.MULTILINE))
        yield from order_faults(source, [each[1] for each in functions], operations)
        for function in functions:
            name = function[1]
            wanted = "Requests" if name in operations else "Reports" if REPORT.match(name) else None
            before = [section for at, section in sections if at < function.start()]
            if wanted and before[-1:] != [wanted]:
                yield f"{source}: {name} does not stand under {wanted}"


def order_faults(path, names, wanted):
    """What stands there of `wanted` in another order than there."""
    found = [name for name in names if name in wanted]
    for name, expected in zip(found, sorted(found, key=wanted.index)):
        if name != expected:
            yield f"{path}: {name} stands where {expected} belongs"
            return


def factory_faults():
    requests = re.findall(r"\b(create\w+);", text(ABSTRACT_HEADERS / "kernel/vxfactory2.h"))
    rows = re.findall(r"serve<\w+>\(factory\.(\w+)\)", text(FACTORY))
    yield from order_faults(FACTORY, rows, requests)


def cmake_lists(library):
    """The files that CMake is told of for a library, by name or as a kind's."""
    lists = text(library / "CMakeLists.txt")
    files = lists.split()
    for pattern in re.findall(r"^set\(VOXI_KIND_\w+ (.*)\)", lists, re.MULTILINE):
        for folder, kinds in re.findall(r"^voxi_add_kinds\(\s*(\w+)([^)]*)\)", lists, re.MULTILINE):
            files += [pattern.replace("FOLDER", folder).replace("KIND", kind)
                      for kind in kinds.split()]
    return files


def retire_faults():
    """A table belongs to its class, so each destructor below must have said goodbye first."""
    for source in sorted(ABSTRACT_SOURCES.glob("*/vx*.cpp")):
        content = text(source)
        header = text(ABSTRACT_HEADERS / source.parent.name / f"{source.stem}.h")
        if not re.search(r"\bVX\w+Emitters\s+m_emitters\b", header):
            continue
        destructor = re.search(r"^(\w+)::~\1\(\)[^{;]*(\{.*?^\}|\{[^\n]*\}|= default;)", content,
                               re.MULTILINE | re.DOTALL)
        if destructor is None:
            yield f"{source}: a class with an emitters table has no destructor here"
        elif "retire(" not in destructor[0]:
            yield f"{source}: the destructor does not call retire()"


def main():
    tests = {
        folder: "\n".join(text(path) for path in sorted((TESTS / folder).rglob("*.cpp")))
        for folder in FOLDERS
    }
    faults = [fault for peer in peers() for fault in faults_of(*peer, tests)]
    faults += [fault for peer in peers() for fault in shape_faults(*peer)]
    faults += factory_faults()
    faults += retire_faults()
    for fault in faults:
        print(fault)

    served = {stem for _, stem, _ in peers()}
    print(f"note: {len(served)} peers looked at")
    factory_header = text(ABSTRACT_HEADERS / "kernel/vxfactory2.h")
    kinds = {name.lower() for name in re.findall(r"\bcreate(\w+2)\b", factory_header)}
    if kinds - served:
        print(f"note: no peer serves {' '.join(sorted(kinds - served))}")
    return 1 if faults else 0


sys.exit(main())
