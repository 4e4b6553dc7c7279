#include "text.h"
#include "Digits.h"

#include <gtest/gtest.h>

using namespace tavo;

namespace {

TEST(TextTest, TakesWhatIsNotUtf8ForLatin1)
{
    struct
    {
        std::string_view bytes;
        std::string_view utf8;
    } cases[] = {
        {"\xC2\xB0 \xE2\x82\xAC \xF0\x9F\x9A\x97", "\u00b0 \u20ac \U0001f697"},
        {"K\xFChl", "K\u00fchl"},
        {"cut \xE2\x82", "cut \u00e2\u0082"},
        {"\xC0\x80", "\u00c0\u0080"},                     // overlong
        {"\xE0\x9F\xBF", "\u00e0\u009f\u00bf"},           // overlong
        {"\xED\xA0\x80", "\u00ed\u00a0\u0080"},           // a surrogate
        {"\xED\xBF\xBF", "\u00ed\u00bf\u00bf"},           // the last one
        {"\xF4\x90\x80\x80", "\u00f4\u0090\u0080\u0080"}, // beyond Unicode
        {"\xE2\x28\xA1", "\u00e2(\u00a1"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(toUtf8(c.bytes), c.utf8);
}

TEST(TextTest, ShowsControlCharactersAsEscapes)
{
    using std::string_view_literals::operator""sv;
    EXPECT_EQ(printable("a\tb\nc\r\x1b[31m\x7F \x9B\xC2\x9B\0"sv),
              "a b\\nc\\x0d\\x1b[31m\\x7f \\x9b\\x9b\\x00");
}

TEST(DigitsTest, AreThoseThatReadBackAsTheSameNumber)
{
    const auto expectDigits = [](double number) {
        char digits[40];
        const char* const end = std::to_chars(digits, digits + sizeof digits, number).ptr;
        ASSERT_EQ(Digits(number).text(), std::string_view(digits, end)) << number;
    };
    for (const double number :
         {0.0, -0.0, 1e5, 99999.0, 1e9, 999999999.999, 0.0005, 1e300, HUGE_VAL})
        expectDigits(number);
    for (int i = -50000; i < 50000; ++i)
        for (const double divisor : {1.0, 7.0, 100.0, 1000.0, 10000.0}) {
            expectDigits(i / divisor);
            expectDigits(std::nextafter(i / divisor, HUGE_VAL));
        }
    EXPECT_EQ(Digits(INT64_MIN).text(), "-9223372036854775808");
    EXPECT_EQ(Digits(Pattern{UINT64_MAX}).text(), "0xffffffffffffffff");
}

TEST(TextTest, SeesFromAnyPlaceWhatIsNotPlain)
{
    for (std::size_t size = 0; size < 20; ++size) {
        const std::string text(size, '~');
        EXPECT_TRUE((isPlain<'"', ','>(text)));
        EXPECT_TRUE(isAscii(text));
        for (std::size_t i = 0; i < size; ++i)
            for (const char c : {'"', ',', '\n', '\0', '\x80', '\xFF'}) {
                std::string odd = text;
                odd[i] = c;
                EXPECT_FALSE((isPlain<'"', ','>(odd))) << size << " " << i;
                EXPECT_EQ(isAscii(odd), (c & 0x80) == 0);
            }
    }
    EXPECT_EQ(smallLetters("A\xC4\xC3\x84\xD7 \xCE\xA9\xD0\xAF\xD0\x81x7"),
              "a\xC3\xA4\xC3\xA4\xC3\x97 \xCF\x89\xD1\x8F\xD1\x91x7");
}

} // namespace
