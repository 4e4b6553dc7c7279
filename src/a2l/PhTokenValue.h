#pragma once

#include <cstdint>

namespace tavo {

/// What a token says beside its code. `nextToken` sets one member, told by the code, or leaves the
/// record alone: a keyword, a single character and the end of the file have no value.
union PhTokenValue
{
    std::int32_t integer; ///< Of T_INTEGER.
    double real;          ///< Of T_DOUBLE.
    const char* text;     ///< Of T_STRING and T_IDENTIFIER; valid until the next token is read.
};

} // namespace tavo
