#!/usr/bin/env python3
"""Checks that a listing holds all that a configuration says, for all descriptions that have one, and
that each listing is what its schema says. With one FOLDER that holds `old.a2l` and `new.a2l`, the same of
what differs between the two, which `diff.txt` has as a text.

usage: listings.py PROGRAM SCHEMA FOLDER...      FOLDER holds NAME.a2l with NAME.ini or NAME.json
"""

import csv
import io
import json
import subprocess
import sys
from pathlib import Path

import jsonschema


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
    """The lines of the configuration, except headers and what no description has a say in."""
    lines = []
    for interface in listing["interfaces"]:
        lines += lines_of(interface, INTERFACE)
        for source in listing["sources"]:
            if source["interface"] == interface["name"]:
                lines += lines_of(source, SOURCE)
    measurements = [row for row in listing["measurements"] if "left_out" not in row]
    if measurements:
        lines += ['Name="Unassigned"', f"NumProcessFactors={len(measurements)}"]
    for measurement in measurements:
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


def host(transport):
    known = [transport.get(name) for name in ("address", "host_name", "ipv6", "port")]
    return ":".join([transport["kind"], *(str(part) for part in known if part)])


def is_same(cell, value):
    """Whether a cell of CSV says what JSON does, with less detail."""
    if isinstance(value, dict):  # a conversion
        return cell == value["name"]
    if isinstance(value, list) and value and isinstance(value[0], float):
        return [float(number) for number in cell.split()] == value
    if isinstance(value, list) and (
            not value or (isinstance(value[0], dict) and "kind" not in value[0])):
        return len(cell.split("; ")) == max(1, len(value))  # the rows of a table
    if isinstance(value, list):
        form = "x".join if isinstance(value[0], int) else " ".join
        return cell == form(host(part) if isinstance(part, dict) else str(part) for part in value)
    if value is None or isinstance(value, str):
        return cell == value or (value is None and cell in ("", "inf", "-inf"))
    return (float(cell) if isinstance(value, float) else int(cell, 0)) == value


def close(schema):
    """Lets no object have members that the schema doesn't know."""
    if isinstance(schema, dict):
        if "properties" in schema:
            schema["additionalProperties"] = False
        for part in schema.values():
            close(part)
    elif isinstance(schema, list):
        for part in schema:
            close(part)


def names_in(tree, key=None):
    """The names of all members, or of those that stand in members of the name `key`."""
    if isinstance(tree, list):
        return set().union(*(names_in(part, key) for part in tree))
    if not isinstance(tree, dict):
        return set()
    names = set(tree.get(key, ())) if key else set(tree)
    return names.union(*(names_in(part, key) for part in tree.values()))


class Listings:
    def __init__(self, program, schema):
        self.program = program
        self.names = names_in(schema, "properties")
        close(schema)
        jsonschema.Draft202012Validator.check_schema(schema)
        self.validator = jsonschema.Draft202012Validator(schema)

    def listed(self, path, *options):
        command = [self.program, "list", "-q", *options, path.with_suffix(".a2l")]
        run = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=True)
        return run.stdout.decode()

    def check(self, path, *options):
        """The listing as JSON; it has the same values as the one in CSV."""
        for kinds in ("methods", "sources,measurements"):
            self.check_both(path, *options, "--kind", kinds)
        return self.check_both(path, *options)

    def check_both(self, path, *options):
        listing = json.loads(self.listed(path, *options, "--format", "json"))
        self.validator.validate(listing)
        self.names -= names_in(listing)
        rows = [row for section in listing.values() for row in section]
        text = self.listed(path, *options, "--format", "csv")
        table = list(csv.DictReader(io.StringIO(text, newline="")))
        assert len(table) == len(rows), path
        for row, cells in zip(rows, table):
            assert list(row)[0] == "name", (path, row)
            if cells["kind"] == "method":
                row.setdefault("coefficients", row.get("linear_coefficients", ""))
                row["conversion"] = row.get("kind", "")
            for name, cell in cells.items():
                assert name == "kind" or is_same(cell, row.get(name, "")), (path, name, cell)
        return listing


def check_differences(program, schema, folder):
    differences = Listings(program, schema)
    command = [program, "diff", folder / "old.a2l", folder / "new.a2l"]
    run = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
    assert run.stdout == (folder / "diff.txt").read_bytes() and run.returncode == 1, run.stdout
    run = subprocess.run([*command, "--format=json"], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
    found = json.loads(run.stdout)
    differences.validator.validate(found)
    lines = (folder / "diff.txt").read_text().splitlines()[:-1]
    for row, line in zip(found["differences"], lines, strict=True):
        assert line.split()[:2] == [row["change"], row["kind"]] and row["name"] in line, line
        for name in row.get("values", ()):
            assert name.removesuffix("_ns") in line, (line, name)
    assert differences.names == names_in(found), differences.names ^ names_in(found)


def main(program, schema, *folders):
    if (Path(folders[0]) / "old.a2l").exists():
        check_differences(program, json.loads(Path(schema).read_text()), Path(folders[0]))
        return
    listings = Listings(program, json.loads(Path(schema).read_text()))
    found = [path for folder in folders for path in sorted(Path(folder).glob("*.*"))]
    configurations = [path for path in found if path.suffix == ".ini"]
    for path in configurations:
        if path.with_suffix(".json") not in found:  # which are of the wide dialect
            assert configuration_of(listings.check(path, "--strict")) == configuration_in(path), path
        if path.parent.name == "examples":
            assert configuration_of(listings.check(path)) == configuration_in(path), path
    expectations = [path for path in found if path.suffix == ".json"]
    for path in expectations:
        listings.check(path)
        assert listings.listed(path, "--format", "json") == path.read_text(), path
    assert len(configurations) > 10 and expectations
    # Ten million rows of tables are too many for a test, and several files are one elsewhere.
    assert listings.names == {"rows_left_out", "file"}, listings.names


if __name__ == "__main__":
    main(*sys.argv[1:])
