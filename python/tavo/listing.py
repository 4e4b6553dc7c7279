"""All that a description says about measuring, as objects.

The classes have the members of the program's JSON listing, and their meaning is the one that
docs/listing.schema.json gives them. A member is None if the description has no value for it, or a number
that JSON can't express, such as an infinity.
"""

from __future__ import annotations

import json
import math
import os
import re
import subprocess
from dataclasses import dataclass, fields
from typing import Any, TypeVar

from .diagnostics import Diagnostic, error_of, warnings_of

_KINDS = "interfaces,sources,measurements,methods"
_SIZES = {"uint8": 1, "int8": 1, "uint16": 2, "int16": 2, "uint32": 4, "int32": 4, "uint64": 8,
          "int64": 8, "real16": 2, "real32": 4, "real64": 8}


@dataclass(frozen=True, slots=True, kw_only=True)
class Transport:
    """A way by which an XCP interface is reached."""

    kind: str
    instance: str | None = None
    address: str | None = None
    host_name: str | None = None
    ipv6: str | None = None
    port: int | None = None
    master_id: int | None = None
    slave_id: int | None = None
    bit_rate: int | None = None
    data_bit_rate: int | None = None
    can_fd: bool | None = None


@dataclass(frozen=True, slots=True, kw_only=True)
class Interface:
    """A measuring interface of the ECU."""

    name: str
    protocol: str
    sources: int
    """How many of the description's sources are its own."""
    master_id: int | None = None
    slave_id: int | None = None
    station_address: int | None = None
    transports: tuple[Transport, ...] = ()


@dataclass(frozen=True, slots=True, kw_only=True)
class Source:
    """A raster or an event, which triggers measuring."""

    name: str
    interface: str
    rate: int
    channel: int
    description: str | None = None
    period: str | None = None
    period_ns: float | None = None


@dataclass(frozen=True, slots=True, kw_only=True)
class Row:
    """A row of a table: for a raw value, or for those from one to another, a value or a text."""

    raw: float | None = None
    physical: float | None = None
    text: str | None = None
    from_: float | None = None
    to: float | None = None


@dataclass(frozen=True, slots=True, kw_only=True)
class Conversion:
    """How a raw value becomes a physical one."""

    name: str
    kind: str | None = None
    coefficients: tuple[float | None, ...] = ()
    linear_coefficients: tuple[float | None, ...] = ()
    formula: str | None = None
    inverse_formula: str | None = None
    table: str | None = None
    default: str | float | None = None
    rows: tuple[Row, ...] = ()
    rows_left_out: int | None = None


@dataclass(frozen=True, slots=True, kw_only=True)
class Method(Conversion):
    """A conversion as it is defined, whether a quantity uses it or not."""

    description: str | None = None
    unit: str | None = None
    factor: float | None = None
    offset: float | None = None


@dataclass(frozen=True, slots=True, kw_only=True)
class Measurement:
    """A measurable quantity."""

    name: str
    description: str
    type: str
    address: int | None = None
    address_extension: int | None = None
    byte_order: str | None = None
    bit_mask: int | None = None
    min: float | None = None
    max: float | None = None
    unit: str | None = None
    factor: float | None = None
    offset: float | None = None
    dimensions: tuple[int, ...] = ()
    layout: str | None = None
    events: tuple[int, ...] = ()
    symbol: str | None = None
    symbol_offset: int | None = None
    display_name: str | None = None
    conversion: Conversion | None = None
    virtual: bool | None = None
    left_out: str | None = None

    @property
    def element_size(self) -> int:
        """Bytes of one element; 0 if the type isn't known."""
        return _SIZES.get(self.type, 0)

    @property
    def size(self) -> int:
        """Its bytes in the memory of the ECU, all elements together."""
        return self.element_size * math.prod(self.dimensions)


@dataclass(frozen=True, slots=True, kw_only=True)
class Description:
    """What a description says about measuring."""

    interfaces: tuple[Interface, ...]
    sources: tuple[Source, ...]
    measurements: tuple[Measurement, ...]
    methods: tuple[Method, ...]
    warnings: tuple[Diagnostic, ...] = ()


def read(path: str | os.PathLike[str], *, strict: bool = False,
         program: str | os.PathLike[str] = "tavo") -> Description:
    """Reads a description. With `strict`, it is read as `libtavo.so` reads it."""
    source = os.fspath(path)
    with open(source, "rb"):
        pass  # What the system has against it, it says itself.
    command = [os.fspath(program), "list", "--format", "json", "--kind", _KINDS,
               *(["--strict"] if strict else []), "--", source]
    run = subprocess.run(command, stdin=subprocess.DEVNULL, capture_output=True, check=False)
    messages = run.stderr.decode("utf-8", errors="replace")
    diagnostics = _diagnostics_in(messages)
    if run.returncode == 1:
        raise error_of(source, diagnostics)
    if run.returncode != 0:
        raise OSError(messages.strip() or f"{program} ended with {run.returncode}")
    listing = json.loads(run.stdout)
    return Description(interfaces=tuple(map(_interface, listing["interfaces"])),
                       sources=tuple(_made(Source, source) for source in listing["sources"]),
                       measurements=tuple(map(_measurement, listing["measurements"])),
                       methods=tuple(_conversion(Method, method) for method in listing["methods"]),
                       warnings=warnings_of(diagnostics))


_Class = TypeVar("_Class")


def _made(kind: type[_Class], members: dict[str, Any], **others: Any) -> _Class:
    """An object of what is known of the members: a later program may list more."""
    known = {field.name for field in fields(kind)}  # type: ignore[arg-type]
    values = {name: tuple(value) if isinstance(value, list) else value
              for name, value in members.items() if name in known}
    return kind(**{**values, **others})


def _interface(members: dict[str, Any]) -> Interface:
    ways = members.get("transports", ())
    return _made(Interface, members, transports=tuple(_made(Transport, way) for way in ways))


def _measurement(members: dict[str, Any]) -> Measurement:
    if "conversion" not in members:
        return _made(Measurement, members)
    return _made(Measurement, members, conversion=_conversion(Conversion, members["conversion"]))


def _conversion(kind: type[_Class], members: dict[str, Any]) -> _Class:
    rows = tuple(_made(Row, row, **({"from_": row["from"]} if "from" in row else {}))
                 for row in members.get("rows", ()))
    return _made(kind, members, rows=rows)


def _diagnostics_in(messages: str) -> list[Diagnostic]:
    pattern = r"^(\S.*?)(?::(\d+))?(?::\d+)?: (error|warning): (.*)$"
    return [Diagnostic(severity, file, int(line) if line else None, text)
            for file, line, severity, text in re.findall(pattern, messages, re.MULTILINE)]
