// Tokens of all vocabularies, of any length and in any place of a file. The golden series of tokens
// hold the rest.

#include "a2l/Lexer.h"
#include "a2l/PhA2l.h"
#include "model/PhList.h"
#include "support/RecordingLogger.h"
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
    const std::pair<const PhKeywordTable*, const char*> expected[] = {
        {&coreKeywords, "[/begin] [CHECKSUM] [RESERVED] 'RAM' 'DAQ_LIST' 'WuP'"},
        {&enumKeywords, "'/begin' 'CHECKSUM' [RESERVED] [RAM] 'DAQ_LIST' 'WuP'"},
        {&ccpKeywords, "[/begin] [CHECKSUM] 'RESERVED' [RAM] 'DAQ_LIST' 'WuP'"},
        {&xcpKeywords, "[/begin] [CHECKSUM] 'RESERVED' 'RAM' [DAQ_LIST] 'WuP'"},
        {&kwpKeywords, "[/begin] [CHECKSUM] 'RESERVED' 'RAM' 'DAQ_LIST' [WuP]"}};
    for (const auto& [vocabulary, tokens] : expected)
        EXPECT_EQ(tokensOf(text, Source::Memory, *vocabulary), tokens);
}

TEST(LexerTest, ATokenIsReadOverWhateverItIs)
{
    const std::string text = "/begin \"a\" 5x /* c\n */ 0x1F /end -.\xFF $ /* ";
    const int codes[] = {T_BEGIN, 0, 0, 0, T_END, 0, T_EOF, 0, T_ERROR, T_EOF};
    for (const PhKeywordTable* vocabulary : {&coreKeywords, &enumKeywords}) {
        int failures = 0;
        Lexer read([](const char*) {});
        Lexer skipping([&](const char*) { ++failures; });
        read.openMemory(text);
        skipping.openMemory(text);
        skipping.setVocabulary(*vocabulary);
        for (const int code : codes) {
            read.next();
            const int skipped = skipping.skip();
            if (code != 0) {
                EXPECT_EQ(skipped, code);
            }
            EXPECT_EQ(skipping.token().code, skipped);
            EXPECT_EQ(skipping.token().text, read.token().text);
            EXPECT_EQ(skipping.line(), read.line());
        }
        EXPECT_EQ(failures, 1);
    }
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
            EXPECT_EQ(tokensOf(std::string(2 * blockSize - shift, '\r') + text, Source::File),
                      expected)
                << shift;
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

TEST(LexerTest, ADiagnosticAfterTheReadingTellsItsLastLine)
{
    const TemporaryFolder folder;
    const std::string path = folder.path("d.a2l");
    // An end in the midst of a block, of whose line nobody asks before the file is closed.
    writeFile(path, "ASAP2_VERSION 1 60\n\n\n\xFF\n/begin");
    PhA2l reader(path.c_str());
    RecordingLogger logger;
    reader.setLogger(&logger);
    PhRoot root;
    reader.warning("early");
    ASSERT_EQ(0, reader.readFile(&root));
    reader.warning("late");
    EXPECT_EQ(logger.text, "warning: File '" + path + "', Line 1: early\nwarning: File '" + path +
                               "', Line 4: late\n");
}

} // namespace
