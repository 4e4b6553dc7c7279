#!/usr/bin/env python3
"""A host in Python: converts a description and shows its diagnostics alone.

    python3 host.py engine.a2l engine.ini

The library is looked for where the system looks; the environment variable TAVO_LIBRARY may hold the
path of another one.
"""

import ctypes
import os
import sys
import tempfile

WINDOWS = os.name == "nt"

# The library prints to the standard output of the C runtime that it is linked to. On Windows this
# isn't Python's own one, so the output is caught with the runtime's functions and not with Python's.
RUNTIME = ctypes.CDLL("msvcrt" if WINDOWS else None)


def runtime(name):
    return getattr(RUNTIME, "_" + name if WINDOWS else name)


def load():
    default = "tavo.dll" if WINDOWS else "libtavo.so.1"
    library = ctypes.CDLL(os.environ.get("TAVO_LIBRARY", default))
    library.tavoConvert.argtypes = [ctypes.c_char_p, ctypes.c_char_p]
    for function in (library.tavoInitialize, library.tavoConvert, library.tavoDeinitialize):
        function.restype = ctypes.c_int32
    return library


def path_bytes(path):
    return path.encode("mbcs") if WINDOWS else os.fsencode(path)


def convert(library, source, target):
    library.tavoInitialize()
    result = library.tavoConvert(path_bytes(source), path_bytes(target))
    library.tavoDeinitialize()
    return result


def with_report(task, *arguments):
    """The result of the task and the lines that the library prints meanwhile."""
    sys.stdout.flush()
    RUNTIME.fflush(None)
    with tempfile.TemporaryDirectory() as folder:
        caught = os.path.join(folder, "report")
        console = runtime("dup")(1)
        report = runtime("creat")(path_bytes(caught), 0o600)
        runtime("dup2")(report, 1)
        runtime("close")(report)
        try:
            result = task(*arguments)
        finally:
            RUNTIME.fflush(None)
            runtime("dup2")(console, 1)
            runtime("close")(console)
        # A message repeats bytes of the description, whatever their encoding.
        with open(caught, encoding="utf-8", errors="replace") as text:
            return result, text.read().split("\n")


def main(source, target):
    result, report = with_report(convert, load(), source, target)
    for line in report:
        if line.startswith(("-: Error", "-: Warning")):
            print(line.removeprefix("-: "))
    return -result  # 0 to 3


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(f"usage: {sys.argv[0]} INPUT.a2l OUTPUT")
    sys.exit(main(sys.argv[1], sys.argv[2]))
