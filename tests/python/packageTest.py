#!/usr/bin/env python3
"""The installed package for Python, with the installed library and program.

usage: packageTest.py SOURCES
"""

import dataclasses
import json
import os
import subprocess
import sys
import tempfile
import threading
import unittest
from pathlib import Path

import tavo

SOURCES = Path(sys.argv.pop())
GOLDEN = SOURCES / "tests/golden"
CLASSES = {"interface": tavo.Interface, "transport": tavo.Transport, "source": tavo.Source,
           "measurement": tavo.Measurement, "conversion": tavo.Conversion, "method": tavo.Method}


def members_of(value):
    """What the JSON listing has of an object."""
    if dataclasses.is_dataclass(value):
        return {field.name.rstrip("_"): members_of(getattr(value, field.name))
                for field in dataclasses.fields(value)
                if getattr(value, field.name) not in (None, ())}
    return [members_of(part) for part in value] if isinstance(value, tuple) else value


def without_nulls(tree):
    if isinstance(tree, dict):
        return {name: without_nulls(part) for name, part in tree.items()
                if part is not None and part != []}
    return [without_nulls(part) for part in tree] if isinstance(tree, list) else tree


class PackageTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.out = Path(folder.name, "ä.ini")

    def test_classes_have_the_members_of_the_schema(self):
        schema = json.loads((SOURCES / "docs/listing.schema.json").read_text())["$defs"]
        names = {kind: {field.name for field in dataclasses.fields(made)}
                 for kind, made in CLASSES.items()}
        self.assertEqual(names, {kind: set(schema[kind]["properties"]) for kind in CLASSES})
        rows = set().union(*(schema[f"{kind}Row"]["properties"] for kind in ("numeric", "verbal", "range")))
        self.assertEqual({field.name.rstrip("_") for field in dataclasses.fields(tavo.Row)}, rows)

    def test_read_returns_what_the_program_lists(self):
        count = 0
        for path in [*SOURCES.glob("examples/*.a2l"), *GOLDEN.glob("ok-*.a2l")]:
            for strict in (False, True):
                command = ["tavo", "list", "-q", "--format", "json", path, "--kind",
                           "interfaces,sources,measurements,methods"] + ["--strict"] * strict
                run = subprocess.run(command, capture_output=True)
                if run.returncode != 0:
                    continue
                count += 1
                read = dataclasses.replace(tavo.read(path, strict=strict), warnings=())
                listing = without_nulls(json.loads(run.stdout))
                self.assertEqual(members_of(read), listing, path)
        self.assertGreater(count, 20)

    def test_convert_writes_the_bytes_of_the_program_from_any_thread(self):
        def convert(name, strict):
            out = self.out.with_name(f"{name}{strict}.ini")
            tavo.convert(SOURCES / f"examples/{name}.a2l", out, strict=strict)
            written[name, strict] = out.read_bytes()

        written = {}
        cases = [("engine", False), ("engine", True), ("modern", False)]
        threads = [threading.Thread(target=convert, args=case) for case in cases]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        self.assertEqual(written, {(name, strict): (SOURCES / f"examples/{name}.ini").read_bytes()
                                   for name, strict in cases})

    def test_diagnostics_have_file_line_and_text(self):
        path = self.out.with_suffix(".a2l")
        path.write_text('/begin PROJECT p ""\n/begin MODULE m ""\nword\n')
        self.out.write_text("old")
        for task in (tavo.read, lambda path: tavo.convert(path, self.out)):
            with self.assertRaises(tavo.Error) as raised:
                task(path)
            error = raised.exception
            self.assertEqual((error.file, error.line, error.text),
                             (str(path), 2, "Block 'MODULE' without an end"))
            self.assertEqual(str(error), f"{path}:2: error: {error.text}")
        with self.assertRaises(tavo.Error) as raised:
            tavo.convert(path, self.out, strict=True)
        self.assertEqual((raised.exception.line, raised.exception.text), (3, "Unexpected token 'word'"))
        self.assertEqual(self.out.read_text(), "old")
        path.write_text(path.read_text() + "/end MODULE /end PROJECT")
        warning = tavo.Diagnostic("warning", str(path), 3, "Unknown word 'word' is passed over")
        self.assertEqual(tavo.convert(path, self.out), (warning,))
        self.assertEqual(tavo.read(path).warnings, (warning,))

    def test_what_the_system_refuses_is_an_error_of_the_system(self):
        engine = SOURCES / "examples/engine.a2l"
        for kind, task in ((FileNotFoundError, lambda: tavo.read("none.a2l")),
                           (FileNotFoundError, lambda: tavo.convert("none.a2l", self.out)),
                           (IsADirectoryError, lambda: tavo.read(SOURCES)),
                           (FileNotFoundError, lambda: tavo.convert(engine, "none/engine.ini")),
                           (FileNotFoundError, lambda: tavo.read(engine, program="none")),
                           (ValueError, lambda: tavo.convert("engine.txt", self.out))):
            with self.assertRaises(kind):
                task()

    def test_the_standard_output_is_as_it_was(self):
        for closing in ("", "os.close(1); "):
            code = ("import os, sys, tavo; print('before'); sys.stdout.flush(); " + closing +
                    f"tavo.convert({str(SOURCES / 'examples/engine.a2l')!r}, {str(self.out)!r}); "
                    "os.write(1, b'after')")
            run = subprocess.run([sys.executable, "-c", code], capture_output=True, text=True)
            self.assertEqual(run.stdout, "before\n" + ("" if closing else "after"), run.stderr)
            self.assertEqual("Bad file descriptor" in run.stderr, bool(closing))


if __name__ == "__main__":
    unittest.main()
