#include "asap2/Number.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <limits>

using namespace tavo;

namespace {

/// "i -5" for an integer, "r 0.5" for a floating-point number, with " = 5" after it if it has the
/// value of an integer; "" for what is no number.
std::string shown(std::string_view word)
{
    const std::optional<Number> number = parseNumber(word);
    if (!number)
        return "";
    char digits[32];
    const auto written = [&](auto value) {
        return std::string(digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
    };
    const std::string sign = number->isNegative ? "-" : "";
    if (number->isInteger) {
        EXPECT_EQ(number->real, (number->isNegative ? -1.0 : 1.0) * double(number->magnitude));
        return "i " + sign + written(number->magnitude);
    }
    EXPECT_EQ(std::signbit(number->real), number->isNegative);
    const std::optional<Number> integer = number->asInteger();
    return "r " + written(number->real) +
           (integer ? (integer->isNegative ? " = -" : " = ") + written(integer->magnitude) : "");
}

TEST(Number, isReadInEveryUsualForm)
{
    const std::string nines(400, '9');
    const std::string zeros(400, '0');
    const std::pair<std::string, std::string> cases[] = {
        {"0", "i 0"},
        {"-0", "i 0"},
        {"+7", "i 7"},
        {"007", "i 7"},
        {"0xfF", "i 255"},
        {"-0X10", "i -16"},
        {"18446744073709551615", "i 18446744073709551615"},
        {"0xFFFFFFFFFFFFFFFF", "i 18446744073709551615"},
        {"18446744073709551616", "r 18446744073709551616"},
        {"0x10000000000000000", "r 18446744073709551616"},
        {"0x" + zeros + "1", "i 1"},
        {zeros + "1", "i 1"},
        {"-9223372036854775808", "i -9223372036854775808"},
        {"-9223372036854775809", "r -9223372036854775808 = -9223372036854775808"},
        {"-0x8000000000000001", "r -9223372036854775808 = -9223372036854775808"},
        {".5", "r 0.5"},
        {"-.5", "r -0.5"},
        {"5.", "r 5 = 5"},
        {"-5.0", "r -5 = -5"},
        {"1e-3", "r 0.001"},
        {"1E+2", "r 100 = 100"},
        {"1e5", "r 1e+05 = 100000"},
        {"9007199254740993.0", "r 9007199254740992 = 9007199254740992"},
        {"-1e19", "r -1e+19"},
        {"1.8446744073709552e19", "r 18446744073709551616"},
        {"0.1", "r 0.1"},
        {nines, "r inf"},
        {"0x" + nines, "r inf"},
        {"-" + nines + ".", "r -inf"},
        {"1e999999999999999999999", "r inf"},
        {"1e-999999999999999999999", "r 0 = 0"},
        {"-0." + zeros + "1", "r -0 = 0"},
        {"0." + zeros + "1e500", "r 1e+99"},
        {"0e999999", "r 0 = 0"},
        {"0." + zeros + "1e+999999", "r inf"},
        {nines + "e-999999", "r 0 = 0"},
    };
    for (const auto& [word, expected] : cases)
        EXPECT_EQ(shown(word), expected) << word;
    for (const char* word :
         {"",     "+",     "-",     ".",   "-.",    "e5",    ".e5",   "1e",  "1e+",
          "1e5x", "1.2.3", "0x",    "0xG", "0x1.8", "0x1p3", "--5",   "+-5", "nan",
          "inf",  "-inf",  "1_000", "0b1", "5a",    "1,5",   "1e5.0", "'5'"})
        EXPECT_EQ(shown(word), "") << word;
}

TEST(Number, hasASignedValueIfItHas63Bits)
{
    EXPECT_EQ(parseNumber("0x7FFFFFFFFFFFFFFF")->asSigned(), INT64_MAX);
    EXPECT_EQ(parseNumber("0x8000000000000000")->asSigned(), std::nullopt);
    EXPECT_EQ(parseNumber("-9223372036854775808")->asSigned(), INT64_MIN);
    EXPECT_EQ(parseNumber("1.0")->asSigned(), std::nullopt);
    EXPECT_EQ(parseNumber("-1")->bits(), UINT64_MAX);
}

} // namespace
