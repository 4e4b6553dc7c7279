"""What is reported of a description."""

from __future__ import annotations

from collections.abc import Iterable
from dataclasses import dataclass


@dataclass(frozen=True)
class Diagnostic:
    """An error or a warning."""

    severity: str
    """"error" or "warning"."""
    file: str
    """The description, or a file that it includes."""
    line: int | None
    """The line, from 1 on; None for what has no line."""
    text: str

    def __str__(self) -> str:
        place = self.file if self.line is None else f"{self.file}:{self.line}"
        return f"{place}: {self.severity}: {self.text}"


class Error(Exception):
    """A description can't be read."""

    def __init__(self, diagnostic: Diagnostic, warnings: Iterable[Diagnostic] = ()):
        super().__init__(str(diagnostic))
        self.file = diagnostic.file
        self.line = diagnostic.line
        self.text = diagnostic.text
        self.warnings = tuple(warnings)
        """What was reported before."""


def warnings_of(diagnostics: list[Diagnostic]) -> tuple[Diagnostic, ...]:
    """The warnings among the diagnostics of a description that could be read."""
    return tuple(diagnostic for diagnostic in diagnostics if diagnostic.severity == "warning")


def error_of(file: str, diagnostics: list[Diagnostic]) -> Error:
    """The exception for a description that couldn't be read."""
    errors = [diagnostic for diagnostic in diagnostics if diagnostic.severity == "error"]
    reason = errors[-1] if errors else Diagnostic("error", file, None, "The file can't be read")
    return Error(reason, warnings_of(diagnostics))
