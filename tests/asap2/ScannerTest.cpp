#include "asap2/Scanner.h"

#include "support/files.h"

#include <gtest/gtest.h>

#include <utility>

using namespace tavo;
using namespace std::string_literals;

namespace {

/// What is left in a scanner: a word as it is, a text in angle brackets, "{" for /begin, "}" for
/// /end, "!" and the text of a fault. The line of each is kept, too.
struct Tokens
{
    Tokens() = default;
    explicit Tokens(Scanner& scanner)
    {
        try {
            for (scanner.advance(); scanner.token() != Token::FileEnd; scanner.advance()) {
                add(scanner);
            }
        } catch (const Fault& fault) {
            text += "!"s + fault.what();
            lines.push_back(fault.place().line);
        }
    }

    void add(Scanner& scanner)
    {
        const std::string value(scanner.text());
        const Token token = scanner.token();
        text += (text.empty() ? "" : " ") + (token == Token::Word    ? value
                                             : token == Token::Text  ? "<" + value + ">"
                                             : token == Token::Begin ? "{"s
                                                                     : "}"s);
        lines.push_back(scanner.place().line);
    }

    std::string text;
    std::vector<std::uint32_t> lines;
};

Tokens tokensIn(const std::string& description)
{
    Scanner scanner;
    scanner.use(description);
    return Tokens(scanner);
}

const std::pair<std::string, std::string> cases[] = {
    {"", ""},
    {"a b\tc\vd\fe\x1A"s + "f\0g"s, "a b c d e f g"},
    {"a.b[0]:c$d@e-f_\xC3\xA4\xFF{}?", "a.b[0]:c$d@e-f_\xC3\xA4\xFF{}?"},
    {"a\"b\"c\"\"", "a <b> c <>"},
    {"/begin X /END X /Begin\tY /eND\nY", "{ X } X { Y } Y"},
    {"/end IF_DATA/begin X", "} IF_DATA { X"},
    {"a/end/begin/*c*/b/begin\"t\"", "a } { b { <t>"},
    {"/beginX /ends a/begin/b /en /e", "/beginX /ends a/begin/b /en /e"},
    {"a/b a//b\nc", "a/b a c"},
    {"a/* /end \" */b/**/c/***/d/*/ */e", "a b c d e"},
    {"// \"\n// */\r/* // */x", "x"},
    {"a //", "a"},
    {R"("a""b" "a\"b" "a\\" "\n" "")", R"(<a"b> <a"b> <a\> <n> <>)"},
    {R"("a""b""c\"" 1)", R"(<a"b"c"> 1)"},
    {R"("""" "\\\"")", R"(<"> <\">)"},
    {"\"a // b /* c */ /end\"", "<a // b /* c */ /end>"},
    {"\"a\r\nb\rc\nd\\\r\ne\\\nf\"", "<a\nb\rc\nd\ne\nf>"},
    {"\"a\0b\"c \"\\\0b\""s, "<a> c <>"},
    {"/", "/"},
    {"/* *", "!Comment without an end"},
    {"a \"b\\\"", "a!Text without an end"},
    {"\"a", "!Text without an end"},
    {"\"a\"\"", "!Text without an end"},
};

TEST(Scanner, splitsADescriptionIntoTokens)
{
    for (const auto& [description, expected] : cases)
        EXPECT_EQ(tokensIn(description).text, expected) << description;
}

TEST(Scanner, findsTheSameTokensWhereverABlockEnds)
{
    constexpr std::size_t blockSize = 65536;
    std::string all;
    for (const auto& [description, expected] : cases)
        if (expected.find('!') == std::string::npos)
            all += description + "\n";
    const std::string plain = tokensIn(all).text;
    const TemporaryFolder folder;
    for (std::size_t at = 0; at <= all.size(); ++at) {
        const std::string blanks(blockSize - 4 - at,
                                 ' '); // the first four bytes come by themselves
        EXPECT_EQ(tokensIn(blanks + all).text, plain) << at;
        EXPECT_EQ(tokensIn("    " + blanks + all).text, plain) << at;
    }
    const std::string longest(5 * blockSize / 2, 'x');
    EXPECT_EQ(tokensIn("\"" + longest + "\" " + longest + " \"\"\"" + longest + "\" a").text,
              "<" + longest + "> " + longest + " <\"" + longest + "> a");
}

TEST(Scanner, countsEveryKindOfLineEnd)
{
    using Lines = std::vector<std::uint32_t>;
    EXPECT_EQ(tokensIn("a\nb\r\nc\rd\n\re \"\n\"f").lines, Lines({1, 2, 3, 4, 6, 6, 7}));
    EXPECT_EQ(tokensIn("\n\"a\n\"\"\" b /*\n*/ c // \n d").lines, Lines({2, 3, 4, 5}));
    EXPECT_EQ(tokensIn("\n\"a\n").lines, Lines({2}));
    const std::string many(70000, '\n');
    EXPECT_EQ(tokensIn(many + "a /*" + many + "*/ b\r" + many + "c").lines,
              Lines({70001, 140001, 210001}));
}

TEST(Scanner, passesOverABlockByItsBeginsAndEnds)
{
    const std::pair<const char*, const char*> blocks[] = {
        {"1 \"/end X\" /* /end X */ // /end X\n /end X a", "a"},
        {"/begin Y /begin X /end X /end Z /end X a", "a"},
        {"\"\\\" /end X\" \"\"\"/end X\" /end/**/X a", "a"},
        {"/beginX /endX x/begin/y /END X/begin", "{"},
        {"/include \"C:\\\" /include /end X a", "a"},
        {"/include no.a2l /include\"/end X\" /end X a", "a"},
        {"/begin A2ML \" /begin /* /end A2MLx /end\nA2ML /end X a", "a"},
        {"/begin A2ML /end A2ML\"/end X\" /end X a", "a"},
        {"/begin A2MLx /end A2ML /end X a", "a"},
        {"/begin A2MLx \"/end A2ML\" /end A2MLx /end X a", "a"},
        {"/end /include no.a2l", "!'/end /include' found in the block 'X' of line 1"},
        {"/end Y", "!'/end Y' found in the block 'X' of line 1"},
        {"/end \"X\"", "!'/end' found in the block 'X' of line 1"},
        {"/end", "!'/end' found in the block 'X' of line 1"},
        {"/begin Y /end X", "!Block 'X' without an end"},
        {"/begin A2ML /end X", "!Block 'A2ML' without an end"},
        {"\"/end X", "!Text without an end"},
        {"/* /end X", "!Comment without an end"},
    };
    constexpr std::size_t blockSize = 65536;
    for (const auto& [block, expected] : blocks)
        for (std::size_t padding = blockSize - 50; padding < blockSize + 4; ++padding) {
            const std::string description = std::string("w").append(padding, ' ') + block;
            Scanner scanner;
            scanner.use(description);
            scanner.advance();
            Tokens found; // the first token after the block
            try {
                scanner.skipBlock("X", Mark(scanner));
                found.add(scanner);
            } catch (const Fault& fault) {
                found.text = "!"s + fault.what();
            }
            EXPECT_EQ(found.text, expected) << block;
        }
}

} // namespace
