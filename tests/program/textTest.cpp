#include "text.h"

#include <gtest/gtest.h>

using namespace tavo;

namespace {

struct TextCase
{
    std::string_view bytes;
    std::string_view utf8;
};

TEST(TextTest, TakesWhatIsNotUtf8ForLatin1)
{
    const TextCase cases[] = {
        {"plain", "plain"},
        {"\xC2\xB0 \xE2\x82\xAC \xF0\x9F\x9A\x97", "\xC2\xB0 \xE2\x82\xAC \xF0\x9F\x9A\x97"},
        {"\xB0"
         "C",
         "\xC2\xB0"
         "C"},
        {"K\xFChl", "K\xC3\xBChl"},
        {"cut \xE2\x82", "cut \xC3\xA2\xC2\x82"},
        {"\xC0\x80", "\xC3\x80\xC2\x80"},                         // overlong
        {"\xE0\x9F\xBF", "\xC3\xA0\xC2\x9F\xC2\xBF"},             // overlong
        {"\xED\xA0\x80", "\xC3\xAD\xC2\xA0\xC2\x80"},             // a surrogate
        {"\xF4\x90\x80\x80", "\xC3\xB4\xC2\x90\xC2\x80\xC2\x80"}, // beyond Unicode
        {"\xF5", "\xC3\xB5"},
        {"\xE2\x28\xA1", "\xC3\xA2(\xC2\xA1"},
    };
    for (const TextCase& c : cases)
        EXPECT_EQ(toUtf8(c.bytes), c.utf8);
}

TEST(TextTest, ShowsControlCharactersAsEscapes)
{
    using std::string_view_literals::operator""sv;
    EXPECT_EQ(printable("a\tb\nc\r\x1b[31m\x7F \x9B\xC2\x9B\0"sv),
              "a b\\nc\\x0d\\x1b[31m\\x7f \\x9b\\x9b\\x00");
}

} // namespace
