#pragma once

#include "base/Place.h"

#include <cstdint>

namespace tavo {

enum class Severity
{
    Error,   ///< A fault of the description. Whether the reading goes on, a status tells.
    Warning, ///< The reading goes on.
    Note,    ///< More about the diagnostic before it.
};

/// What a reader has to say about a place in a description. The texts are the reporter's and are
/// valid during the call alone.
struct Diagnostic
{
    Severity severity;
    const char* file; ///< As the reader was given it; null if no file is concerned.
    int line;         ///< From 1 on; 0 if the file as a whole is meant.
    const char* text; ///< Without file, line and line end.
    /// Bytes of the file before the place, where those of a mark don't count, and UTF-16 and UTF-32
    /// count as UTF-8; `noOffset` if nobody knows.
    std::uint64_t offset = noOffset;
};

} // namespace tavo
