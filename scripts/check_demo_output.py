#!/usr/bin/env python3
"""Checks what `demo --headless OUTDIR` wrote: every PNG screenshot and the session GIF must
have a valid signature, a non-empty picture size and a complete file. Standard library only.

    scripts/check_demo_output.py OUTDIR [MIN_SCREENSHOTS]
"""
import pathlib
import struct
import sys


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
    for path, check in [(p, check_png) for p in shots] + [(out / "session.gif", check_gif)]:
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
