#pragma once

#include <cfloat>
#include <cstddef>
#include <cstdint>

namespace tavo {

/// Numerals of up to so many digits are exact in a double. None where a division may be rounded
/// twice.
constexpr std::size_t exactDigits = FLT_EVAL_METHOD == 0 ? 15 : 0;

inline constexpr double powersOfTen[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                         1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

/// The double nearest to `digits` with a point before the last `decimals` of them, if the numeral
/// has no more than `exactDigits`: both numbers of the one division are exact then.
inline double withPoint(std::uint64_t digits, std::size_t decimals)
{
    return static_cast<double>(digits) / powersOfTen[decimals];
}

} // namespace tavo
