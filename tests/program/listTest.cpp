#include "Program.h"

#include <regex>

namespace {

class ListTest : public ProgramTest
{
protected:
    ListTest() { std::filesystem::copy(TAVO_LISTING_FOLDER, path("")); }
};

TEST_F(ListTest, FitsTheTableToItsContentAndQuotesCsv)
{
    EXPECT_EQ(tavo("list listing.a2l").out, content("listing.txt"));
    EXPECT_EQ(tavo("list listing.a2l --format=csv").out, content("listing.csv"));
}

TEST_F(ListTest, MatchPicksByName)
{
    struct
    {
        std::string pattern;
        std::string names;
    } cases[] = {
        {"*", "CCP T10ms t[0] flag "},
        {"[Tt]*", "T10ms t[0] "},
        {R"(t\[?\])", "t[0] "},
        {"x*", ""},
    };
    const std::regex start("\n(interface|source|measurement),([^,]*)");
    for (const auto& c : cases) {
        const ProgramRun run = tavo("list --format csv listing.a2l --match " + c.pattern);
        std::string names;
        for (std::sregex_iterator row(run.out.begin(), run.out.end(), start), end; row != end;
             ++row)
            names.append(row->str(2)).append(" ");
        EXPECT_EQ(names, c.names) << c.pattern;
        EXPECT_EQ(run.err, names.empty() ? "tavo: warning: No name matches 'x*'\n" : "");
    }
}

} // namespace
