#include "model/decimal.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <vector>

using namespace tavo;

namespace {

double doubleOf(const std::string& text)
{
    return parseDouble(text.data(), text.data() + text.size());
}

std::string zeros(std::size_t count) { return std::string(count, '0'); }

constexpr double infinity = std::numeric_limits<double>::infinity();

/// Compares bit by bit, so that the sign of a zero counts.
void expectDoubles(const std::vector<std::pair<std::string, double>>& cases)
{
    for (const auto& [text, number] : cases)
        EXPECT_EQ(std::bit_cast<std::uint64_t>(doubleOf(text)),
                  std::bit_cast<std::uint64_t>(number))
            << text.substr(0, 40) << " (" << text.size() << " characters)";
}

} // namespace

TEST(DecimalTest, ReadsTheLongestLeadingNumeral)
{
    expectDoubles({
        {"-1.5", -1.5}, {"+1.5", 1.5}, {".5", 0.5},      {"5.", 5.0},     {"1.2.3", 1.2},
        {"1,5", 1.0},   {"2E+3", 2e3}, {"2e-3", 0.002},  {".5e1", 5.0},   {"1e", 1.0},
        {"1e+", 1.0},   {"1 2", 1.0},  {"0x10", 0.0},    {"12abc", 12.0}, {"1e23", 1e23},
        {"-0", -0.0},   {"0.1", 0.1},  {"-0.0e5", -0.0}, {"1e-0", 1.0},
    });
    for (const char* text : {"", "-", ".", "-.e5", "e5", " 1", "+-1", "inf", "nan", "-nan(1)"})
        expectDoubles({{text, 0.0}});
    const char text[] = "1234e5";
    EXPECT_EQ(parseDouble(text, text + 2), 12.0);
    EXPECT_EQ(parseDouble(text, text + 5), 1234.0);
    EXPECT_EQ(parseInt32(text, text + 2), 12);
    EXPECT_EQ(parseDouble(nullptr, nullptr), 0.0);
}

TEST(DecimalTest, WhatIsTooLargeOrTooSmallKeepsItsSign)
{
    expectDoubles({
        {"1e999", infinity},
        {"-1e-999", -0.0},
        {"1e99999999999999999999", infinity},
        {"-1e-99999999999999999999", -0.0},
        {"0e99999999999999999999", 0.0},
        {"1" + zeros(400), infinity},
        {"-" + zeros(400) + "1" + zeros(400), -infinity},
        {"-0." + zeros(400) + "1", -0.0},
        {"1.7976931348623157e308", std::numeric_limits<double>::max()},
        {"1.7976931348623158e308", std::numeric_limits<double>::max()},
        {"1.7976931348623159e308", infinity},
        {"2.2250738585072014e-308", std::numeric_limits<double>::min()},
        {"2.2250738585072011e-308", 2.2250738585072011e-308},
        {"4.9e-324", std::numeric_limits<double>::denorm_min()},
        {"2.4703282292062328e-324", std::numeric_limits<double>::denorm_min()},
        {"2.4703282292062327e-324", 0.0},
        {"1e-310", 1e-310},
    });
}

TEST(DecimalTest, TheExponentMovesThePointPastAnyNumberOfZeros)
{
    expectDoubles({
        {"0." + zeros(400) + "1e405", 1e4},
        {"1" + zeros(400) + "e-400", 1.0},
        {"0." + zeros(5000) + "25e5001", 2.5},
        {"-25" + zeros(5000) + ".0e-5001", -2.5},
        {"0." + zeros(5000) + "1e5400", infinity},
        {"1" + zeros(5000) + "e-5400", 0.0},
        {zeros(5000) + "1.5" + zeros(5000), 1.5},
        {std::string(3000, '9') + "." + std::string(3000, '9') + "e-3000", 1.0},
    });
}

TEST(DecimalTest, ADigitFarBehindThePointDecidesTheRounding)
{
    // Halfway between 1 and the next double, which a tie gives to the even 1.
    const std::string tie = "1.00000000000000011102230246251565404236316680908203125";
    expectDoubles({
        {tie, 1.0},
        {tie + zeros(5000), 1.0},
        {tie + zeros(5000) + "1", 1.0 + std::numeric_limits<double>::epsilon()},
        {"9007199254740993", 9007199254740992.0},
        {"9007199254740993." + zeros(2000) + "1", 9007199254740994.0},
    });
}

TEST(DecimalTest, IntegersSaturate)
{
    const std::pair<std::string, std::int32_t> cases[] = {
        {"+17", 17},
        {"12x", 12},
        {"-", 0},
        {" 5", 0},
        {"2147483647", 2147483647},
        {"2147483648", 2147483647},
        {"-2147483648", std::numeric_limits<std::int32_t>::min()},
        {"-2147483649", std::numeric_limits<std::int32_t>::min()},
        {"99999999999999999999999999", 2147483647},
        {zeros(5000) + "5", 5},
    };
    for (const auto& [text, number] : cases)
        EXPECT_EQ(parseInt32(text.data(), text.data() + text.size()), number) << text;
}

TEST(DecimalTest, FixedTextHasSixDecimalsForAnyNumber)
{
    constexpr double largest = std::numeric_limits<double>::max();
    for (const double number : {0.0, -0.0, 0.0000005, 1e-300, 1e22, largest, -largest, -infinity}) {
        char expected[400];
        const int length = std::snprintf(expected, sizeof expected, "%f", number);
        const FixedText fixed(number);
        EXPECT_STREQ(fixed.text(), expected);
        EXPECT_EQ(fixed.length(), static_cast<std::size_t>(length));
    }
    // Numbers of all sizes, and numbers beside the middle between two texts.
    std::mt19937_64 random(1);
    for (int i = 0; i < 200000; ++i) {
        const auto bits = random();
        double number = static_cast<double>(bits >> 20) / static_cast<double>(1 + (random() >> 30));
        if (i % 2)
            number = (std::floor(number) + 0.5) / 1e6;
        if (i % 4 == 3)
            number = std::nextafter(number, i % 8 == 3 ? infinity : -infinity);
        char expected[400];
        std::snprintf(expected, sizeof expected, "%f", number);
        ASSERT_STREQ(expected, FixedText(number).text());
        // What is printed is read again as strtod does it.
        ASSERT_EQ(std::strtod(expected, nullptr),
                  parseDouble(expected, expected + std::strlen(expected)));
    }
    EXPECT_STREQ("nan", FixedText(std::numeric_limits<double>::quiet_NaN()).text());
}
