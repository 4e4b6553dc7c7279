#include "asap2/Number.h"

#include "base/exactDecimal.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace tavo {

namespace {

constexpr std::uint64_t highestMagnitude = std::numeric_limits<std::uint64_t>::max();
constexpr std::uint64_t lowestInteger = std::uint64_t{1} << 63U; // its magnitude

bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// The value of each character as a digit, up to 15; 16 for what is none. A table, because nobody
/// foresees whether the next hexadecimal digit is a letter.
constexpr auto digitValues = [] {
    std::array<unsigned char, 256> values{};
    values.fill(16);
    for (unsigned char i = 0; i < 10; ++i)
        values[static_cast<std::size_t>('0' + i)] = i;
    for (unsigned char i = 0; i < 6; ++i)
        values[static_cast<std::size_t>('a' + i)] = values[static_cast<std::size_t>('A' + i)] =
            static_cast<unsigned char>(10 + i);
    return values;
}();

// The fields are set one by one in their place: a number that is made elsewhere and copied would be
// waited for.

void setInteger(Number& number, std::uint64_t magnitude, bool isNegative)
{
    const auto size = static_cast<double>(magnitude);
    number.isNegative = isNegative && magnitude != 0;
    number.real = number.isNegative ? -size : size;
    number.magnitude = magnitude;
    number.isInteger = true;
}

void setReal(Number& number, double magnitude, bool isNegative)
{
    number.real = isNegative ? -magnitude : magnitude;
    number.magnitude = 0;
    number.isInteger = false;
    number.isNegative = isNegative;
}

/// Digits of a base that are one whole number. One beyond 64 bits becomes a floating-point number.
template <unsigned base> bool readDigits(std::string_view digits, bool isNegative, Number& number)
{
    constexpr std::size_t neverTooMany = base == 16 ? 16 : 19;
    if (digits.empty())
        return false;
    std::uint64_t magnitude = 0;
    bool fits = true;
    for (const char c : digits) {
        const unsigned digit = digitValues[static_cast<unsigned char>(c)];
        if (digit >= base)
            return false;
        if (digits.size() > neverTooMany)
            fits = fits && magnitude <= (highestMagnitude - digit) / base;
        magnitude = magnitude * base + digit;
    }
    if (fits && (!isNegative || magnitude <= lowestInteger)) {
        setInteger(number, magnitude, isNegative);
        return true;
    }
    double value = 0.0;
    const auto format = base == 16 ? std::chars_format::hex : std::chars_format::general;
    const auto result =
        std::from_chars(digits.data(), digits.data() + digits.size(), value, format);
    if (result.ec == std::errc::result_out_of_range)
        value = std::numeric_limits<double>::infinity();
    setReal(number, value, isNegative);
    return true;
}

/// Most numerals: few digits, with a point among them or without. False for any other word.
bool readShort(std::string_view word, bool isNegative, Number& number)
{
    if (word.size() > exactDigits || !isDigit(word.front()))
        return false;
    if (word.size() == 1) {
        setInteger(number, digitValues[static_cast<unsigned char>(word.front())], isNegative);
        return true;
    }
    std::uint64_t digits = 0;
    const char* const end = word.data() + word.size();
    const auto readDigits = [&](const char* digit) {
        for (; digit != end && isDigit(*digit); ++digit)
            digits = digits * 10 + static_cast<unsigned>(*digit - '0');
        return digit;
    };
    const char* const point = readDigits(word.data());
    if (point == end) {
        setInteger(number, digits, isNegative);
        return true;
    }
    if (*point != '.' || readDigits(point + 1) != end)
        return false;
    setReal(number, withPoint(digits, static_cast<std::size_t>(end - point - 1)), isNegative);
    return true;
}

/// True for digits with at most one point among them, at least one digit, and an optional exponent.
bool isFloatingPoint(std::string_view word)
{
    std::size_t digitCount = 0;
    bool hasPoint = false;
    std::size_t i = 0;
    for (; i < word.size() && (isDigit(word[i]) || (word[i] == '.' && !hasPoint)); ++i) {
        hasPoint |= word[i] == '.';
        digitCount += word[i] != '.';
    }
    if (digitCount == 0)
        return false;
    if (i == word.size())
        return true;
    if ((word[i] | 0x20) != 'e')
        return false;
    ++i;
    if (i < word.size() && (word[i] == '+' || word[i] == '-'))
        ++i;
    if (i == word.size())
        return false;
    while (i < word.size() && isDigit(word[i]))
        ++i;
    return i == word.size();
}

/// True if a numeral beyond all doubles is huge, and not tiny: its first digit other than zero
/// stands left of the point, counted with the exponent.
bool isHuge(std::string_view word)
{
    const std::size_t mantissaEnd = std::min(word.find_first_of("eE"), word.size());
    const std::string_view mantissa = word.substr(0, mantissaEnd);
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t leading = mantissa.find_first_not_of("0.");
    if (leading == std::string_view::npos)
        return false;
    std::int64_t exponent = 0;
    if (mantissaEnd < word.size()) {
        std::string_view digits = word.substr(mantissaEnd + 1);
        const bool isNegative = digits.front() == '-';
        digits.remove_prefix(isNegative || digits.front() == '+' ? 1 : 0);
        constexpr std::int64_t enough = 1000000000000;
        for (const char c : digits)
            exponent = std::min(exponent * 10 + (c - '0'), enough);
        exponent = isNegative ? -exponent : exponent;
    }
    const auto place = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(leading);
    return place + exponent > 0;
}

bool readFloatingPoint(std::string_view word, bool isNegative, Number& number)
{
    if (!isFloatingPoint(word))
        return false;
    double value = 0.0;
    const auto result = std::from_chars(word.data(), word.data() + word.size(), value);
    if (result.ec == std::errc::result_out_of_range)
        value = isHuge(word) ? std::numeric_limits<double>::infinity() : 0.0;
    setReal(number, value, isNegative);
    return true;
}

} // namespace

bool readNumber(std::string_view word, Number& number)
{
    const bool isNegative = !word.empty() && word.front() == '-';
    if (isNegative || (!word.empty() && word.front() == '+'))
        word.remove_prefix(1);
    if (word.empty() || !(isDigit(word.front()) || word.front() == '.'))
        return false;
    if (readShort(word, isNegative, number))
        return true;
    if (word.size() > 2 && word[0] == '0' && (word[1] | 0x20) == 'x')
        return readDigits<16>(word.substr(2), isNegative, number);
    return readDigits<10>(word, isNegative, number) || readFloatingPoint(word, isNegative, number);
}

std::optional<Number> Number::asInteger() const
{
    if (isInteger)
        return *this;
    const double size = std::fabs(real);
    // Both limits are powers of two, and so exact.
    if (!(size < 18446744073709551616.0) || size != std::floor(size))
        return std::nullopt;
    const auto whole = static_cast<std::uint64_t>(size);
    if (isNegative && whole > lowestInteger)
        return std::nullopt;
    Number integer;
    setInteger(integer, whole, isNegative);
    return integer;
}

std::optional<std::int64_t> Number::asSigned() const
{
    constexpr std::uint64_t highest = lowestInteger - 1;
    if (!isInteger || magnitude > (isNegative ? lowestInteger : highest))
        return std::nullopt;
    return static_cast<std::int64_t>(bits());
}

} // namespace tavo
