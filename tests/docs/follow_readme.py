"""follow_readme.py BUILD FOLDER: does in FOLDER what the README tells, its files and its commands
word for word, until the program's window is there; looks at it, uses it and closes it.

The library is installed from BUILD, a tree that is built already: that alone is not as with a user.
"""

import os
import re
import shutil
import signal
import struct
import subprocess
import sys
import time
import zlib
from ctypes import CDLL, POINTER, Structure, byref, c_char_p, c_int, c_uint, c_ulong, c_void_p
from ctypes import string_at
from pathlib import Path

from examples import ROOT, blocks_of

PATIENCE = 120
TITLE = "Counter"


def script_of(path):
    """The commands, and where files stand between them what writes those."""
    lines = []
    for block in blocks_of(path):
        if block.language == "sh":
            lines.append(block.text())
        elif block.file:
            lines.append(f"cat >{block.file} <<'END OF FILE'\n{block.text()}END OF FILE\n")
    return "".join(lines)


class Image(Structure):
    """The beginning of Xlib's XImage."""

    _fields_ = [(name, c_int) for name in ("width", "height", "offset", "format")] + [
        ("data", c_void_p)
    ] + [(name, c_int) for name in ("byte_order", "unit", "bit_order", "pad", "depth", "row_bytes",
                                    "bits")]


def picture_of(window):
    """Width, height and the pixels as red, green, blue."""
    xlib = CDLL("libX11.so.6")
    xlib.XOpenDisplay.restype = c_void_p
    xlib.XGetImage.restype = POINTER(Image)
    display = c_void_p(xlib.XOpenDisplay(c_char_p(None)))
    root, x, y, border, depth = c_ulong(), c_int(), c_int(), c_uint(), c_uint()
    width, height = c_uint(), c_uint()
    xlib.XGetGeometry(display, c_ulong(window), byref(root), byref(x), byref(y), byref(width),
                      byref(height), byref(border), byref(depth))
    image = xlib.XGetImage(display, c_ulong(window), 0, 0, width, height, c_ulong(2**32 - 1), 2)
    image = image.contents
    assert image.bits == 32, image.bits
    data = string_at(image.data, image.height * image.row_bytes)
    rows = [data[at : at + 4 * image.width] for at in range(0, len(data), image.row_bytes)]
    pixels = bytearray(3 * image.width * image.height)
    for color in range(3):
        pixels[color::3] = b"".join(row[2 - color :: 4] for row in rows)
    xlib.XCloseDisplay(display)
    return image.width, image.height, bytes(pixels)


def write_png(path, picture):
    width, height, pixels = picture
    rows = b"".join(b"\0" + pixels[at : at + 3 * width] for at in range(0, len(pixels), 3 * width))

    def chunk(kind, data):
        body = kind + data
        return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body))

    path.write_bytes(b"\x89PNG\r\n\x1a\n"
                     + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0))
                     + chunk(b"IDAT", zlib.compress(rows)) + chunk(b"IEND", b""))


class User:
    """Who follows the README in a shell, and has a pointer and keys."""

    def __init__(self, script, environment, log):
        self.log = log
        with log.open("w") as output:
            self.shell = subprocess.Popen(["bash", "-euo", "pipefail", "-c", script], cwd=ROOT,
                                          env=environment, stdin=subprocess.DEVNULL, stdout=output,
                                          stderr=subprocess.STDOUT, start_new_session=True)

    def fail(self, what):
        print(self.log.read_text())
        sys.exit(f"follow_readme.py: {what}")

    def wait_until(self, what, condition):
        end = time.monotonic() + PATIENCE
        while not (result := condition()):
            if time.monotonic() > end:
                self.fail(f"{what} took too long")
            time.sleep(0.05)
        return result

    def find_window(self):
        if self.shell.poll() is not None:
            self.fail(f"the commands ended with {self.shell.returncode}, and there is no window")
        found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", f"^{TITLE}$"],
                               capture_output=True, text=True, check=False)
        return int(found.stdout.split()[0]) if found.stdout.split() else None

    def press(self, window, keys):
        subprocess.run(["xdotool", "windowactivate", "--sync", str(window), "key", keys], check=True)

    def end(self):
        try:
            os.killpg(self.shell.pid, signal.SIGKILL)
        except ProcessLookupError:
            pass
        self.shell.wait()


def use(user, folder):
    window = user.wait_until("the window", user.find_window)
    shown = user.wait_until("the picture", lambda: colorful(picture_of(window)))
    write_png(folder / "counter.png", shown)
    number = left_of(shown)
    for _ in range(3):
        user.press(window, "alt+c")
        number = user.wait_until("counting", lambda: changed(left_of(picture_of(window)), number))
    user.press(window, "alt+F4")
    user.wait_until("the program's end", lambda: user.shell.poll() is not None)
    if user.shell.returncode != 0:
        user.fail(f"the program ended with {user.shell.returncode}")


def colorful(picture):
    """The picture, unless the window is still empty: text has many shades."""
    _, _, pixels = picture
    return picture if len(set(zip(pixels[::3], pixels[1::3], pixels[2::3]))) > 10 else None


def left_of(picture):
    """The left third, where the number stands; the button changes when it is pressed, too."""
    width, _, pixels = picture
    return b"".join(pixels[at : at + width // 3 * 3] for at in range(0, len(pixels), 3 * width))


def changed(picture, before):
    return picture if picture != before else None


def check_exports(prefix):
    """What applications link is free of Qt and Boost."""
    exported = list(prefix.rglob("voxiTargets*.cmake"))
    assert exported, f"nothing in {prefix}"
    for path in exported:
        found = re.search(r"Qt6?::|Boost", path.read_text())
        if found:
            sys.exit(f"follow_readme.py: {path} names {found[0]}")


def main():
    build, folder = map(Path, sys.argv[1:])
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    environment = {**os.environ, "HOME": str(folder), "VOXI_BUILD": str(build)}
    user = User(script_of(ROOT / "README.md"), environment, folder / "log")
    try:
        use(user, folder)
    finally:
        user.end()
    check_exports(folder / "voxi")


if __name__ == "__main__":
    main()
