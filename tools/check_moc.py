#!/usr/bin/env python3
"""check_moc.py BUILD: has moc read each public header where it is the first that a header with
Q_OBJECT includes. moc is no compiler: Qt 6.4's gives up at libstdc++'s <concepts>, and so at
<compare>, where nothing has included <cstddef> before."""

import json
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path
from tempfile import TemporaryDirectory


def main():
    info = Path(sys.argv[1], "voxi2_qt/CMakeFiles/voxi2_qt_autogen.dir/AutogenInfo.json")
    autogen = json.loads(info.read_text())
    with TemporaryDirectory() as folder:
        predefs = Path(folder, "predefs.h")
        with predefs.open("w") as file:
            subprocess.run(autogen["MOC_PREDEFS_CMD"], stdout=file, check=True)
        command = [autogen["QT_MOC_EXECUTABLE"], "--include", predefs, "-o", "/dev/null",
                   *(f"-I{path}" for path in [*autogen["MOC_INCLUDES"], "platform/qthost/include"]),
                   *(f"-D{name}" for name in autogen["MOC_DEFINITIONS"])]

        def failure_of(header):
            name = str(header).partition("/include/")[2]
            probe = Path(folder, name.replace("/", "_"))
            probe.write_text(f'#include "{name}"\n#include <QObject>\n'
                             "class Probe : public QObject\n{\n    Q_OBJECT\n};\n")
            run = subprocess.run([*command, probe], capture_output=True, text=True)
            return f"{header}: {run.stderr.strip()}" if run.returncode else None

        headers = sorted([*Path("platform").glob("*/include/**/*.h"),
                          *Path("voxi2_qt/export/include").glob("**/*.h")])
        with ThreadPoolExecutor(2) as pool:
            failures = [each for each in pool.map(failure_of, headers) if each]
    for failure in failures:
        print(failure)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
