"""The conversion by the shared library."""

from __future__ import annotations

import ctypes
import ctypes.util
import functools
import os
import re
import sys
import tempfile
import threading
from collections.abc import Callable
from pathlib import Path

from .diagnostics import Diagnostic, error_of, warnings_of

_WINDOWS = os.name == "nt"
_OK, _OUTPUT_NOT_OPENED = 0, -2

# Only one conversion can run at a time in a process, and there is one standard output.
_lock = threading.Lock()


def convert(path: str | os.PathLike[str], out: str | os.PathLike[str], *,
            strict: bool = False) -> tuple[Diagnostic, ...]:
    """Converts a description, and returns its warnings.

    An existing `out` is replaced if the description could be read, and left alone otherwise. With
    `strict`, the description is read as `libtavo.so` reads it. What other threads print to the
    standard output of the process during the call is lost.
    """
    source, target = os.fspath(path), os.fspath(out)
    if not any(extension in source for extension in (".a2l", ".A2L")):
        raise ValueError(f"{source}: the name of a description ends with .a2l")
    with open(source, "rb"):
        pass  # What the system has against it, it says itself.
    with _lock:
        library = _load(strict)
        result, report = _reported(lambda: _converted(library, source, target))
    diagnostics = _diagnostics_in(report)
    if result == _OK:
        return warnings_of(diagnostics)
    if result == _OUTPUT_NOT_OPENED:
        with open(target, "ab"):
            pass
        raise OSError(f"{target}: can't be opened for writing")
    raise error_of(source, diagnostics)


@functools.cache
def _load(strict: bool) -> ctypes.CDLL:
    name = "tavo" if strict else "tavo-wide"
    dll = ctypes.util.find_library(name) if _WINDOWS else None  # next to the program, for example
    library = ctypes.CDLL(dll or (f"{name}.dll" if _WINDOWS else f"lib{name}.so.1"))
    library.tavoConvert.argtypes = [ctypes.c_char_p, ctypes.c_char_p]
    for function in (library.tavoInitialize, library.tavoConvert, library.tavoDeinitialize):
        function.restype = ctypes.c_int32
    return library


def _encoded(path: str) -> bytes:
    return path.encode("mbcs") if _WINDOWS else os.fsencode(path)


def _converted(library: ctypes.CDLL, source: str, target: str) -> int:
    library.tavoInitialize()
    result: int = library.tavoConvert(_encoded(source), _encoded(target))
    library.tavoDeinitialize()
    return result


def _reported(task: Callable[[], int]) -> tuple[int, str]:
    """The result of the task, and what it prints to the standard output of the C runtime.

    On Windows this isn't the runtime of Python, so it is the runtime's functions that catch it.
    """
    runtime = ctypes.CDLL("msvcrt" if _WINDOWS else None)
    dup, dup2, creat, close = (getattr(runtime, f"_{name}" if _WINDOWS else name)
                               for name in ("dup", "dup2", "creat", "close"))
    if sys.stdout:
        sys.stdout.flush()
    runtime.fflush(None)
    with tempfile.TemporaryDirectory() as folder:
        file = Path(folder, "report")
        console = dup(1)  # -1 in a process without a standard output
        report = creat(_encoded(str(file)), 0o600)
        if report < 0:
            raise OSError(f"{file}: can't be written")
        if report != 1:
            dup2(report, 1)
            close(report)
        try:
            result = task()
        finally:
            runtime.fflush(None)
            if console < 0:
                close(1)
            else:
                dup2(console, 1)
                close(console)
        # A message repeats bytes of the description, whatever their encoding.
        return result, file.read_text(encoding="utf-8", errors="replace")


def _diagnostics_in(report: str) -> list[Diagnostic]:
    # A message may repeat a text of several lines.
    pattern = r"^-: (Error|Warning) \((.*):(-?\d+)\): (.*(?:\n(?!-: |ph_reader->).*)*)$"
    return [Diagnostic(severity.lower(), file, int(line) if int(line) > 0 else None, text)
            for severity, file, line, text in re.findall(pattern, report, re.MULTILINE)]
