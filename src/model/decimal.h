#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

/// Numbers from and to text. Nothing here looks at the locale of the host or allocates memory. The
/// two readings take the characters in [first, last), skip no blanks and know no hexadecimal
/// notation.
namespace tavo {

/// The longest leading numeral of the form [sign] digits [. digits] [e [sign] digits], of whose
/// digits around the point one side may be missing; 0.0 if there is none. The result is the nearest
/// double, denormals included; a numeral beyond them becomes an infinity or a zero of its sign.
double parseDouble(const char* first, const char* last);

/// The leading integer, of an optional sign and digits; 0 if there is none. A number that doesn't
/// fit gives the limit on its side.
std::int32_t parseInt32(const char* first, const char* last);

/// The magnitude of the lowest integer of 32 bits, one more than that of the highest.
constexpr std::uint64_t lowestMagnitude = 2147483648;

/// The integer of this magnitude and sign, or the limit on its side if it doesn't fit.
inline std::int32_t saturated(std::uint64_t magnitude, bool isNegative)
{
    const auto size = static_cast<std::int64_t>(std::min(magnitude, lowestMagnitude - !isNegative));
    return static_cast<std::int32_t>(isNegative ? -size : size);
}

/// `number` without its fraction, or the nearer limit if it doesn't fit; 0 for NaN.
template <class Integer> Integer truncated(double number)
{
    if (std::isnan(number))
        return 0;
    constexpr double lowest = std::numeric_limits<Integer>::min();
    constexpr double highest = std::numeric_limits<Integer>::max();
    return static_cast<Integer>(std::clamp(number, lowest, highest));
}

/// A double as text with six decimals, however small or large it is; "inf" and "nan", with their
/// sign, for what has no digits.
class FixedText
{
public:
    explicit FixedText(double number);

    const char* text() const { return text_; }
    std::size_t length() const { return length_; }

    /// Of any text: the largest double has 309 digits before the point.
    static constexpr std::size_t longest = 319;

private:
    char text_[longest + 1];
    std::size_t length_;
};

// These write to `target`, without a zero byte at the end, and return the place after the text.
// What is after it in the room that they ask for may be overwritten.

/// The text of a `FixedText`; into room for `FixedText::longest` characters.
char* writeFixed(char* target, double number);
/// The digits, with a sign if the number is negative; into room for 16 characters.
char* writeDecimal(char* target, std::int32_t number);
/// The digits in lower case, without a prefix; into room for 16 characters.
char* writeHexadecimal(char* target, std::uint32_t number);

} // namespace tavo
