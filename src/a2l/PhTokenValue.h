#pragma once

#include <cstdint>
#include <string_view>

namespace tavo {

/// A token: its code, and all that it says besides. A number is that of the last token that was
/// one.
struct PhTokenValue
{
    int code = 0;
    std::string_view text;    ///< Of a word, a string and a number (without the 0x); else empty.
    std::int32_t integer = 0; ///< Of T_INTEGER.
    double real = 0.0;        ///< Of T_DOUBLE.
};

} // namespace tavo
