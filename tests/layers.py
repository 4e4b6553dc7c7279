#!/usr/bin/env python3
"""Holds the #include lines of src against the table of folders in docs/architecture.md.

usage: layers.py SOURCES

The table lists the folders from the top down. Each row names what its folder may include: folders
of rows below it, or single headers. A folder includes its own headers too.
"""

import re
import sys
from pathlib import Path

failures = []


def read_table(document):
    """{folder: what it may include}, from the top down."""
    rows = re.findall(r"^\| `src/(\w+)` \|.*\|(.*)\|$", document.read_text(), re.MULTILINE)
    return {folder: re.findall(r"`([\w./]+)`", allowed) for folder, allowed in rows}


def check_table(table, sources):
    present = {path.name for path in (sources / "src").iterdir() if path.is_dir()}
    for folder in sorted(present ^ table.keys()):
        failures.append(f"docs/architecture.md and src differ in the folder {folder}")
    order = list(table)
    for place, (folder, allowed) in enumerate(table.items()):
        for entry in allowed:
            known = any((sources / top / entry).exists() for top in ("src", "include"))
            if entry in order[:place + 1] or not known:
                failures.append(f"docs/architecture.md: {entry} doesn't stand below {folder}")


def check_includes(table, sources):
    count = 0
    for path in sorted((sources / "src").rglob("*.*")):
        folder = path.relative_to(sources / "src").parts[0]
        for number, line in enumerate(path.read_text("latin-1").splitlines(), 1):
            match = re.match(r'\s*#\s*include\s*(["<])((\w+)/.*|.*)[">]', line)
            if not match or folder not in table:
                continue
            mark, header, owner = match.groups()
            if mark == "<" and owner not in table:
                continue  # the standard library
            count += 1
            if owner != folder and not {owner, header} & set(table[folder]):
                failures.append(f"{path}:{number}: {folder} may not include {header}")
    return count


if __name__ == "__main__":
    root = Path(sys.argv[1])
    layers = read_table(root / "docs/architecture.md")
    check_table(layers, root)
    checked = check_includes(layers, root)
    if checked == 0:
        failures.append("no include was checked")
    print(f"{checked} includes checked", *failures, sep="\n")
    sys.exit(bool(failures))
