#include "a2l/PhA2l.h"

#include "support/RecordingLogger.h"
#include "topology/PhRoot.h"

#include <gtest/gtest.h>

using namespace tavo;

TEST(PhA2lTest, StatusTellsThatTheFileIsNamelessOrMissing)
{
    PhRoot root;
    PhA2l nameless(nullptr);
    PhA2l missing("missing/d.a2l");
    EXPECT_STREQ(missing.formatName(), "ASAP2");
    for (const auto& [reader, status] : {std::pair(&nameless, -1), {&missing, -2}}) {
        RecordingLogger logger;
        reader->setLogger(&logger);
        EXPECT_EQ(reader->readFile(&root), status);
        EXPECT_EQ(logger.text, "");
        EXPECT_EQ(reader->print_tokens(), status);
        EXPECT_EQ(logger.text, "message: print_tokens ()\n");
    }
    EXPECT_EQ(root.groups(), nullptr);
}

TEST(PhA2lTest, AVocabularyIsChosenByItsNumber)
{
    PhA2l reader(nullptr);
    const PhKeywordTable* const vocabularies[] = {&coreKeywords, &enumKeywords, &ccpKeywords,
                                                  &xcpKeywords, &kwpKeywords};
    for (int number = 0; number < 5; ++number) {
        reader.setKeywordTable(number);
        EXPECT_EQ(&reader.keywords(), vocabularies[number]);
        for (const int unknown : {-1, 5}) {
            reader.setKeywordTable(unknown);
            EXPECT_EQ(&reader.keywords(), vocabularies[number]);
        }
    }
    reader.resetKeywordTable();
    EXPECT_EQ(&reader.keywords(), &coreKeywords);
}
