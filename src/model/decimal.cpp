#include "model/decimal.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <limits>

namespace tavo {

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

const char* skipSign(const char* first, const char* last)
{
    return first != last && (*first == '+' || *first == '-') ? first + 1 : first;
}

bool isNegative(const char* first, const char* last) { return first != last && *first == '-'; }

/// Tells a huge numeral from a tiny one; [first, last) is one whole numeral other than zero,
/// without a sign.
bool isAboveOne(const char* first, const char* last)
{
    const char* point = std::find_if_not(first, last, isDigit);
    const char* end = point;
    if (end != last && *end == '.')
        end = std::find_if_not(end + 1, last, isDigit);
    const char* leading = std::find_if(first, end, [](char c) { return c != '0' && c != '.'; });
    const std::int64_t power = leading < point ? point - leading - 1 : point - leading;
    const std::int32_t exponent = end == last ? 0 : parseInt32(end + 1, last);
    return power + exponent > 0;
}

} // namespace

double parseDouble(const char* first, const char* last)
{
    const char* digits = skipSign(first, last);
    // Left alone, from_chars would take a second sign and the words for infinity and NaN as well.
    if (digits == last || (!isDigit(*digits) && *digits != '.'))
        return 0.0;
    double number = 0.0;
    const auto [end, error] = std::from_chars(digits, last, number);
    if (error == std::errc::invalid_argument)
        return 0.0;
    if (error == std::errc::result_out_of_range)
        number = isAboveOne(digits, end) ? std::numeric_limits<double>::infinity() : 0.0;
    return isNegative(first, last) ? -number : number;
}

std::int32_t parseInt32(const char* first, const char* last)
{
    std::uint64_t magnitude = 0;
    for (const char* p = skipSign(first, last); p != last && isDigit(*p); ++p)
        magnitude = std::min(magnitude * 10 + static_cast<unsigned>(*p - '0'), lowestMagnitude);
    return saturated(magnitude, isNegative(first, last));
}

namespace {

constexpr int decimals = 6;
constexpr double million = 1e6;

/// Writes the eight bytes of a number, the lowest first.
void putBytes(char* target, std::uint64_t number)
{
    if (std::endian::native == std::endian::big)
        number = __builtin_bswap64(number);
    std::memcpy(target, &number, sizeof number);
}

/// Eight digits of a number below 100,000,000, as numbers of one byte, the first digit lowest.
std::uint64_t digitsOf(std::uint32_t number)
{
    // The number is divided by 10,000, both parts by 100 and all four by 10: each division is a
    // multiplication that is exact for numbers of that size.
    const std::uint64_t fours = number / 10000 | std::uint64_t{number % 10000} << 32;
    const std::uint64_t hundreds = fours * 10486 >> 20 & 0x0000007F0000007F;
    const std::uint64_t twos = hundreds | (fours - hundreds * 100) << 16;
    const std::uint64_t tens = twos * 103 >> 10 & 0x000F000F000F000F;
    return tens | (twos - tens * 10) << 8;
}

constexpr std::uint64_t zeros = 0x3030303030303030; ///< "00000000"
constexpr std::uint32_t tooLarge = 100000000;       ///< For eight digits.

/// The decimal digits that a number below 100,000,000 has. They are counted by decisions and not
/// from the digits: where the next text goes is known, or guessed, while these are still made.
int digitCount(std::uint32_t number)
{
    if (number < 10000) {
        if (number < 1000)
            return number < 100 ? 2 : 3;
        return 4;
    }
    if (number < 1000000)
        return number < 100000 ? 5 : 6;
    return number < 10000000 ? 7 : 8;
}

/// A number below 100,000,000; eight bytes are written in any case.
char* writeShort(char* target, std::uint32_t number)
{
    if (number < 10) {
        *target = static_cast<char>('0' + number);
        return target + 1;
    }
    const int count = digitCount(number);
    putBytes(target, (digitsOf(number) | zeros) >> (8 - count) * 8);
    return target + count;
}

/// Rounds a number of moderate size to six decimals by way of an integer. False if the number is
/// too large, or so near the middle between two texts that the product could fall on the wrong
/// side.
bool roundShort(double magnitude, std::int64_t& millionths)
{
    // Up to here the product is off by less than 2^-13.
    constexpr double largest = 1099511627776.0; // 2^40
    constexpr double margin = 1.0 / 1024;
    const double product = magnitude * million;
    if (!(product < largest))
        return false;
    millionths = static_cast<std::int64_t>(product);
    const double fraction = product - static_cast<double>(millionths);
    millionths += fraction > 0.5 ? 1 : 0;
    return std::fabs(fraction - 0.5) > margin;
}

} // namespace

char* writeDecimal(char* target, std::int32_t number)
{
    *target = '-';
    target += number < 0;
    auto magnitude = static_cast<std::uint32_t>(number);
    magnitude = number < 0 ? 0 - magnitude : magnitude;
    if (magnitude < tooLarge)
        return writeShort(target, magnitude);
    target = writeShort(target, magnitude / tooLarge);
    putBytes(target, digitsOf(magnitude % tooLarge) | zeros);
    return target + 8;
}

char* writeHexadecimal(char* target, std::uint32_t number)
{
    // Four bits to each byte, the highest lowest.
    std::uint64_t digits = number;
    digits = (digits | digits << 16) & 0x0000FFFF0000FFFF;
    digits = (digits | digits << 8) & 0x00FF00FF00FF00FF;
    digits = (digits | digits << 4) & 0x0F0F0F0F0F0F0F0F;
    digits = __builtin_bswap64(digits);
    // A letter is what bit 4 is set in when six are added.
    const std::uint64_t letters = (digits + 0x0606060606060606) >> 4 & 0x0101010101010101;
    const int leading = std::countl_zero(number | 1) / 4;
    putBytes(target, (digits + zeros + letters * ('a' - '0' - 10)) >> leading * 8);
    return target + 8 - leading;
}

char* writeFixed(char* target, double number)
{
    const double magnitude = std::fabs(number);
    const bool isSmall = magnitude < million;
    const std::uint32_t whole = isSmall ? static_cast<std::uint32_t>(magnitude) : 0;
    if (isSmall && static_cast<double>(whole) == magnitude) {
        *target = '-';
        target = writeShort(target + std::signbit(number), whole);
        std::memcpy(target, ".000000", 1 + decimals);
        return target + 1 + decimals;
    }
    std::int64_t millionths = 0;
    if (!roundShort(magnitude, millionths))
        return std::to_chars(target, target + FixedText::longest, number, std::chars_format::fixed,
                             decimals)
            .ptr;
    constexpr std::int64_t unit = 1000000;
    *target = '-';
    target =
        writeShort(target + std::signbit(number), static_cast<std::uint32_t>(millionths / unit));
    // Of the eight digits the first two are zeros, the second of which becomes the point.
    const std::uint64_t rest = digitsOf(static_cast<std::uint32_t>(millionths % unit)) | zeros;
    putBytes(target, rest >> 8 ^ ('0' ^ '.'));
    return target + 1 + decimals;
}

FixedText::FixedText(double number)
{
    char* const end = writeFixed(text_, number);
    *end = '\0';
    length_ = static_cast<std::size_t>(end - text_);
}

} // namespace tavo
