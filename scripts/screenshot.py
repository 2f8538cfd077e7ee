#!/usr/bin/env python3
"""screenshot.py PICTURE PROGRAM [ARGUMENT...]

Opens PROGRAM in a virtual display, waits until what it shows stands still, keeps that as PICTURE (PNG) and ends it.
The picture is read from the display's own frame buffer, so the program knows nothing of it.
"""
import contextlib
import os
import struct
import subprocess
import sys
import tempfile
import time
import zlib
from pathlib import Path

SCREEN = "1400x900x24"
LONGEST_WAIT = 60.0  # seconds until the first still picture
STILL_FOR = 1.0  # seconds without a change make a picture a still one
POLL = 0.1


def pixels(frame_buffer):
    """Width, height and the RGB bytes of a frame buffer in the X window dump format, 32 bits a pixel, blue first."""
    dump = frame_buffer.read_bytes()
    header = struct.unpack(">25I", dump[:100])
    header_size, width, height, stride, colours = header[0], header[4], header[5], header[12], header[19]
    begin = header_size + colours * 12
    rows = (dump[begin + y * stride:begin + y * stride + width * 4] for y in range(height))
    rgb = bytearray(width * height * 3)
    blue_first = b"".join(rows)
    for channel in range(3):
        rgb[channel::3] = blue_first[2 - channel::4]
    return width, height, bytes(rgb)


def without_background(width, height, rgb):
    """The same picture without the black of the empty display to the right of and below the windows."""
    lines = [rgb[y * width * 3:(y + 1) * width * 3] for y in range(height)]
    while lines and not any(lines[-1]):
        lines.pop()
    used = max((len(line.rstrip(b"\0")) + 2) // 3 for line in lines)
    return used, len(lines), b"".join(line[:used * 3] for line in lines)


def png(width, height, rgb):
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    lines = b"".join(b"\0" + rgb[y * width * 3:(y + 1) * width * 3] for y in range(height))
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0))
            + chunk(b"IDAT", zlib.compress(lines, 9)) + chunk(b"IEND", b""))


def is_empty(rgb):
    return rgb == rgb[:3] * (len(rgb) // 3)


@contextlib.contextmanager
def started(command, **options):
    process = subprocess.Popen(command, **options)
    try:
        yield process
    finally:
        process.terminate()
        process.wait()


@contextlib.contextmanager
def virtual_display():
    """Yields the name of a fresh display and the file that holds its frame buffer."""
    with tempfile.TemporaryDirectory() as folder:
        reading, writing = os.pipe()
        command = ["Xvfb", "-displayfd", str(writing), "-screen", "0", SCREEN, "-fbdir", folder, "-nocursor",
                   "-nolisten", "tcp"]
        with started(command, pass_fds=[writing], stderr=subprocess.DEVNULL):
            os.close(writing)
            with os.fdopen(reading) as display:
                number = display.readline().strip()
            if not number:
                sys.exit("screenshot: the virtual display did not start")
            yield ":" + number, Path(folder, "Xvfb_screen0")


def still_picture(program, frame_buffer):
    """The first picture that is not empty and has not changed for a while."""
    begun = changed = time.monotonic()
    shown = None
    while time.monotonic() - begun < LONGEST_WAIT:
        if program.poll() is not None:
            sys.exit(f"screenshot: the program ended by itself with exit code {program.returncode}")
        now = pixels(frame_buffer)
        if now != shown:
            shown, changed = now, time.monotonic()
        elif not is_empty(shown[2]) and time.monotonic() - changed >= STILL_FOR:
            return shown
        time.sleep(POLL)
    sys.exit(f"screenshot: nothing that stands still was shown within {LONGEST_WAIT:.0f} s")


def main():
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    picture, command = Path(sys.argv[1]), sys.argv[2:]
    with virtual_display() as (display, frame_buffer):
        environment = {**os.environ, "DISPLAY": display, "QT_QPA_PLATFORM": "xcb"}
        with started(command, env=environment) as program:
            picture.write_bytes(png(*without_background(*still_picture(program, frame_buffer))))


if __name__ == "__main__":
    main()
