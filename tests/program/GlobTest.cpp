#include "Glob.h"

#include <gtest/gtest.h>

using namespace tavo;

namespace {

TEST(GlobTest, DescribesWholeNames)
{
    struct
    {
        const char* pattern;
        const char* name;
        bool matches;
    } cases[] = {{"", "a", false},
                 {"*", "", true},
                 {"Eng*", "EngSpd.n", true},
                 {"Eng*", "MyEngine", false},
                 {"eng*", "EngSpd", false},
                 {"a*b*c", "aXbXbc", true},
                 {"a*b*c", "aXcXb", false},
                 {"**?", "", false},
                 {"?", "\xE4", true},
                 {"\xC3\xA4?", "\xE4\xC3\xA4", true},
                 {"T[0-9]ms", "T5ms", true},
                 {"[!a-c]x", "dx", true},
                 {"[^a-c]x", "bx", false},
                 {"[]x]", "]", true},
                 {"[!]]", "]", false},
                 {"[a-]", "-", true},
                 {R"([\]a])", "]", true},
                 {R"(t[\-z]g)", "tmg", false},
                 {R"(t\[0\])", "t[0]", true},
                 {"t[0]", "t[0]", false},
                 {"t[0", "t[0", true},
                 {R"(\*)", "a", false},
                 {R"(a\)", R"(a\)", true}};
    for (const auto& c : cases)
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
