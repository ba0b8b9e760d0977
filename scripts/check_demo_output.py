#!/usr/bin/env python3
"""Checks what `demo --headless OUTDIR` wrote: every PNG screenshot and the session GIF must
have a valid signature, a non-empty picture size and a complete file; the step list
(steps.txt) must be numbered from 1 without gaps and hold every docking step, each done.
Standard library only.

    scripts/check_demo_output.py OUTDIR [MIN_SCREENSHOTS]
"""
import pathlib
import re
import struct
import sys

# The docking steps of the session: what each line must say. Where a pattern catches a
# number, it is how many of the five panes stood in their exact place afterwards.
DOCK_STEPS = [
    ("hide and show", r"^step \d+: (\d) of 5 panes returned to their exact place"),
    ("divider drag", r"dragged it back: (\d) of 5 panes returned to their exact place"),
    ("dock beside", r"dragged the log pane onto the folder pane's lower edge: docked below it"),
    ("dock at an edge", r"dragged it to the frame's bottom edge: docked there"),
    ("float", r"dragged the properties pane over the preview: floating at"),
    ("save and restore",
     r"saved the pane layout and restored it into a new browser window: (\d) of 5 panes took their exact place"),
    ("dock back", r"from its mini-frame onto the colours pane's upper edge: docked, (\d) of 5 panes returned"),
    ("pin off", r"slid it out with its tab and pinned it back: docked, (\d) of 5 panes returned"),
    ("resize", r"resized it back to \d+ x \d+: (\d) of 5 panes returned to their exact place"),
]


def check_png(path):
    data = path.read_bytes()
    if data[:8] != b"\x89PNG\r\n\x1a\n" or data[12:16] != b"IHDR":
        return "not a PNG file"
    width, height = struct.unpack(">II", data[16:24])
    if width == 0 or height == 0:
        return "empty picture"
    if b"IEND" not in data[-12:]:
        return "cut short (no IEND chunk)"
    return f"{width} x {height}"


def check_gif(path):
    data = path.read_bytes()
    if data[:6] not in (b"GIF87a", b"GIF89a"):
        return "not a GIF file"
    width, height = struct.unpack("<HH", data[6:10])
    if width == 0 or height == 0:
        return "empty picture"
    if not data.endswith(b"\x3b"):
        return "cut short (no trailer)"
    frames = data.count(b"\x21\xf9\x04")
    if frames < 2:
        return "fewer than two frames"
    return f"{width} x {height}, {frames} frames"


def check_steps(path):
    lines = path.read_text(encoding="utf-8", errors="replace").splitlines()
    for number, line in enumerate(lines, 1):
        if not line.startswith(f"step {number}: "):
            return f"line {number} is not step {number}: {line!r}"
    found = []
    for name, pattern in DOCK_STEPS:
        match = next((m for m in (re.search(pattern, line) for line in lines) if m), None)
        if not match:
            return f"no {name} step"
        found.append(f"{name} {match.group(1)}/5" if match.groups() else name)
    return f"{len(lines)} steps; " + ", ".join(found)


def main():
    if len(sys.argv) < 2:
        print(__doc__.strip())
        return 2
    out = pathlib.Path(sys.argv[1])
    need = int(sys.argv[2]) if len(sys.argv) > 2 else 2
    failed = False
    shots = sorted(out.glob("*.png"))
    if len(shots) < need:
        print(f"check: {len(shots)} screenshots in {out}, expected at least {need}")
        failed = True
    files = [(p, check_png) for p in shots] + [(out / "session.gif", check_gif), (out / "steps.txt", check_steps)]
    for path, check in files:
        if not path.is_file():
            print(f"check: {path} is missing")
            failed = True
            continue
        verdict = check(path)
        ok = verdict[0].isdigit()
        failed |= not ok
        print(f"check: {path}: {verdict}" if ok else f"check: {path} is bad: {verdict}")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
