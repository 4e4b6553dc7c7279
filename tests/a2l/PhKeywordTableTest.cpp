#include "a2l/PhKeywordTable.h"

#include "support/files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

using namespace tavo;

namespace {

const std::pair<const char*, const PhKeywordTable*> vocabularies[] = {{"core", &coreKeywords},
                                                                      {"enum", &enumKeywords},
                                                                      {"ccp", &ccpKeywords},
                                                                      {"xcp", &xcpKeywords},
                                                                      {"kwp", &kwpKeywords}};

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
    std::ostringstream list;
    for (const auto& [name, table] : vocabularies)
        for (const auto& [code, word] : rowsOf(*table))
            list << name << " " << code << " " << word << "\n";
    const std::string path = std::string(TAVO_GOLDEN_FOLDER) + "/keywords.txt";
    if (std::getenv("TAVO_REWRITE_GOLDEN")) {
        writeFile(path, list.str());
        return;
    }
    const auto linesOf = [](std::istream&& text) {
        std::set<std::string> lines;
        for (std::string line; std::getline(text, line);)
            lines.insert(line);
        return lines;
    };
    std::vector<std::string> different;
    std::ranges::set_symmetric_difference(linesOf(std::istringstream(list.str())),
                                          linesOf(std::ifstream(path)),
                                          std::back_inserter(different));
    EXPECT_EQ(different, std::vector<std::string>()) << "frozen: nothing but new words may differ";
}

TEST(PhKeywordTableTest, FindsEachOfItsWordsAndNoOther)
{
    std::vector<std::string> words = {"", "/Begin", "module", "UNIT"};
    const std::string more = "_";
    for (const auto& [name, table] : vocabularies)
        for (const auto& [code, word] : rowsOf(*table))
            words.insert(words.end(), {word, word + more, word.substr(0, word.size() - 1),
                                       word.substr(1), more + word, more + word.substr(1)});
    for (const auto& [name, table] : vocabularies) {
        std::map<std::string, int> codes;
        for (const auto& [code, word] : rowsOf(*table))
            codes[word] = code;
        for (const std::string& word : words)
            EXPECT_EQ(table->lookup(word), codes.contains(word) ? codes[word] : 0) << word;
    }
}

TEST(PhKeywordTableTest, WordsOfOneHashAndOfOneSlotAreToldApart)
{
    static constexpr PhKeywordEntry rows[] = {{"the-same-beginning-a", 5},
                                              {"the-same-beginning-b", 6},
                                              {"the-same-beginning-c", 7},
                                              {"x", 5},
                                              {nullptr, -1}};
    static constexpr PhKeywordSlots<8> slots(rows);
    static constexpr PhKeywordTable table(rows, slots);
    static_assert(WordKey(rows[0].text) == WordKey(rows[1].text));
    static_assert(WordKey(rows[0].text) == WordKey(rows[2].text));
    for (const PhKeywordEntry* row = rows; row->text; ++row)
        EXPECT_EQ(table.lookup(row->text), row->code);
    EXPECT_EQ(table.lookup("the-same-beginning-d"), 0); // the same hash once more
    EXPECT_STREQ(table.keywordName(5), "the-same-beginning-a");
    EXPECT_EQ(table.keywordName(-1), nullptr); // though the closing row has it
}

} // namespace
