#include "Program.h"

#include <sstream>

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
    for (const auto& c : cases) {
        const ProgramRun run = tavo("list --format csv listing.a2l --match " + c.pattern);
        std::istringstream lines(run.out);
        std::string names;
        for (std::string line; std::getline(lines, line);)
            for (const std::string kind : {"interface,", "source,", "measurement,"})
                if (line.starts_with(kind))
                    names +=
                        line.substr(kind.size(), line.find(',', kind.size()) - kind.size()) + " ";
        EXPECT_EQ(names, c.names) << c.pattern;
        EXPECT_EQ(run.err, names.empty() ? "tavo: warning: No name matches 'x*'\n" : "");
    }
}

} // namespace
