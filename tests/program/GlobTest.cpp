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
    } cases[] = {{"", "a", false},           {"*", "", true},
                 {"Eng*", "EngSpd.n", true}, {"Eng*", "MyEngine", false},
                 {"eng*", "EngSpd", false},  {"a*b*c", "aXbXbc", true},
                 {"a*b*c", "aXcXb", false},  {"**?", "", false},
                 {"?", "\xE4", true},        {"\xC3\xA4?", "\xE4\xC3\xA4", true},
                 {"t[0]", "t[0]", true},     {"t[?]", "t[1]", true},
                 {R"(\*)", R"(\a)", true},   {"*ab", "aab", true}};
    for (const auto& c : cases)
        EXPECT_EQ(Glob(c.pattern).matches(c.name), c.matches) << c.pattern << " on " << c.name;
    EXPECT_TRUE(Glob("eNG*\xC3\x84", true).matches("EngSpd\xE4"));
}

TEST(GlobTest, ManyStarsTakeNoTime)
{
    std::string pattern;
    for (int i = 0; i < 50; ++i)
        pattern += "*a";
    EXPECT_FALSE(Glob(pattern + "b").matches(std::string(5000, 'a')));
}

} // namespace
