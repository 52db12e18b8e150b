#!/usr/bin/env python3
"""Checks what documents and doc comments refer to: files, headings, classes and their members."""

import re
import subprocess
import sys
from pathlib import Path

LINK = re.compile(r"\]\(([^)\s]+)\)")
CODE = re.compile(r"`([^`\n]+)`")
# A class of the toolkit, with a member or without.
NAME = re.compile(r"\b((?:VX|Qt)\w+|TROV::\w+)(?:::(~?\w+))?")
DECLARED = re.compile(r"\b(?:class|struct|enum(?: class)?|concept|using) (?:\w+_EXPORT )?(\w+)")
BASE = re.compile(r"\b(?:class|struct) (?:\w+_EXPORT )?(\w+)(?: final)?\s*:\s*([^{;]+)\{")
# Where it is told how kinds are made, for one that there is not.
MADE_UP = re.compile(r"Frobnicator|VXKind2|(VX|Qt)Thing2|VX2Qt|Qt2VX")


def files(*patterns):
    listing = subprocess.run(["git", "ls-files", "-co", "--exclude-standard", "--", *patterns],
                             capture_output=True, text=True, check=True)
    return [path for path in map(Path, listing.stdout.split("\n")) if path.is_file()]


def heading_ids(path):
    """As they are made of headings by those who show documents."""
    headings = re.findall(r"^#+ (.*)$", path.read_text(), re.M)
    return {re.sub(r"[^\w\- ]", "", text.lower()).replace(" ", "-") for text in headings}


def wrong_links(path):
    text = re.sub(r"```.*?```", "", path.read_text(), flags=re.S)
    for link in LINK.findall(text):
        if "://" in link:
            continue
        name, _, heading = link.partition("#")
        target = path.parent / name if name else path
        if not target.exists():
            yield f"{path}: there is no {link}"
        elif heading and heading not in heading_ids(target):
            yield f"{path}: there is no heading {link}"


class Names:
    """What the headers declare: classes, and the words that stand in each."""

    def __init__(self, headers):
        self.declared, self.bases, self.words = set(), {}, {}
        for header in headers:
            text = re.sub(r"//.*", "", header.read_text())
            words = set(re.findall(r"\w+", text))
            for name in DECLARED.findall(text):
                self.declared.add(name)
                self.words.setdefault(name, set()).update(words)
            for name, bases in BASE.findall(text):
                self.bases.setdefault(name, set()).update(re.findall(r"\w+", bases))

    def has_member(self, name, member):
        seen, todo = set(), [name]
        while todo:
            current = todo.pop()
            if member.lstrip("~") in self.words.get(current, ()):
                return True
            seen.add(current)
            todo += self.bases.get(current, set()) - seen
        return False


def wrong_names(path, names):
    text = path.read_text()
    if path.suffix == ".h":
        text = "\n".join(re.findall(r"///.*", text))
    for code in CODE.findall(text):
        for name, member in NAME.findall(code):
            name = name.removeprefix("TROV::")
            if MADE_UP.search(f"{name} {member}"):
                continue
            if name not in names.declared:
                if name.startswith("VX") or re.fullmatch(r"Qt\w+2", name):
                    yield f"{path}: there is no {name}"
            elif member and not names.has_member(name, member):
                yield f"{path}: {name} has no {member}"


def main():
    headers = files("platform/*.h", "voxi2_qt/*.h")
    names = Names(headers)
    documents = files("*.md")
    wrong = [line for path in documents for line in wrong_links(path)]
    for path in [*documents, *headers]:
        if path.name != "CHANGELOG.md":
            wrong += wrong_names(path, names)
    print("\n".join(wrong), end="\n" if wrong else "")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
