#include "Program.h"

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

} // namespace
