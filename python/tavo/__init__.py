"""ECU descriptions (ASAM MCD-2 MC, `.a2l`): as configurations, and as Python objects.

    import tavo

    warnings = tavo.convert("engine.a2l", "engine.ini")
    for quantity in tavo.read("engine.a2l").measurements:
        print(quantity.name, quantity.unit)

`convert` calls the shared library, `read` runs the program `tavo`. Both must be installed: the library
where the system's loader finds it, the program on the PATH. A description that can't be read raises
`tavo.Error`, which has the file, the line and the text of the message. What the system refuses, such as
a file that isn't there, is an `OSError`.
"""

from .diagnostics import Diagnostic, Error
from .library import convert
from .listing import (Conversion, Description, Interface, Measurement, Method, Row, Source, Transport,
                      read)

__all__ = ["Conversion", "Description", "Diagnostic", "Error", "Interface", "Measurement", "Method",
           "Row", "Source", "Transport", "convert", "read"]
