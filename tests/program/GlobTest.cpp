#include "Glob.h"

#include <gtest/gtest.h>

using namespace tavo;

namespace {

struct GlobCase
{
    const char* pattern;
    const char* name;
    bool matches;
};

TEST(GlobTest, DescribesWholeNames)
{
    const GlobCase cases[] = {
        {"", "", true},
        {"", "a", false},
        {"*", "", true},
        {"Eng*", "EngSpd.n", true},
        {"Eng*", "MyEngine", false},
        {"eng*", "EngSpd", false},
        {"*n", "EngSpd.n", true},
        {"*.n*", "EngSpd.nFlt", true},
        {"a*b*c", "aXbXbc", true},
        {"a*b*c", "aXcXb", false},
        {"**?", "", false},
        {"?", "a", true},
        {"?", "\xE4", true},     // Latin-1
        {"?", "\xC3\xA4", true}, // UTF-8
        {"\xC3\xA4", "\xE4", true},
        {"T[0-9]ms", "T5ms", true},
        {"T[0-9]ms", "Txms", false},
        {"[!a-c]x", "dx", true},
        {"[^a-c]x", "bx", false},
        {"[]x]", "]", true},
        {"[!]]", "]", false},
        {"[a-]", "-", true},
        {R"([\]a])", "]", true},
        {R"(t[\-z]g)", "tmg", false},
        // Names hold brackets.
        {R"(t\[0\])", "t[0]", true},
        {"t[[]0]", "t[0]", true},
        {"t[0]", "t[0]", false},
        {"t[0", "t[0", true},
        {"[", "[", true},
        {R"(\*)", "*", true},
        {R"(\*)", "a", false},
        {R"(a\)", R"(a\)", true},
    };
    for (const GlobCase& c : cases)
        EXPECT_EQ(Glob(c.pattern).matches(c.name), c.matches) << c.pattern << " on " << c.name;
}

TEST(GlobTest, ManyStarsTakeNoTime)
{
    std::string pattern;
    for (int i = 0; i < 50; ++i)
        pattern += "*a";
    EXPECT_FALSE(Glob(pattern + "b").matches(std::string(5000, 'a')));
}

} // namespace
