#include "model/decimal.h"

#include <algorithm>
#include <array>
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

/// "00" to "99"
constexpr auto twoDigits = [] {
    std::array<char[2], 100> texts{};
    for (int i = 0; i < 100; ++i) {
        texts[static_cast<std::size_t>(i)][0] = static_cast<char>('0' + i / 10);
        texts[static_cast<std::size_t>(i)][1] = static_cast<char>('0' + i % 10);
    }
    return texts;
}();

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

char* writeInteger(char* target, std::int64_t number)
{
    if (number >= 10)
        return std::to_chars(target, target + FixedText::longest, number).ptr;
    *target = static_cast<char>('0' + number);
    return target + 1;
}

} // namespace

char* writeFixed(char* target, double number)
{
    const double magnitude = std::fabs(number);
    const bool isSmall = magnitude < million;
    const std::int64_t whole = isSmall ? static_cast<std::int64_t>(magnitude) : 0;
    if (isSmall && static_cast<double>(whole) == magnitude) {
        *target = '-';
        target = writeInteger(target + std::signbit(number), whole);
        std::memcpy(target, ".000000", 1 + decimals);
        return target + 1 + decimals;
    }
    std::int64_t millionths = 0;
    if (!roundShort(magnitude, millionths))
        return std::to_chars(target, target + FixedText::longest, number, std::chars_format::fixed,
                             decimals)
            .ptr;
    *target = '-';
    constexpr std::int64_t unit = 1000000;
    target = writeInteger(target + std::signbit(number), millionths / unit);
    *target++ = '.';
    const auto rest = static_cast<std::uint32_t>(millionths % unit);
    for (std::uint32_t divisor = 10000; divisor > 0; divisor /= 100, target += 2)
        std::memcpy(target, twoDigits[rest / divisor % 100], 2);
    return target;
}

FixedText::FixedText(double number)
{
    char* const end = writeFixed(text_, number);
    *end = '\0';
    length_ = static_cast<std::size_t>(end - text_);
}

} // namespace tavo
