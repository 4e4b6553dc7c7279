#pragma once

namespace tavo {

/// Name and version of the program on a line, and the commit that it was built from if that is
/// known: "tavo 1.1.0 (1a2b3c4)\n".
extern const char* const versionLine;

} // namespace tavo
