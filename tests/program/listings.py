#!/usr/bin/env python3
"""Checks that a listing holds all that a configuration says, for all descriptions that have one.

usage: listings.py PROGRAM FOLDER...
"""

import csv
import io
import json
import subprocess
import sys
from pathlib import Path


def text(content):
    return f'"{content}"'


def number(content):
    """In the form of a configuration. JSON has null for what is infinite."""
    return {float: "{:.6f}", int: "{}"}.get(type(content), "infinite").format(content)


INTERFACE = [("Name", "name", text), ("Protocol", "protocol", str), ("MasterId", "master_id", hex),
             ("SlaveId", "slave_id", hex), ("StationAddress", "station_address", number),
             ("NumSources", "sources", lambda count: str(count + 1))]
SOURCE = [("Name", "name", text), ("TransmissionRate", "rate", number),
          ("EventChannelNo", "channel", number)]
MEASUREMENT = [("Name", "name", text), ("Desc", "description", text), ("Unit", "unit", text),
               ("ByteOrder", "byte_order", str), ("Type", "type", str),
               ("ECUAddress", "address", hex), ("AddressExtension", "address_extension", hex),
               ("Min", "min", number), ("Max", "max", number), ("BitMask", "bit_mask", hex),
               ("Offset", "offset", number), ("Factor", "factor", number)]


def lines_of(row, columns):
    return [f"{key}={form(row[name])}" for key, name, form in columns if name in row]


def configuration_of(listing):
    """The lines of the configuration, but for headers and what no description has a say in."""
    lines = []
    for interface in listing["interfaces"]:
        lines += lines_of(interface, INTERFACE)
        for source in listing["sources"]:
            if source["interface"] == interface["name"]:
                lines += lines_of(source, SOURCE)
    if listing["measurements"]:
        lines += ['Name="Unassigned"', f"NumProcessFactors={len(listing['measurements'])}"]
    for measurement in listing["measurements"]:
        lines += lines_of(measurement, MEASUREMENT)
    return "\n".join(lines)


def configuration_in(path):
    content = path.read_bytes()
    try:
        content = content.decode()
    except UnicodeDecodeError:
        content = content.decode("latin-1")
    content = content.replace("=inf\n", "=infinite\n").replace("=-inf\n", "=infinite\n")
    fixed = ("[DAQ_", "Enabled=", "Unassigned=")
    return "\n".join(line for line in content.split("\n") if line and not line.startswith(fixed))


def is_same(cell, value):
    """Whether a cell of CSV tells what JSON does."""
    if isinstance(value, dict): # a conversion, of which the name stands there
        return cell == value["name"]
    if value is None or isinstance(value, str):
        return cell == value or (value is None and cell in ("inf", "-inf"))
    return (float(cell) if isinstance(value, float) else int(cell, 0)) == value


def check(program, path, *options):
    def listed(form):
        command = [program, "list", "-q", *options, "--format", form, path.with_suffix(".a2l")]
        run = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=True)
        return run.stdout.decode()

    listing = json.loads(listed("json"))
    assert configuration_of(listing) == configuration_in(path), path
    rows = [row for section in listing.values() for row in section]
    table = list(csv.DictReader(io.StringIO(listed("csv"), newline="")))
    assert len(table) == len(rows), path
    for row, cells in zip(rows, table):
        assert list(row)[0] == "name", (path, row)
        for name, cell in cells.items():
            assert name == "kind" or is_same(cell, row.get(name, "")), (path, name, cell)


if __name__ == "__main__":
    count = 0
    for configuration in [path for folder in sys.argv[2:] for path in Path(folder).glob("*.ini")]:
        check(sys.argv[1], configuration, "--strict")
        count += 1
    assert count > 10
