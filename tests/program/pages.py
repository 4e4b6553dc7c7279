#!/usr/bin/env python3
"""Checks that the data of a page says what the listing says, that nothing of a description gets out of
them, and that the page allows its own script and style alone.

usage: pages.py PROGRAM FOLDER...      FOLDER holds descriptions
"""

import base64
import hashlib
import json
import re
import subprocess
import sys
import tempfile
from html.parser import HTMLParser
from pathlib import Path

HOSTILE = b"""/begin PROJECT p "" /begin MODULE m ""
/begin COMPU_METHOD c</script> "</script>" TAB_VERB "%1.0" "<b>" COMPU_TAB_REF t /end COMPU_METHOD
/begin COMPU_VTAB t "" TAB_VERB 1 0 "<!--<script>" /end COMPU_VTAB
/begin MEASUREMENT a<script> "</script><script>alert(1)</script>" UBYTE c</script> 0 0 0 255
  SYMBOL_LINK "a<script>" 0 DISPLAY_IDENTIFIER <!-- /end MEASUREMENT
/begin MEASUREMENT a<script>b "<!-- <script> \\"' \\\\ \xe2\x80\xa8\xe2\x80\xa9 \xff\xfe\xc0\x80 \x01\x1f ]]>" UWORD
  NO_COMPU_METHOD 0 0 -1E999 18446744073709551615 ECU_ADDRESS 0xFFFFFFFFFFFFFFFF BIT_MASK 0x8000000000000001
  PHYS_UNIT "</SCRIPT >" /end MEASUREMENT
/begin MEASUREMENT \xc3\xbcber "&lt;/script&gt;" ULONG NO_COMPU_METHOD 0 0 0 1 ECU_ADDRESS 0x1FFFFFFFFFFFFFFFFF
  BIT_MASK 0x20000000000001
  /end MEASUREMENT
/begin MEASUREMENT \xc3\xa4ben "" ULONG NO_COMPU_METHOD 0 0 0 1 ECU_ADDRESS -9223372036854775808 /end MEASUREMENT
/end MODULE /end PROJECT
"""


class Page(HTMLParser):
    """The elements of a page, and the content of those that are no markup."""

    def __init__(self, text):
        super().__init__()
        self.tags = []
        self.current = None
        self.content = {}
        self.policy = ""
        self.feed(text)

    def handle_starttag(self, tag, attributes):
        attributes = dict(attributes)
        self.current = (tag, attributes.get("type"))
        self.tags.append(tag)
        if attributes.get("http-equiv") == "Content-Security-Policy":
            self.policy = attributes["content"]

    def handle_data(self, data):
        self.content[self.current] = self.content.get(self.current, "") + data

    def handle_endtag(self, tag):
        self.current = None


def expanded(column):
    """The items of a column, in which [n] means the one before n times more."""
    items = []
    for item in column:
        items += [items[-1]] * item[0] if isinstance(item, list) else [item]
    return items


def texts(column, names):
    known = []
    for row, item in enumerate(expanded(column)):
        if isinstance(item, str):
            known.append(item)
        yield names[row] if item is True else known[item] if isinstance(item, int) else item


def names_of(column):
    names = [""]
    for length, rest in zip(column[::2], column[1::2]):
        names.append(names[-1][:length] + rest)
    return names[1:]


def patterns(column, is_sum=False):
    """Numbers, "missing" for none."""
    last = 0
    for item in expanded(column):
        if isinstance(item, int):
            assert abs(item) <= 2**53, item  # which JavaScript reads as it is
            last = item + (last if is_sum else 0)
        yield ("missing" if item is None else last if isinstance(item, int)
               else None if item == "" else int(item))


def limits(column):
    for item in expanded(column):
        yield "missing" if item is None else None if isinstance(item, str) else item


def conversions(data):
    for conversion in data["conversions"]:
        line = {key: conversion.pop(key) for key in ("factor", "offset") if key in conversion}
        if "rows" in conversion:
            table = data["tables"][conversion.pop("rows")]
            if "default" in table:
                conversion["default"] = table["default"]
            keys = [key for key in ("raw", "from", "to", "physical", "text") if key in table]
            conversion["rows"] = [dict(zip(keys, row)) for row in zip(*(table[key] for key in keys))]
        yield conversion, line


def listing_of(data):
    """What the listing in JSON is, by the data of a page."""
    names = names_of(data["name"])
    columns = {key: list(texts(data[key], names)) for key in (
        "description", "type", "byte_order", "unit", "left_out", "dimensions", "events", "layout",
        "symbol", "display_name")}
    columns |= {key: list(patterns(data[key], key == "address")) for key in (
        "address", "address_extension", "bit_mask", "symbol_offset")}
    columns |= {key: list(limits(data[key])) for key in ("min", "max")}
    known = list(conversions(data))
    numbers, virtual = expanded(data["conversion"]), expanded(data["virtual"])
    rows = []
    for row, name in enumerate(names):
        measurement = {"name": name}
        for key, column in columns.items():
            item = column[row]
            if key in ("dimensions", "events") and item is not None:
                item = [int(number) for number in re.split("[x ]", item)]
            is_number = key in ("address", "address_extension", "bit_mask", "symbol_offset", "min", "max")
            if item != "missing" if is_number else item is not None:
                measurement[key] = item
        if numbers[row] is None:
            measurement |= {"factor": 1, "offset": 0}
        else:
            measurement["conversion"], line = known[numbers[row]]
            measurement |= line
        rows.append(measurement | ({"virtual": True} if virtual[row] else {}))
    assert len(rows) == data["count"]
    return {"interfaces": data["interfaces"], "sources": data["sources"], "measurements": rows}


def check(program, description, *options):
    run = [program, "page", "-q", *options, description, "-"]
    text = subprocess.run(run, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=True).stdout.decode()
    page = Page(text)
    script, style = page.content[("script", "module")], page.content[("style", None)]
    block = page.content[("script", "application/json")]
    assert page.tags.count("script") == 2 and "<" not in block, description
    for directive, content in (("script-src", script), ("style-src", style)):
        digest = base64.b64encode(hashlib.sha256(content.encode()).digest()).decode()
        assert f"{directive} 'sha256-{digest}'" in page.policy, directive
    assert page.policy.startswith("default-src 'none'; ") and "unsafe" not in page.policy, page.policy
    command = [program, "list", "-q", *options, "--format", "json", description]
    listing = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=True).stdout
    assert listing_of(json.loads(block)) == json.loads(listing), description
    return len(block)


def check_command_line(program, folder):
    """What the command makes of its arguments: the exit code, and the pages that are there then."""
    (folder / "a.a2l").write_bytes(HOSTILE)
    (folder / "b.a2l").write_bytes(HOSTILE.replace(b"UWORD", b"SWORD"))
    (folder / "bad.a2l").write_text("/begin PROJECT")
    cases = [("a.a2l", 0, "a.html"), ("a.a2l", 3, "a.html"), ("-f a.a2l", 0, "a.html"), ("a.a2l b.a2l", 0, "a.html b.html"),
             ("a.a2l b.a2l c.htm", 0, "a.html b.html c.htm"), ("a.a2l b.a2l c", 2, "a.html b.html c.htm"),
             ("bad.a2l bad.html", 1, "a.html b.html c.htm"), ("a.a2l bad.a2l", 1, "a.html b.html c.htm"),
             ("bad.a2l a.a2l d.html", 1, "a.html b.html c.htm"), ("-", 2, "a.html b.html c.htm")]
    for arguments, code, pages in cases:
        run = subprocess.run([program, "page", *arguments.split()], cwd=folder, stdin=subprocess.DEVNULL,
                             stderr=subprocess.PIPE, check=False)
        found = " ".join(sorted(path.name for path in folder.glob("*.htm*")))
        assert (run.returncode, found) == (code, pages), (arguments, run, found)
    differences = Page((folder / "b.html").read_text()).content[("script", "application/json")]
    assert json.loads(differences)["differences"] == [
        ["changed", "measurement", "a<script>b", "", "", ["type", "uint16", "int16"]]], differences


def main(program, *folders):
    found = [path for folder in folders for path in sorted(Path(folder).glob("*.a2l"))]
    checked = 0
    for path in found:
        read = subprocess.run([program, "check", "-q", path], stderr=subprocess.DEVNULL, check=False)
        if read.returncode == 0:
            checked += 1
            assert check(program, path) <= 1000 + path.stat().st_size, path
        if path.with_suffix(".ini").exists() and not path.with_suffix(".json").exists():
            check(program, path, "--strict")
    assert checked > 10
    with tempfile.TemporaryDirectory() as folder:
        hostile = Path(folder) / "<!--.a2l"
        hostile.write_bytes(HOSTILE)
        check(program, hostile)
        check_command_line(program, Path(folder))


if __name__ == "__main__":
    main(*sys.argv[1:])
