#include "asap2/Fields.h"

#include <limits>

namespace tavo {

Pattern64 patternOf(const Number& number)
{
    Pattern64 pattern;
    pattern.isGiven = true;
    if (const std::optional<Number> integer = number.asInteger()) {
        pattern.bits = integer->bits();
        pattern.isNegative = integer->isNegative;
    } else {
        pattern.isBeyond64 = true;
    }
    return pattern;
}

Limit limitOf(const Number& number)
{
    constexpr double lowest = std::numeric_limits<std::int32_t>::min();
    constexpr double highest = std::numeric_limits<std::int32_t>::max();
    return {number.real, number.isInteger && number.real >= lowest && number.real <= highest};
}

} // namespace tavo
