"""Finds the examples of the documents (```cpp blocks) and of the public headers (what is indented
in doc comments). `examples.py OUT DEPFILE SOURCE...` writes one source that compiles all of them,
and with them the programs that are measured beside those of plain Qt.

A block that belongs to a file says so in the line before it: <!-- file: lines.cpp -->. Several of
one name are one file.
"""

import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
FILE = re.compile(r"<!-- file: (\S+) -->")
# In doc comments of headers: lines indented by four more, with those that are empty between them.
COMMENT = re.compile(r"^\s*///(.*)$")
# What cannot stand in a function.
MAIN = re.compile(r"^int main\(", re.M)
# What stands for code that is left out.
LEFT_OUT = re.compile(r"(?<![\w.(,])\.\.\.(?![\w.)])")


class Block:
    """Some lines of one document: where they begin, of which language and file they are."""

    def __init__(self, path, line, language, file):
        self.path, self.line, self.language, self.file = path, line, language, file
        self.lines = []

    def text(self):
        return "".join(line + "\n" for line in self.lines)


def blocks_of_document(path):
    block, file = None, None
    for number, line in enumerate(path.read_text().splitlines(), 1):
        if block is None and line.startswith("```"):
            block = Block(path, number + 1, line[3:].strip(), file)
        elif line.startswith("```"):
            yield block
            block = None
        elif block is not None:
            block.lines.append(line)
        elif line.strip():
            named = FILE.fullmatch(line.strip())
            file = named[1] if named else None


def blocks_of_header(path):
    block = None
    for number, line in enumerate(path.read_text().splitlines(), 1):
        comment = COMMENT.match(line)
        text = comment[1] if comment else None
        if text is not None and text.startswith("     "):
            if block is None:
                block = Block(path, number, "cpp", None)
            block.lines.append(text[5:])
        elif block is not None and text == "":
            block.lines.append("")
        elif block is not None:
            yield block
            block = None


def blocks_of(path):
    if path.suffix == ".cpp":
        block = Block(path, 1, "cpp", path.name)
        block.lines = path.read_text().splitlines()
        return [block]
    return list(blocks_of_header(path) if path.suffix == ".h" else blocks_of_document(path))


def written(blocks):
    """The blocks as code, each line at the place where it stands in its document."""
    return "".join(f'#line {block.line} "{block.path}"\n{block.text()}' for block in blocks)


def source_of(paths):
    includes, examples, files = set(), [], {}
    for path in paths:
        for block in blocks_of(path):
            if block.language != "cpp":
                continue
            if block.file:
                files.setdefault((path, block.file), []).append(block)
            else:
                examples.append([block])
    body = []
    for number, blocks in enumerate([*examples, *files.values()]):
        for block in blocks:
            for at, line in enumerate(block.lines):
                if line.startswith("#include"):
                    includes.add(line)
                    block.lines[at] = ""
            block.lines = [LEFT_OUT.sub(";", line) for line in block.lines]
        code = written(blocks)
        if blocks[0].file or MAIN.search(code):
            body.append(f"namespace example{number} {{\n{code}}}\n")
        else:
            body.append(f"struct Example{number} : Example {{\n"
                        "void example(VXWidget2* view, VXText2* text, Rows rows, const Words& words,\n"
                        "             const std::shared_ptr<Report>& report) override\n"
                        f"{{{{\n{code}}}}}\n}};\n")
    return "".join([
        '#include "fixture.h"\n', *(f"{line}\n" for line in sorted(includes)),
        "using namespace VOXI;\nusing namespace fixture;\n", *body,
    ])


def main():
    out, depfile, *names = sys.argv[1:]
    paths = []
    for name in names:
        path = ROOT / name
        kinds = ("*.md", "*.h", "*_voxi.cpp")
        paths += sorted(file for kind in kinds for file in path.rglob(kind)) or [path]
    Path(out).write_text(source_of(paths))
    Path(depfile).write_text(f"{out}: {' '.join(map(str, paths))}\n")


if __name__ == "__main__":
    main()
