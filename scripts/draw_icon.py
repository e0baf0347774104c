#!/usr/bin/env python3
"""Draws Zunbrix's icon, a cartridge whose label holds a list of games, as src/app/zunbrix.svg and
src/app/zunbrix.png (256 x 256). Plain shapes only, so both files come from the one table below."""
import struct
import zlib
from pathlib import Path

SIZE = 256
# (kind, x, y, width, height, corner radius, colour RGBA); later shapes cover earlier ones.
SHAPES = [
    ("rect", 40, 20, 176, 216, 18, (52, 61, 82, 255)),     # the cartridge's shell
    ("rect", 64, 20, 128, 16, 0, (36, 42, 58, 255)),       # the notch along its top edge
    ("rect", 60, 52, 136, 120, 10, (236, 165, 62, 255)),   # the label
    ("rect", 76, 70, 14, 14, 3, (255, 255, 255, 255)),     # three games, each a mark and a name
    ("rect", 98, 72, 80, 10, 5, (255, 255, 255, 255)),
    ("rect", 76, 104, 14, 14, 3, (255, 255, 255, 255)),
    ("rect", 98, 106, 80, 10, 5, (255, 255, 255, 255)),
    ("rect", 76, 138, 14, 14, 3, (255, 255, 255, 255)),
    ("rect", 98, 140, 80, 10, 5, (255, 255, 255, 255)),
    ("rect", 72, 196, 112, 24, 6, (36, 42, 58, 255)),      # the contacts
]
SUPERSAMPLE = 4


def inside(shape, px, py):
    _, x, y, w, h, r, _ = shape
    if not (x <= px < x + w and y <= py < y + h):
        return False
    cx = min(max(px, x + r), x + w - r)
    cy = min(max(py, y + r), y + h - r)
    return (px - cx) ** 2 + (py - cy) ** 2 <= r * r


def pixel(x, y):
    total = [0.0, 0.0, 0.0, 0.0]
    for sy in range(SUPERSAMPLE):
        for sx in range(SUPERSAMPLE):
            px = x + (sx + 0.5) / SUPERSAMPLE
            py = y + (sy + 0.5) / SUPERSAMPLE
            colour = (0, 0, 0, 0)
            for shape in SHAPES:
                if inside(shape, px, py):
                    colour = shape[6]
            for i in range(4):
                total[i] += colour[i] * (colour[3] / 255 if i < 3 else 1)
    n = SUPERSAMPLE * SUPERSAMPLE
    alpha = total[3] / n
    if alpha == 0:
        return (0, 0, 0, 0)
    return tuple(round(total[i] / n * 255 / alpha) for i in range(3)) + (round(alpha),)


def png(path):
    rows = b""
    for y in range(SIZE):
        rows += b"\0" + b"".join(bytes(pixel(x, y)) for x in range(SIZE))

    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    header = struct.pack(">IIBBBBB", SIZE, SIZE, 8, 6, 0, 0, 0)
    path.write_bytes(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(rows, 9)) +
                     chunk(b"IEND", b""))


def svg(path):
    parts = [f'<svg xmlns="http://www.w3.org/2000/svg" width="{SIZE}" height="{SIZE}" viewBox="0 0 {SIZE} {SIZE}">']
    for _, x, y, w, h, r, (cr, cg, cb, _) in SHAPES:
        parts.append(f'  <rect x="{x}" y="{y}" width="{w}" height="{h}" rx="{r}" fill="#{cr:02x}{cg:02x}{cb:02x}"/>')
    parts.append("</svg>")
    path.write_text("\n".join(parts) + "\n")


if __name__ == "__main__":
    folder = Path(__file__).resolve().parent.parent / "src" / "app"
    svg(folder / "zunbrix.svg")
    png(folder / "zunbrix.png")
