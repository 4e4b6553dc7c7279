// Characters to tokens, seen through the dump of a file's tokens.

#include "a2l/PhA2l.h"
#include "model/PhList.h"
#include "support/RecordingLogger.h"
#include "support/files.h"
#include "topology/PhGroup.h"
#include "topology/PhRoot.h"

#include <gtest/gtest.h>

#include <initializer_list>

using namespace tavo;

namespace {

void replaceAll(std::string& text, const std::string& from, const std::string& to)
{
    for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
        text.replace(at, from.size(), to);
}

/// The tokens of a text, each with a blank behind it: [keyword], 'name', "string", the number or
/// t=code. An error stands ahead of its token as {line: text}.
std::string tokens(std::string_view text, int vocabulary = 0)
{
    const TemporaryFolder folder;
    const std::string path = folder.path("d.a2l");
    writeFile(path, text);
    RecordingLogger logger;
    PhA2l reader(path.c_str());
    reader.setLogger(&logger);
    reader.setKeywordTable(vocabulary);
    reader.setKeywordTable(7); // There is none, so nothing changes.
    EXPECT_EQ(0, reader.print_tokens());
    const std::string opening = "message: print_tokens ()\n";
    EXPECT_TRUE(logger.text.starts_with(opening));
    std::string result = logger.text.substr(opening.size());
    replaceAll(result, "message: \n", " ");
    replaceAll(result, "\nmessage: ", "}");
    replaceAll(result, "message: ", "");
    replaceAll(result, "error: File '" + path + "', Line ", "{");
    const std::string end = "EOF ";
    EXPECT_TRUE(result.ends_with(end)) << result;
    return result.substr(0, result.size() - end.size());
}

/// Each text and its tokens.
void check(std::initializer_list<std::pair<std::string, std::string>> cases)
{
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(tokens(text), expected + (expected.empty() ? "" : " ")) << text;
}

const std::string unclosed = "Error: Unexpected EOF in Comment (Line ";

TEST(LexerTest, DecimalIntegersSaturateAndHexadecimalOnesGiveBits)
{
    check({{"0 007 -5 -0", "0 7 -5 0"},
           {"2147483647 2147483648 4294901760", "2147483647 2147483647 2147483647"},
           {"-2147483648 -2147483649", "-2147483648 -2147483648"},
           {std::string(3000, '9') + " -" + std::string(3000, '9'), "2147483647 -2147483648"},
           {std::string(3000, '0') + "17", "17"},
           {"0x10 0XfF -0x10 0x00000000fF", "16 255 -16 255"},
           {"0xFFFFFFFF 0xFFFF0000 -0x80000000", "-1 -65536 -2147483648"},
           {"0x" + std::string(3000, '0') + "1aB", "427"}});
}

TEST(LexerTest, DoublesNeedAPointOrAnExponent)
{
    const std::string zeros(3000, '0');
    check({{".5 5. -5. 0.25", "0.500000 5.000000 -5.000000 0.250000"},
           {"1e5 1E+2 25e-1", "100000.000000 100.000000 2.500000"},
           {"1.5e1 2.E1 .5e1 -1.5E-1", "15.000000 20.000000 5.000000 -0.150000"},
           {"-0.0 1e400 -1e400 1e-400", "-0.000000 inf -inf 0.000000"},
           {zeros + "1.5" + zeros + " 1e" + zeros + "1", "1.500000 10.000000"},
           // What can't go on with the number begins the next token.
           {"1.2.3 1..2 1e5.5", "1.200000 0.300000 1.000000 0.200000 100000.000000 0.500000"},
           {"1e5x 1.5-2 1-2", "100000.000000 'x' 1.500000 -2 1 -2"},
           {"0x1.5 0x1-2 5\xE4 5|", "1 0.500000 1 -2 5 t=-28 5 t=124"},
           // A second point behind a leading one belongs to the text, not to the number.
           {".5.5 6", "0.500000 6"}});
}

TEST(LexerTest, AMalformedNumberTakesTheCharacterThatBrokeIt)
{
    check({{"- 1 -.2 --3 -x4", "t=-1 1 t=-1 2 t=-1 3 t=-1 4"},
           {". 1 ..2 .-3 .x4", "t=-1 1 t=-1 2 t=-1 3 t=-1 4"},
           {"1e 1 1ex2 1e+ 3 1.5e-x4 1e+-5 1e.6", "t=-1 1 t=-1 2 t=-1 3 t=-1 4 t=-1 5 t=-1 6"},
           {"00x1 12X2 -00x3 .5x4", "t=-1 1 t=-1 2 t=-1 3 t=-1 4"},
           {"-/*", "t=-1 [AXIS_PTS_Z]"},
           {"+1 -", "[AXIS_RESCALE_X] 1 t=-1"}});
}

TEST(LexerTest, ANameMayBeginLikeANumber)
{
    check({{"2D_MAP 1_ 12MODULE 3_[4].a-b|c\xFC", "'2D_MAP' '1_' '12MODULE' '3_[4].a-b|c\xFC'"},
           {"1.5abc .5_ -5y 1.x", "'1.5abc' '.5_' '-5y' '1.x'"},
           // A hexadecimal number that turns into a name has lost its marker.
           {"0x1G 0xG.1 -0x1fZ 0X_", "'1G' 'G.1' '-1fZ' '_'"}});
    EXPECT_EQ(tokens("5Baud WuP", 4), "'5Baud' [WuP] ");
}

TEST(LexerTest, Names)
{
    check({{"a _ Z9 a.b-c[0]|d_", "'a' '_' 'Z9' 'a.b-c[0]|d_'"},
           {"/begin /Begin /begin2 x/end", "[/begin] '/Begin' '/begin2' 'x' [/end]"},
           {"// text /", "'/' '/' 'text' '/'"},
           {"MODULE module MODULE.1", "[MODULE] 'module' 'MODULE.1'"},
           {"a+b", "'a' [AXIS_RESCALE_X] 'b'"},
           {"x\xC4\xD6\xDC\xDF\xE4\xF6\xFC", "'x\xC4\xD6\xDC\xDF\xE4\xF6\xFC'"},
           {"\xE4x caf\xE9s x\xFFy", "t=-28 'x' 'caf' t=-23 's' 'x'"}});
}

TEST(LexerTest, Strings)
{
    const std::string failed = ": Unexpected EOF in string}t=-1";
    check({{R"("" "a" "a" "b" "c""d")", R"("" "a" "a" "b" "c"d")"},
           {R"("""" "\"" "\\" "a\nb\t")", R"(""" """ "\" "anbt")"},
           {R"("C:\dir\" x" y)", R"("C:dir" x" 'y')"},
           {R"("/* no comment */ // x"b)", R"("/* no comment */ // x" 'b')"},
           {"\"two\nlines\\\nor three\"", "\"two\nlines\nor three\""},
           {"\"CR LF\r\n\\\r\nCR\rCR CR LF\r\r\n\"", "\"CR LF\n\nCR\rCR CR LF\r\n\""},
           {"\"\xB0\xE4\x80\x01\"", "\"\xB0\xE4\x80\x01\""},
           {"\"x\n\\", "{2" + failed},
           // Behind an end mark in the middle of the file reading goes on.
           {"\"x\xFFy \"x\\\xFFy", "{1" + failed + " 'y' {1" + failed + " 'y'"},
           {"\"x\"\xFF y", "\"x\""}});
}

TEST(LexerTest, CommentsDoNotNestAndNeedTheirEnd)
{
    check({{"", ""},
           {" \t\r\n/**/ /***/ /* / * // \n*/", ""},
           {"a/**/b /* /* */ c", "'a' 'b' 'c'"},
           {"/*/ a */ b /* * / **/ /begin", "'b' [/begin]"},
           {"/ * */", "'/' [AXIS_PTS_Z] [AXIS_PTS_Z] '/'"},
           {"\n/* x\n\n", "{4: " + unclosed + "2)}t=305"},
           {"/*/", "{1: " + unclosed + "1)}t=305"},
           {"/* \xFF x /* *", "{1: " + unclosed + "1)}t=305 'x' {1: " + unclosed + "1)}t=305"}});
}

TEST(LexerTest, AnyOtherCharacterIsATokenOfItsSignedValue)
{
    const std::string others = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789"
                               "_/.-\" \t\r\n\xFF";
    for (const auto& [vocabulary, keywords] : {std::pair(0, &coreKeywords), {3, &xcpKeywords}}) {
        std::string text;
        std::string expected;
        for (int byte = 0; byte < 256; ++byte) {
            const auto character = static_cast<char>(byte);
            if (others.find(character) != std::string::npos)
                continue;
            text += std::string(1, character) + "x";
            // The lowest of these are the codes of /begin and /end in every vocabulary.
            const int code = static_cast<signed char>(byte);
            const char* keyword = keywords->keywordName(code);
            expected += keyword ? "[" + std::string(keyword) + "]" : "t=" + std::to_string(code);
            expected += " 'x' ";
            text += " ";
        }
        EXPECT_EQ(tokens(text, vocabulary), expected);
    }
}

TEST(LexerTest, LinesAreCountedAtTheLineFeedsThatAreRead)
{
    const std::pair<const char*, int> cases[] = {{"", 1},
                                                 {"\n\n", 3},
                                                 {"\r\n\r\n", 3},
                                                 {"\r\r", 1},
                                                 {"\r\r\n", 2},
                                                 {"/* \n \r\n */", 3},
                                                 {"#\n", 2},
                                                 {"\"\n\\\n\\\r\n\"", 4},
                                                 {"a\n5\n1.5\n", 4},
                                                 {"-\n.\n1e\n1e+\n", 1}};
    for (const auto& [text, line] : cases) {
        const std::string all = tokens(std::string(text) + "\"");
        EXPECT_TRUE(all.ends_with("{" + std::to_string(line) + ": Unexpected EOF in string}t=-1 "))
            << text << " gave " << all;
    }
}

TEST(LexerTest, AWordIsAKeywordOfTheVocabularyInForceAlone)
{
    const std::string text = "/begin CHECKSUM RESERVED RAM DAQ_LIST WuP";
    const char* const expected[] = {"[/begin] [CHECKSUM] [RESERVED] 'RAM' 'DAQ_LIST' 'WuP' ",
                                    "'/begin' 'CHECKSUM' [RESERVED] [RAM] 'DAQ_LIST' 'WuP' ",
                                    "[/begin] [CHECKSUM] 'RESERVED' [RAM] 'DAQ_LIST' 'WuP' ",
                                    "[/begin] [CHECKSUM] 'RESERVED' 'RAM' [DAQ_LIST] 'WuP' ",
                                    "[/begin] [CHECKSUM] 'RESERVED' 'RAM' 'DAQ_LIST' [WuP] "};
    for (int vocabulary = 0; vocabulary < 5; ++vocabulary)
        EXPECT_EQ(tokens(text, vocabulary), expected[vocabulary]);
}

TEST(LexerTest, ATokenIsTheSameWhereverTheBlocksOfTheFileMeet)
{
    constexpr std::size_t blockSize = 65536;
    for (const std::string text :
         {"/begin MODULE a.b-c[0]|d 2D_MAP x\xE4 //", "-123 12.75 -1.5e-12 .5 0x1F3 -0x1G 1.2.3",
          "\"a\\\"b\"\"c\r\nd\\\r\ne\r\r\nf\" \"\"\"\" \"",
          "/* c * / **/x/***/y/* \r\n\n \r */\r\n\r\r\n\"", "a\r\nb\r\r\n\rc\r\n\"",
          "a \"x\xFF b /* \xFF c - d \xFF e", "x\r"}) {
        const std::string expected = tokens(text);
        for (std::size_t shift = 0; shift <= text.size() + 1; ++shift) {
            EXPECT_EQ(tokens(std::string(blockSize - shift, ' ') + text), expected) << shift;
            EXPECT_EQ(tokens(std::string(2 * blockSize - shift, '\r') + text), expected) << shift;
        }
    }
}

TEST(LexerTest, LineEndsAcrossManyBlocksAreCountedOnce)
{
    std::string lines;
    for (int i = 0; i < 200000; ++i)
        lines += "\r\n";
    for (const std::string& text : {lines, " " + lines, "/*" + lines + "*/"})
        EXPECT_EQ(tokens(text + "\""), "{200001: Unexpected EOF in string}t=-1 ");
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
