#include "text.h"

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

} // namespace
