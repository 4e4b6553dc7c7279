#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tavo {

/// A number as the description writes it.
struct Number
{
    double real = 0.0;           ///< The value, as near as a double comes.
    std::uint64_t magnitude = 0; ///< Of an integer, exactly.
    bool isInteger = false;      ///< Written as an integer of at most 64 bits.
    bool isNegative = false;

    /// The integer that it is: one of at most 64 bits, or a floating-point number with a whole
    /// value in that range. Nothing for any other number.
    std::optional<Number> asInteger() const;
    /// An integer's two's complement.
    std::uint64_t bits() const { return isNegative ? 0 - magnitude : magnitude; }
    /// An integer as a signed number; nothing if it has more than 63 bits.
    std::optional<std::int64_t> asSigned() const;
};

/// Reads the number that the whole word is: a sign, decimal or hexadecimal (0x) digits, or a
/// floating-point number in any usual form. False for every other word, which leaves `number`
/// alone.
bool readNumber(std::string_view word, Number& number);

/// False for a word that is no number by its first character, as most that aren't.
inline bool mayBeNumber(std::string_view word)
{
    const char first = word.empty() ? '\0' : word.front();
    return (first >= '0' && first <= '9') || first == '.' || first == '-' || first == '+';
}

/// The same; nothing for what is no number.
inline std::optional<Number> parseNumber(std::string_view word)
{
    Number number;
    return readNumber(word, number) ? std::optional(number) : std::nullopt;
}

} // namespace tavo
