#!/usr/bin/env python3
"""Makes the Windows icon from the drawing, in every size that Windows shows.

    packaging/make-icon.py

Run it after a change of NeskManager.svg and commit the result. Needs rsvg-convert (Debian: librsvg2-bin).
"""

import pathlib
import struct
import subprocess

SIZES = (16, 20, 24, 32, 40, 48, 64, 256)


def main():
    folder = pathlib.Path(__file__).resolve().parent
    images = [subprocess.run(["rsvg-convert", "-w", str(size), "-h", str(size), folder / "NeskManager.svg"],
                             check=True, capture_output=True).stdout for size in SIZES]
    # A header, then one directory entry per image, then the images as PNG. A size of 256 is written as 0.
    header = struct.pack("<HHH", 0, 1, len(SIZES))
    offset = len(header) + 16 * len(SIZES)
    directory = b""
    for size, image in zip(SIZES, images):
        directory += struct.pack("<BBBBHHII", size % 256, size % 256, 0, 0, 1, 32, len(image), offset)
        offset += len(image)
    (folder / "windows" / "NeskManager.ico").write_bytes(header + directory + b"".join(images))


if __name__ == "__main__":
    main()
