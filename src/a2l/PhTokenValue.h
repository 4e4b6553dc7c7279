#pragma once

#include <cstdint>
#include <string_view>

namespace tavo {

/// What a token says beside its code. `nextToken` sets one member, told by the code, or leaves the
/// record alone: a keyword, a single character and the end of the file have no value.
struct PhTokenValue
{
    std::int32_t integer = 0; ///< Of T_INTEGER.
    double real = 0.0;        ///< Of T_DOUBLE.
    std::string_view text;    ///< Of T_STRING and T_IDENTIFIER; valid until the next token is read.
};

} // namespace tavo
