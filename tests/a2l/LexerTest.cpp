// Tokens of all vocabularies, of any length and in any place of a file. The golden series of tokens
// hold the rest.

#include "a2l/PhA2l.h"
#include "model/PhList.h"
#include "support/files.h"
#include "support/reading.h"
#include "topology/PhGroup.h"
#include "topology/PhRoot.h"

#include <gtest/gtest.h>

using namespace tavo;

namespace {

TEST(LexerTest, AWordIsAKeywordOfTheVocabularyInForceAlone)
{
    const std::string text = "/begin CHECKSUM RESERVED RAM DAQ_LIST WuP";
    const char* const expected[] = {"[/begin] [CHECKSUM] [RESERVED] 'RAM' 'DAQ_LIST' 'WuP'",
                                    "'/begin' 'CHECKSUM' [RESERVED] [RAM] 'DAQ_LIST' 'WuP'",
                                    "[/begin] [CHECKSUM] 'RESERVED' [RAM] 'DAQ_LIST' 'WuP'",
                                    "[/begin] [CHECKSUM] 'RESERVED' 'RAM' [DAQ_LIST] 'WuP'",
                                    "[/begin] [CHECKSUM] 'RESERVED' 'RAM' 'DAQ_LIST' [WuP]"};
    for (int vocabulary = 0; vocabulary < 5; ++vocabulary)
        EXPECT_EQ(tokensOf(text, vocabulary), expected[vocabulary]);
}

TEST(LexerTest, ATokenIsTheSameWhereverTheBlocksOfTheFileMeet)
{
    constexpr std::size_t blockSize = 65536;
    for (const std::string text :
         {"/begin MODULE a.b-c[0]|d 2D_MAP x\xE4 //", "-123 12.75 -1.5e-12 .5 0x1F3 -0x1G 1.2.3",
          "\"a\\\"b\"\"c\r\nd\\\r\ne\r\r\nf\" \"\"\"\" \"",
          "/* c * / **/x/***/y/* \r\n\n \r */\r\n\r\r\n\"", "a\r\nb\r\r\n\rc\r\n\"",
          "a \"x\xFF b /* \xFF c - d \xFF e", "x\r"}) {
        const std::string expected = tokensOf(text);
        for (std::size_t shift = 0; shift <= text.size() + 1; ++shift) {
            EXPECT_EQ(tokensOf(std::string(blockSize - shift, ' ') + text), expected) << shift;
            EXPECT_EQ(tokensOf(std::string(2 * blockSize - shift, '\r') + text), expected) << shift;
        }
    }
}

TEST(LexerTest, LineEndsAcrossManyBlocksAreCountedOnce)
{
    std::string lines;
    for (int i = 0; i < 200000; ++i)
        lines += "\r\n";
    for (const std::string& text : {lines, " " + lines, "/*" + lines + "*/"})
        EXPECT_EQ(tokensOf(text + "\""), "{200001: Unexpected EOF in string}t=-1");
}

TEST(LexerTest, LongTokensKeepTheirText)
{
    for (const std::size_t size : {1023U, 1024U, 1025U, 3000U, 65537U, 1048576U}) {
        std::string name;
        while (name.size() < size)
            name += "Abc_" + std::to_string(name.size()) + "-[.|]";
        name.resize(size);
        const TemporaryFolder folder;
        writeFile(folder.path("d.a2l"), "/begin PROJECT " + name + " \"" + name +
                                            "\"\"\" /end PROJECT /begin PROJECT 1.5" + name +
                                            " b /end PROJECT");
        PhA2l reader(folder.path("d.a2l").c_str());
        PhRoot root;
        ASSERT_EQ(0, reader.readFile(&root));
        EXPECT_EQ(root.groups()->first()->name(), PhString(name.c_str()));
        EXPECT_EQ(root.groups()->first()->longName(), PhString((name + "\"").c_str()));
        EXPECT_EQ(root.groups()->last()->name(), PhString(("1.5" + name).c_str()));
        EXPECT_STREQ(root.groups()->last()->longName(), "b");
    }
}

} // namespace
