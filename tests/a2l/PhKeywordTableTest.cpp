#include "a2l/PhKeywordTable.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <tuple>
#include <vector>

using namespace tavo;

namespace {

/// A vocabulary and what is frozen of it: how many rows, and a digest of all words and codes.
const std::tuple<const PhKeywordTable*, std::size_t, std::uint32_t> vocabularies[] = {
    {&coreKeywords, 154, 1719650594},
    {&enumKeywords, 42, 2677139266},
    {&ccpKeywords, 53, 2993028305},
    {&xcpKeywords, 211, 1094803082},
    {&kwpKeywords, 31, 3513052795}};

std::map<int, std::string> rowsOf(const PhKeywordTable& table)
{
    std::map<int, std::string> rows;
    for (int code = -1000; code < 10000; ++code)
        if (const char* word = table.keywordName(code))
            rows[code] = word;
    return rows;
}

TEST(PhKeywordTableTest, HasItsFrozenWordsAndCodes)
{
    for (const auto& [table, rowCount, expected] : vocabularies) {
        const std::map<int, std::string> rows = rowsOf(*table);
        EXPECT_EQ(rows.size(), rowCount);
        std::uint32_t digest = 2166136261; // FNV-1a
        for (const auto& [code, word] : rows)
            for (const char c : word + "=" + std::to_string(code) + "\n")
                digest = (digest ^ static_cast<unsigned char>(c)) * 16777619;
        EXPECT_EQ(digest, expected) << rowCount;
    }
}

TEST(PhKeywordTableTest, FindsEachOfItsWordsAndNoOther)
{
    std::vector<std::string> words = {"", "/Begin", "module", "UNIT"};
    const std::string more = "_";
    for (const auto& [table, rowCount, digest] : vocabularies)
        for (const auto& [code, word] : rowsOf(*table))
            words.insert(words.end(), {word, word + more, word.substr(0, word.size() - 1),
                                       word.substr(1), more + word, more + word.substr(1)});
    for (const auto& [table, rowCount, digest] : vocabularies) {
        std::map<std::string, int> codes;
        for (const auto& [code, word] : rowsOf(*table))
            codes[word] = code;
        for (const std::string& word : words)
            EXPECT_EQ(table->lookup(word), codes.contains(word) ? codes[word] : 0) << word;
    }
}

TEST(PhKeywordTableTest, HashFoldsTheBitsAboveTheLowest24)
{
    EXPECT_EQ(keywordHash(nullptr), 0U);
    EXPECT_EQ(keywordHash("CHARACTERISTIC"), 1131469U);
    EXPECT_EQ(keywordHash("\xE4\xF6"), 702U);
    EXPECT_EQ(keywordHash(std::string(40, '\xFF').c_str()), 16711425U);
}

TEST(PhKeywordTableTest, WordsOfOneHashAndOfOneSlotAreToldApart)
{
    // The table is as full as it may be.
    const PhKeywordEntry rows[] = {{"ac", 5}, {"ba", 6}, {"`e", 7}, {"x", 5}, {nullptr, -1}};
    ASSERT_EQ(keywordHash("ac"), keywordHash("ba"));
    ASSERT_EQ(keywordHash("ac"), keywordHash("`e"));
    PhKeywordTable table(rows, 4);
    for (int round = 0; round < 2; ++round) {
        for (const PhKeywordEntry* row = rows; row->text; ++row)
            EXPECT_EQ(table.lookup(row->text), row->code);
        EXPECT_EQ(table.lookup("_g"), 0); // the same hash once more
        EXPECT_STREQ(table.keywordName(5), "ac");
        EXPECT_EQ(table.keywordName(-1), nullptr); // though the closing row has it
        table.rebuild();
    }
}

} // namespace
