#include "a2l/PhKeywordTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

using namespace tavo;

namespace {

/// A vocabulary and what is frozen of it.
struct Vocabulary
{
    const PhKeywordTable& table;
    std::size_t rowCount;
    int lastCode;
    std::uint32_t digest; ///< Of all words and codes, by ascending code.
};

const Vocabulary vocabularies[] = {{coreKeywords, 154, 238, 1719650594},
                                   {enumKeywords, 42, 1042, 2677139266},
                                   {ccpKeywords, 53, 3051, 2993028305},
                                   {xcpKeywords, 211, 2209, 1094803082},
                                   {kwpKeywords, 31, 4039, 3513052795}};

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
    for (const Vocabulary& vocabulary : vocabularies) {
        const std::map<int, std::string> rows = rowsOf(vocabulary.table);
        ASSERT_EQ(rows.size(), vocabulary.rowCount);
        EXPECT_EQ(rows.rbegin()->first, vocabulary.lastCode);
        std::uint32_t digest = 2166136261; // FNV-1a
        for (const auto& [code, word] : rows)
            for (const char c : word + "=" + std::to_string(code) + "\n")
                digest = (digest ^ static_cast<unsigned char>(c)) * 16777619;
        EXPECT_EQ(digest, vocabulary.digest) << vocabulary.lastCode;
    }
}

TEST(PhKeywordTableTest, FindsEachOfItsWordsAndNoOther)
{
    std::vector<std::string> words;
    for (const Vocabulary& vocabulary : vocabularies)
        for (const auto& [code, word] : rowsOf(vocabulary.table))
            words.insert(words.end(), {word, word + "_", word.substr(0, word.size() - 1),
                                       word.substr(1), "_" + word, "_" + word.substr(1)});
    words.insert(words.end(),
                 {"", "/Begin", "module", "Module", "A2ML_VERSION", "UNIT", "COEFFS_LINEAR"});
    for (const Vocabulary& vocabulary : vocabularies) {
        const std::map<int, std::string> rows = rowsOf(vocabulary.table);
        for (const std::string& word : words) {
            const auto row = std::find_if(rows.begin(), rows.end(),
                                          [&](const auto& entry) { return entry.second == word; });
            const int code = row == rows.end() ? 0 : row->first;
            EXPECT_EQ(vocabulary.table.lookup(word), code) << word;
        }
    }
}

TEST(PhKeywordTableTest, HashFoldsTheBitsAboveTheLowest24)
{
    const std::pair<std::string, std::uint32_t> hashes[] = {{"", 0},
                                                            {"/end", 1100},
                                                            {"MODULE", 4833},
                                                            {"CHARACTERISTIC", 1131469},
                                                            {std::string(40, 'z'), 7995270},
                                                            {"\xE4\xF6", 702},
                                                            {std::string(40, '\xFF'), 16711425}};
    EXPECT_EQ(keywordHash(nullptr), 0U);
    for (const auto& [text, hash] : hashes)
        EXPECT_EQ(keywordHash(text.c_str()), hash) << text;
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
