#include "model/decimal.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

using namespace tavo;

namespace {

double doubleOf(const std::string& text)
{
    return parseDouble(text.data(), text.data() + text.size());
}

/// Zeros between two texts.
std::string zeros(const char* head, std::size_t count, const char* tail)
{
    return std::string(head).append(count, '0').append(tail);
}

constexpr double infinity = std::numeric_limits<double>::infinity();

} // namespace

TEST(DecimalTest, ReadsWhatStrtodReadsBitByBit)
{
    // Halfway between 1 and the next double, which ties to even, 1.
    const char* const tie = "1.00000000000000011102230246251565404236316680908203125";
    const std::string numerals[] = {
        "-1.5", "+1.5", ".5", "5.", "1.2.3", "1,5", "2E+3", "2e-3", ".5e1", "1e", "1e+", "1 2",
        "12abc", "1e23", "-0", "0.1", "-0.0e5", "1e-0", "", "-", ".", "-.", "-.e5", "e5", "+-1",
        // Too large or too small, or just not yet.
        "1e999", "-1e-999", "1e99999999999999999999", "-1e-99999999999999999999",
        "0e99999999999999999999", zeros("1", 400, ""), zeros("-001", 400, ""),
        zeros("-0.", 400, "1"), "1.7976931348623158e308", "1.7976931348623159e308",
        "2.2250738585072014e-308", "2.2250738585072011e-308", "4.9e-324", "2.4703282292062328e-324",
        "2.4703282292062327e-324",
        // An exponent moves the point past any number of zeros.
        zeros("0.", 400, "1e405"), zeros("1", 400, "e-400"), zeros("0.", 5000, "25e5001"),
        zeros("-25", 5000, ".0e-5001"), zeros("0.", 5000, "1e5400"), zeros("1", 5000, "e-5400"),
        zeros("", 5000, "1.5"), std::string(3000, '9').append(".9e-3000"),
        // A digit far after the point decides the rounding.
        tie, zeros(tie, 5000, ""), zeros(tie, 5000, "1"), "9007199254740993",
        zeros("9007199254740993.", 2000, "1")};
    for (const std::string& text : numerals)
        EXPECT_EQ(std::bit_cast<std::uint64_t>(doubleOf(text)),
                  std::bit_cast<std::uint64_t>(std::strtod(text.c_str(), nullptr)))
            << text.substr(0, 40) << " (" << text.size() << " characters)";
}

TEST(DecimalTest, ReadsNothingButDecimalDigitsUpToTheEnd)
{
    for (const char* text : {" 1", "0x10", "inf", "-inf", "nan", "infinity", "-nan(1)"})
        EXPECT_EQ(std::abs(doubleOf(text)), 0.0) << text;
    const char text[] = "1234e5";
    EXPECT_EQ(parseDouble(text, text + 2), 12.0);
    EXPECT_EQ(parseDouble(text, text + 5), 1234.0);
    EXPECT_EQ(parseInt32(text, text + 2), 12);
    EXPECT_EQ(parseDouble(nullptr, nullptr), 0.0);
}

TEST(DecimalTest, IntegersSaturate)
{
    const std::pair<std::string, std::int64_t> cases[] = {
        {"+17", 17},
        {"12x", 12},
        {"-", 0},
        {" 5", 0},
        {"2147483647", 2147483647},
        {"2147483648", 2147483647},
        {"-2147483648", -2147483648},
        {"-2147483649", -2147483648},
        {"99999999999999999999999999", 2147483647},
        {zeros("", 5000, "5"), 5},
    };
    for (const auto& [text, number] : cases)
        EXPECT_EQ(parseInt32(text.data(), text.data() + text.size()), number) << text;
}

TEST(DecimalTest, FixedTextIsWhatPrintfPrintsAndIsReadAgain)
{
    const auto check = [](double number) {
        char expected[400];
        const int length = std::snprintf(expected, sizeof expected, "%f", number);
        const FixedText fixed(number);
        ASSERT_STREQ(fixed.text(), expected);
        ASSERT_EQ(fixed.length(), static_cast<std::size_t>(length));
        if (std::isfinite(number)) {
            ASSERT_EQ(doubleOf(expected), std::strtod(expected, nullptr));
        }
    };
    constexpr double largest = std::numeric_limits<double>::max();
    for (const double number : {0.0, -0.0, 0.0000005, 1e-300, 1e22, largest, -largest, -infinity})
        check(number);
    // Numbers of all sizes, and numbers next to the middle between two texts.
    std::mt19937_64 random(1);
    for (int i = 0; i < 200000; ++i) {
        double number =
            static_cast<double>(random() >> 20) / static_cast<double>(1 + (random() >> 30));
        if (i % 2)
            number = (std::floor(number) + 0.5) / 1e6;
        if (i % 4 == 3)
            number = std::nextafter(number, i % 8 == 3 ? infinity : -infinity);
        check(number);
    }
    EXPECT_STREQ(FixedText(std::numeric_limits<double>::quiet_NaN()).text(), "nan");
}
