#!/usr/bin/env python3
"""Draws where the quantities of a description are in the memory of the ECU.

    python3 address_space.py modern.a2l address_space.png

Needs the package tavo (python/) and matplotlib.
"""

import sys

import matplotlib

matplotlib.use("Agg")  # No window: the picture goes to a file.
import matplotlib.pyplot as plt
import tavo

MOST_ROWS = 40
COLORS = {1: "tab:blue", 2: "tab:green", 4: "tab:orange", 8: "tab:red"}


def rows_of(measurements):
    """Bytes of a row, and {address of a row: its quantities}. Memory without quantities has no row."""
    size = 64
    while True:
        rows = {}
        for quantity in measurements:
            rows.setdefault(quantity.address // size * size, []).append(quantity)
        if len(rows) <= MOST_ROWS:
            return size, dict(sorted(rows.items()))
        size *= 2


def draw(description, title):
    placed = [quantity for quantity in description.measurements
              if quantity.size > 0 and quantity.address is not None]
    row_size, rows = rows_of(placed)
    figure, axes = plt.subplots(figsize=(10, 1.5 + 0.3 * len(rows)), layout="constrained")
    for element, color in COLORS.items():
        axes.barh(0, 0, color=color, label=f"{8 * element} bits")
    for row, (address, quantities) in enumerate(rows.items()):
        for element, color in COLORS.items():
            bars = [(quantity.address - address, quantity.size) for quantity in quantities
                    if quantity.element_size == element]
            axes.broken_barh(bars, (row - 0.4, 0.8), color=color, edgecolor="white", linewidth=0.3)
    axes.set_yticks(range(len(rows)), [f"0x{address:08x}" for address in rows])
    axes.set_xlim(0, row_size)
    axes.set_xlabel("Bytes from the address on the left")
    axes.set_title(f"{title}: {len(placed)} quantities")
    axes.legend(loc="upper left", bbox_to_anchor=(1, 1))
    return figure


def main(source, target):
    try:
        description = tavo.read(source)
    except tavo.Error as error:
        sys.exit(str(error))
    draw(description, source).savefig(target)


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(f"usage: {sys.argv[0]} INPUT.a2l OUTPUT.png")
    main(sys.argv[1], sys.argv[2])
