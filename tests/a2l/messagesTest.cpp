// What the block parsers report: the errors that all blocks have in common, in a table of blocks,
// and then row by row what is particular to one.

#include "support/conversion.h"
#include "tavo/tavo.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <vector>

namespace {

// The messages that are expected, by default of line 2.

std::string error(const std::string& text, int line = 2)
{
    return "-: Error (d.a2l:" + std::to_string(line) + "): " + text + "\n";
}

std::string warning(const std::string& text, int line = 2)
{
    return "-: Warning (d.a2l:" + std::to_string(line) + "): " + text + "\n";
}

std::string refused(const std::string& token, int line = 2)
{
    return error("Unexpected token " + token, line);
}

std::string doubted(const std::string& token, int line = 2)
{
    return warning("Unexpected token " + token, line);
}

/// Of a comment that begins on the last line of the file.
std::string commentError(int line = 2)
{
    return error("Error: Unexpected EOF in Comment (Line " + std::to_string(line) + ")", line);
}

/// The diagnostics of a description. A reading with an error must fail, and no other.
std::string reported(const std::string& description)
{
    const Conversion conversion = convertText(description);
    const std::string text = diagnostics(conversion);
    const bool failed = text.find("-: Error") != std::string::npos;
    EXPECT_EQ(conversion.result, failed ? TAVO_NOT_READ : TAVO_OK);
    return text;
}

// The way to a block in each of the blocks that hold some.
const std::string projectBlock = "/begin PROJECT p x /begin ";
const std::string openModule = projectBlock + "MODULE m x ";
const std::string moduleBlock = openModule + "/begin ";
const std::string measurementBlock = moduleBlock + "MEASUREMENT n x UWORD c 0 0 0 1 /begin ";
const std::string characteristicBlock = moduleBlock + "CHARACTERISTIC n x V 0 r 0 c 0 1 /begin ";
const std::string ccpBlock = moduleBlock + "IF_DATA ASAP1B_CCP /begin ";
const std::string tpBlobBlock = ccpBlock + "TP_BLOB 1 2 3 4 5 6 /begin ";
const std::string xcpBlock = moduleBlock + "IF_DATA XCP /begin ";
const std::string daqBlock = xcpBlock + "DAQ 1 2 3 4 5 6 7 8 9 10 /begin ";

enum class Vocabulary
{
    Core,
    Ccp,
    Xcp
};

/// What a failure of the lexer adds to its own report: "Unexpected token t=305", or nothing.
enum class Failure
{
    Told,
    Silent
};

struct Block
{
    std::string opening; ///< Up to the place where the options begin.
    std::string keyword;
    std::string option; ///< One that passes; "" if there is none.
    Vocabulary vocabulary = Vocabulary::Core;
    bool holdsBlocks = false; ///< It looks at the word behind a /begin.
    Failure atFirst = Failure::Told;
    Failure behindOption = Failure::Silent;
};

std::vector<Block> blocks()
{
    constexpr auto Core = Vocabulary::Core;
    constexpr auto Ccp = Vocabulary::Ccp;
    constexpr auto Xcp = Vocabulary::Xcp;
    constexpr auto Told = Failure::Told;
    constexpr auto Silent = Failure::Silent;
    std::vector<Block> all = {
        {"/begin PROJECT p x", "PROJECT", "/begin HEADER x /end HEADER", Core, true},
        {projectBlock + "HEADER x", "HEADER", "VERSION 1"},
        {projectBlock + "MODULE m x", "MODULE", "/begin A2ML /end A2ML", Core, true},
        {moduleBlock + "MOD_COMMON x", "MOD_COMMON", "BYTE_ORDER MSB_LAST"},
        {moduleBlock + "MOD_PAR x", "MOD_PAR", "EPK 1", Core, true},
        {moduleBlock + "MOD_PAR x /begin MEMORY_SEGMENT n x CODE RAM INTERN 0 0 0 0 0 0 0",
         "MEMORY_SEGMENT", "/begin IF_DATA x /end IF_DATA", Core, true},
        {moduleBlock + "MEASUREMENT n x UWORD c 0 0 0 1", "MEASUREMENT", "READ_WRITE", Core, true},
        {measurementBlock + "BIT_OPERATION", "BIT_OPERATION", "SIGN_EXTEND"},
        {measurementBlock + "ANNOTATION", "ANNOTATION", "ANNOTATION_LABEL x", Core, true},
        {moduleBlock + "CHARACTERISTIC n x V 0 r 0 c 0 1", "CHARACTERISTIC", "READ_ONLY", Core,
         true},
        {moduleBlock + "COMPU_METHOD n x FORM f u", "COMPU_METHOD", "COMPU_TAB_REF t", Core, true},
        {moduleBlock + "COMPU_METHOD n x FORM f u /begin FORMULA", "FORMULA", "\"f\"", Core, false,
         Told, Told},
        {moduleBlock + "COMPU_TAB n x TAB_INTP 0", "COMPU_TAB", "DEFAULT_VALUE 1"},
        {moduleBlock + "COMPU_VTAB n x TAB_VERB 0", "COMPU_VTAB", "DEFAULT_VALUE 1"},
        {moduleBlock + "COMPU_VTAB_RANGE n x 0", "COMPU_VTAB_RANGE", "DEFAULT_VALUE 1"},
        {moduleBlock + "RECORD_LAYOUT n", "RECORD_LAYOUT", "RESERVED 1 BYTE"},
        {moduleBlock + "FUNCTION n x", "FUNCTION", "FUNCTION_VERSION 1", Core, true},
        {moduleBlock + "GROUP n x", "GROUP", "ROOT", Core, true},
        {moduleBlock + "FRAME n x 1 1", "FRAME", "FRAME_MEASUREMENT a", Core, true},
        {moduleBlock + "USER_RIGHTS u", "USER_RIGHTS", "READ_ONLY", Core, true},
        {moduleBlock + "IF_DATA ASAP1B_CCP", "IF_DATA", "DP_BLOB 1 2 3", Ccp, true},
        {ccpBlock + "SOURCE s 4 1", "SOURCE", "DISPLAY_IDENTIFIER x", Ccp, true},
        {ccpBlock + "SOURCE s 4 1 /begin QP_BLOB 0", "QP_BLOB", "LENGTH 8", Ccp, false, Silent},
        {ccpBlock + "RASTER x r 1 3 1", "RASTER", "EXCLUSIVE 1", Ccp},
        {ccpBlock + "EVENT_GROUP x g", "EVENT_GROUP", "RASTER 1", Ccp, false, Silent},
        {ccpBlock + "SEED_KEY 1 2 3", "SEED_KEY", "", Ccp},
        {ccpBlock + "CHECKSUM x", "CHECKSUM", "", Ccp},
        {ccpBlock + "TP_BLOB 1 2 3 4 5 6", "TP_BLOB", "BYTES_ONLY", Ccp, true},
        {tpBlobBlock + "DEFINED_PAGES 1 2 3 4 5", "DEFINED_PAGES", "RAM", Ccp},
        {tpBlobBlock + "CHECKSUM_PARAM 1 2", "CHECKSUM_PARAM", "CHECKSUM_CALCULATION 1", Ccp},
        {moduleBlock + "IF_DATA XCP", "IF_DATA", "/begin PAG /end PAG", Xcp, true},
        {xcpBlock + "XCP_ON_CAN 1", "XCP_ON_CAN", "MAX_DLC_REQUIRED", Xcp, true},
        {xcpBlock + "DAQ 1 2 3 4 5 6 7 8 9 10", "DAQ", "PID_OFF_SUPPORTED", Xcp, true},
        {daqBlock + "DAQ_LIST 0", "DAQ_LIST", "MAX_ODT 1", Xcp, true},
        // What isn't its end goes back to the DAQ.
        {daqBlock + "EVENT x e 1 DAQ 1 5 6 0", "EVENT", "PID_OFF_SUPPORTED", Xcp, true, Silent},
    };
    // Lists of names, which refuse what isn't one. In a function they go back to its options.
    const std::string functionLists[] = {"REF_CHARACTERISTIC", "DEF_CHARACTERISTIC",
                                         "IN_MEASUREMENT",     "OUT_MEASUREMENT",
                                         "LOC_MEASUREMENT",    "SUB_FUNCTION"};
    for (const std::string& list : functionLists)
        all.push_back({moduleBlock + "FUNCTION n x /begin " + list, list, "a"});
    const std::pair<std::string, std::string> otherLists[] = {
        {measurementBlock, "FUNCTION_LIST"},
        {measurementBlock, "VIRTUAL"},
        {characteristicBlock, "FUNCTION_LIST"},
        {moduleBlock + "GROUP n x /begin ", "REF_CHARACTERISTIC"},
        {moduleBlock + "GROUP n x /begin ", "REF_MEASUREMENT"},
        {moduleBlock + "GROUP n x /begin ", "FUNCTION_LIST"},
        {moduleBlock + "GROUP n x /begin ", "SUB_GROUP"},
    };
    for (const auto& [opening, list] : otherLists)
        all.push_back({opening + list, list, "a", Core, false, Told, Told});
    for (const std::string list : {"DEPENDENT_CHARACTERISTIC", "VIRTUAL_CHARACTERISTIC"})
        all.push_back(
            {characteristicBlock + list + " formula", list, "a", Core, false, Told, Told});
    return all;
}

/// With those that end at their /end whatever they hold.
std::vector<Block> allBlocks()
{
    std::vector<Block> all = blocks();
    for (const std::string keyword : {"A2ML", "AXIS_PTS"})
        all.push_back({moduleBlock + keyword, keyword, "a"});
    for (const std::string keyword : {"PAG", "PGM", "SEGMENT", "PROTOCOL_LAYER"})
        all.push_back({xcpBlock + keyword, keyword, "a"});
    all.push_back({characteristicBlock + "AXIS_DESCR", "AXIS_DESCR", "a"});
    all.push_back({moduleBlock + "MOD_PAR x /begin CALIBRATION_METHOD", "CALIBRATION_METHOD", "a"});
    return all;
}

TEST(MessagesTest, EveryBlockAsksForItsOwnKeywordBehindItsEnd)
{
    for (const Block& block : allBlocks())
        for (const char* word : {"x", "VARIANT_CODING", ""})
            EXPECT_EQ(reported(block.opening + "\n/end\n" + word),
                      error("Keyword '" + block.keyword + "' expected after /end", 3))
                << block.opening << " /end " << word;
}

TEST(MessagesTest, EveryBlockEndsTheReadingAtATokenThatItDoesNotHold)
{
    for (const Block& block : blocks())
        for (const std::string& option : {std::string(), block.option})
            EXPECT_EQ(reported(block.opening + "\n" + option + "\n77\n\n"), refused("77", 3))
                << block.opening << " " << option;
}

TEST(MessagesTest, NoBlockPassesTheEndOfTheFile)
{
    for (const Block& block : allBlocks())
        for (const std::string& option : {std::string(), block.option})
            EXPECT_EQ(reported(block.opening + "\n" + option + "\n/* nothing more */ "),
                      refused("EOF", 3))
                << block.opening << " " << option;
}

TEST(MessagesTest, ABlockWithoutInnerBlocksRefusesBeginItself)
{
    for (const Block& block : blocks())
        EXPECT_EQ(reported(block.opening + "\n/begin 77"),
                  refused(block.holdsBlocks ? "77" : "'/begin' found"))
            << block.opening;
}

TEST(MessagesTest, AWordIsNamedByTheVocabularyOfItsBlock)
{
    // One keyword of each vocabulary that no block takes and the other two don't know.
    const std::pair<Vocabulary, std::string> words[] = {{Vocabulary::Core, "VARIANT_CODING"},
                                                        {Vocabulary::Ccp, "ACTIVE_PAGE"},
                                                        {Vocabulary::Xcp, "TRIPLE"}};
    for (const Block& block : blocks()) {
        const bool takesNames = block.option == "a";
        for (const auto& [vocabulary, word] : words) {
            const bool keyword = vocabulary == block.vocabulary;
            if (keyword || !takesNames) {
                EXPECT_EQ(reported(block.opening + " " + word),
                          refused("'" + word + (keyword ? "' found" : "'"), 1))
                    << block.opening;
            }
        }
    }
}

TEST(MessagesTest, AFailureOfTheLexerIsToldAgainWhereAnyOtherTokenWouldBe)
{
    const auto expected = [](int line, Failure failure) {
        return commentError(line) + (failure == Failure::Told ? refused("t=305", line) : "");
    };
    for (const Block& block : blocks()) {
        EXPECT_EQ(reported(block.opening + "\n/* no end"), expected(2, block.atFirst))
            << block.opening;
        if (!block.option.empty()) {
            EXPECT_EQ(reported(block.opening + "\n" + block.option + "\n/* no end"),
                      expected(3, block.behindOption))
                << block.opening << " " << block.option;
        }
    }
}

struct Row
{
    const char* what;
    std::string body;
    std::string expected;
};

/// Checks what `opening` and each body, which begins on line 2, report together.
void check(const std::string& opening, std::initializer_list<Row> rows)
{
    for (const Row& row : rows)
        EXPECT_EQ(reported(opening + "\n" + row.body), row.expected) << row.what;
}

TEST(MessagesTest, Frame)
{
    check("",
          {{"a block outside of a project", "/begin MODULE", refused("'MODULE' found")},
           {"an end outside of a project", "/end PROJECT", refused("'/end' found")},
           {"a /begin and no more", "\n/begin\n", refused("EOF", 4)},
           {"a project without anything", "/begin PROJECT", refused("EOF")},
           {"an include at the top", "/include x", refused("'/include' found")},
           {"an include in a project", "/begin PROJECT p x\n/include",
            refused("'/include' found", 3)},
           {"a failure of the lexer", "/*", commentError() + refused("t=305")},
           {"the same behind a version", "ASAP2_VERSION 1 60 /*", commentError()},
           {"the same behind a project", "/begin PROJECT p x /end PROJECT /*", commentError()}});
    const std::string include = "/include is not supported";
    check(openModule,
          {{"includes", "/include\n\"x\" /include /begin 77",
            warning(include) + warning(include, 3) + refused("77", 3)},
           {"an include of two names", "/include a b", warning(include) + refused("'b'")},
           {"a header", "/begin HEADER x /end HEADER", refused("'HEADER' found")},
           {"a block of no use", "/begin VARIANT_CODING", refused("'VARIANT_CODING' found")},
           {"a block in no vocabulary", "/begin UNIT u", refused("'UNIT'")},
           {"a block of a block", "/begin MEMORY_SEGMENT", refused("'MEMORY_SEGMENT' found")},
           {"a block without /begin", "MOD_PAR", refused("'MOD_PAR' found")},
           {"a skipped block with an /end too few",
            "/begin AXIS_PTS a /begin x /end AXIS_PTS\n/end MODULE",
            error("Keyword 'AXIS_PTS' expected after /end", 3)},
           {"a skipped block and a failure of the lexer", "/begin AXIS_PTS x /*", commentError()}});
}

TEST(MessagesTest, KindsOfTokens)
{
    const std::string stringError = "Unexpected EOF in string";
    check(openModule,
          {{"a double", "1.5e3", refused("1500.000000")},
           {"a hexadecimal number", "0xFFFFFFFF", refused("-1")},
           {"a string", "\"two\nlines\"", refused("\"two\nlines\"", 3)},
           {"a string with conversions", "\"%s%n%d\"", refused("\"%s%n%d\"")},
           {"a name that begins with a keyword", "/end2", refused("'/end2'")},
           {"a malformed number", "-x", refused("t=-1")},
           {"a character beyond ASCII", "\xE9", refused("t=-23")},
           {"a zero byte", std::string(1, '\0'), refused("t=0")},
           {"a character without a keyword", "{", refused("t=123")},
           {"a character with a keyword's code", "<", refused("'COMPU_METHOD' found")},
           {"the same in another vocabulary", "/begin IF_DATA XCP <", refused("t=60")},
           {"an end mark", "\xFF", refused("EOF")},
           {"a string without an end", "\"x\n", error(stringError, 3) + refused("t=-1", 3)},
           {"a string that ends with a backslash", "\"x\\", error(stringError) + refused("t=-1")},
           {"an end of line that a sign takes", "/begin A2ML -\n/end A2ML\n77", refused("77", 3)}});
}

TEST(MessagesTest, EnumeratedWords)
{
    check(moduleBlock + "MEASUREMENT n x",
          {{"a type word of other fields", "BYTE", refused("'BYTE' found")},
           {"an unknown type word", "uword", refused("'uword'")},
           {"a core keyword as type", "MEASUREMENT", refused("'MEASUREMENT'")},
           {"an /end as type", "/end", refused("'/end'")},
           {"a number as type", "16", refused("16")},
           {"a character with a core keyword's code", "<", refused("t=60")},
           {"a failure of the lexer as type", "/*", commentError() + refused("t=305")},
           {"an enumerated word behind another", "UWORD c 0 0 0 1 BYTE_ORDER MSB_FIRST MSB_LAST",
            refused("'MSB_LAST'")}});
    check(openModule, {{"an end of the file", "/begin MOD_COMMON x BYTE_ORDER",
                        doubted("EOF") + refused("EOF")},
                       {"a characteristic's byte order",
                        "/begin CHARACTERISTIC 1 2 3 4 5 6 7 8 9 BYTE_ORDER ECU 77",
                        doubted("'ECU'") + refused("77")}});
    check(moduleBlock + "MOD_PAR x /begin MEMORY_SEGMENT n x",
          {{"a word missing", "CODE RAM 1 2 3 4 5 6 7 8 77", doubted("1") + refused("77")},
           {"words out of place", "INTERN\nEXTERN\nFLASH 1 2 3 4 5 6 7 77",
            doubted("'INTERN' found") + doubted("'EXTERN' found", 3) + doubted("'FLASH' found", 4) +
                refused("77", 4)},
           {"core keywords", "/begin ECU /end 1 2 3 4 5 6 7 RESERVED",
            doubted("'/begin'") + doubted("'ECU'") + doubted("'/end'") +
                refused("'RESERVED' found")}});
}

TEST(MessagesTest, BlocksOfAModuleAsAWhole)
{
    check(moduleBlock + "MOD_COMMON x",
          {{"NUMBER", "NUMBER", refused("'NUMBER' found")},
           {"an option of the other block", "ADDR_EPK 1", refused("'ADDR_EPK' found")}});
    check(moduleBlock + "MOD_PAR x",
          {{"an option of the other block", "ALIGNMENT_BYTE", refused("'ALIGNMENT_BYTE' found")},
           {"a layout", "/begin\nMEMORY_LAYOUT", refused("'MEMORY_LAYOUT' found", 3)},
           {"a segment without /begin", "MEMORY_SEGMENT", refused("'MEMORY_SEGMENT' found")},
           {"an argument too many", "SYSTEM_CONSTANT \"a\" \"b\" \"c\"", refused("\"c\"")}});
}

TEST(MessagesTest, Measurement)
{
    check(moduleBlock + "MEASUREMENT n x",
          {{"limits", "UWORD c 0 0\nlow\nhigh 77",
            warning("Unexpected type for lower limit.", 3) +
                warning("Unexpected type for upper limit.", 4) + refused("77", 4)}});
    check(
        moduleBlock + "MEASUREMENT n x UWORD c 0 0 0 1",
        {{"a characteristic's option", "CALIBRATION_ACCESS", refused("'CALIBRATION_ACCESS' found")},
         {"a failure of the lexer in a field of no use", "FORMAT /*",
          commentError() + refused("EOF")},
         {"a block without /begin", "ANNOTATION", refused("'ANNOTATION' found")},
         {"a list without /begin", "VIRTUAL a", refused("'VIRTUAL' found")},
         {"a bare list that meets a keyword", "FUNCTION_LIST a MODULE", refused("'MODULE' found")},
         {"a list that meets an option", "/begin FUNCTION_LIST a READ_WRITE",
          refused("'READ_WRITE' found")},
         {"an argument too many", "/begin BIT_OPERATION SIGN_EXTEND 1", refused("1")},
         {"an annotation that isn't text", "/begin ANNOTATION /begin ANNOTATION_TEXT x",
          refused("'x'")},
         {"an annotation's text behind which a name stands",
          "/begin ANNOTATION /begin ANNOTATION_TEXT \"t\" x", refused("'x'")},
         {"an annotation's text with another end",
          "/begin ANNOTATION /begin ANNOTATION_TEXT \"t\" /end ANNOTATION",
          error("Keyword 'ANNOTATION_TEXT\xC4 expected after /end")},
         {"an annotation's text that is closed too late",
          "/begin ANNOTATION /begin ANNOTATION_TEXT \"t\" ANNOTATION_LABEL x /end ANNOTATION_TEXT",
          error("Keyword 'ANNOTATION' expected after /end")}});
}

TEST(MessagesTest, CompuMethod)
{
    check(moduleBlock + "COMPU_METHOD n x",
          {{"a type in no vocabulary", "LINEAR \"\" \"\"\nCOEFFS_LINEAR 1 2",
            doubted("'LINEAR'") + refused("'COEFFS_LINEAR'", 3)},
           {"a keyword of no use", "FORM f u REF_UNIT u", refused("'REF_UNIT' found")},
           {"no inverse", "RAT_FUNC f u COEFFS 1 0 0 0 0\n1 77",
            warning("Unable to compute inverse function in conversion 'n'", 3) + refused("77", 3)},
           {"coefficients that aren't numbers", "FORM f u COEFFS 0\nFORM COEFFS - 0 \"1\" 77",
            doubted("'FORM'", 3) + doubted("'COEFFS' found", 3) + doubted("t=-1", 3) +
                doubted("\"1\"", 3) + refused("77", 3)},
           {"a second formula", "FORM f u /begin FORMULA \"f\" \"g\"", refused("\"g\"")},
           {"a name as inverse", "FORM f u /begin FORMULA FORMULA_INV f", refused("'f'")},
           {"no inverse", "FORM f u /begin FORMULA FORMULA_INV /end", refused("'/end' found")}});
}

TEST(MessagesTest, Tables)
{
    const std::string count = "Integer value (element count) expected";
    const std::string number = "Double or integer value expected";
    const std::string text = "String value expected";
    check(moduleBlock + "COMPU_TAB n x TAB_INTP",
          {{"a double as count", "1.0 1 1", error(count)},
           {"a row too few", "2 0 0 /end COMPU_TAB", error(number)},
           {"half a row too few", "1 0\n/end COMPU_TAB", error(number, 3)},
           {"a text in a row", "1 0 \"x\"", error(number)},
           {"a name in a row", "1 x 0", error(number)},
           {"a row too many", "1 0 0 5 5", refused("5")},
           {"a default of another kind", "0 DEFAULT_VALUE_NUMERIC 1",
            refused("'DEFAULT_VALUE_NUMERIC'")}});
    check(moduleBlock + "COMPU_VTAB n x TAB_VERB",
          {{"a name as count", "one 1 \"x\"", error(count)},
           {"a row too few", "2 0 \"a\" /end COMPU_VTAB", error(number)},
           {"half a row too few", "1 0 /end COMPU_VTAB", error(text)},
           {"a name as text", "1 0 a", error(text)},
           {"a number as text", "1 0 1", error(text)},
           {"a text ahead of the number", "1 \"a\" 0", error(number)},
           {"a text without an end", "1 0 \"a", error("Unexpected EOF in string") + error(text)},
           {"a row too many", "1 0 \"a\" 1.5 \"b\"", refused("1.500000")},
           {"a default of two words", "0 DEFAULT_VALUE a b", refused("'b'")}});
    check(moduleBlock + "COMPU_VTAB_RANGE n x",
          {{"no count", "/end COMPU_VTAB_RANGE", error(count)},
           {"a type word", "TAB_VERB 0", error(count)},
           {"a row too few", "2 0 1 \"a\" /end COMPU_VTAB_RANGE", error(number)},
           {"a row without a maximum", "1 0 \"a\"", error(number)},
           {"a row without a text", "2 0 1 2 3 \"a\"", error(text)},
           {"a row too many", "1 0 1 \"a\" 2 3 \"b\"", refused("2")}});
    check(openModule,
          {{"a wrong type word", "/begin COMPU_TAB n x TAB_VERB 0 77",
            doubted("'TAB_VERB' found") + refused("77")},
           {"a wrong type word", "/begin COMPU_VTAB n x TAB_NOINTP 0 77",
            doubted("'TAB_NOINTP' found") + refused("77")},
           {"no type word", "/begin COMPU_VTAB n x 0 1 x", doubted("0") + error(number)}});
}

TEST(MessagesTest, BlocksReadForTheirForm)
{
    check(openModule,
          {{"an argument too many", "/begin RECORD_LAYOUT n FIX_NO_AXIS_PTS_X 1 2", refused("2")},
           {"a function's list that is closed too late",
            "/begin FUNCTION n x /begin OUT_MEASUREMENT a FUNCTION_VERSION \"1\" /end "
            "OUT_MEASUREMENT",
            error("Keyword 'FUNCTION' expected after /end")},
           {"a function's list that begins with a keyword",
            "/begin FUNCTION n x /begin OUT_MEASUREMENT FUNCTION_VERSION",
            refused("'FUNCTION_VERSION' found")},
           {"a group's list that meets a keyword", "/begin GROUP n x /begin REF_MEASUREMENT a ROOT",
            refused("'ROOT' found")},
           {"a group's list without /begin", "/begin GROUP n x SUB_GROUP a",
            refused("'SUB_GROUP' found")},
           {"a frame's list behind /begin", "/begin FRAME n x 1 1 /begin FRAME_MEASUREMENT a",
            refused("'FRAME_MEASUREMENT' found")},
           {"a list of groups with another end", "/begin USER_RIGHTS u /begin REF_GROUP a /end x",
            error("Keyword REF_GROUP expected after /end")},
           {"a list of numbers", "/begin USER_RIGHTS u /begin REF_GROUP a 5", refused("5")},
           {"a characteristic with too few fields",
            "/begin CHARACTERISTIC n x VALUE 0 /end CHARACTERISTIC /end MODULE /end PROJECT",
            refused("'PROJECT' found")},
           {"an address", "/begin CHARACTERISTIC 1 2 3 4 5 6 7 8 9 ECU_ADDRESS",
            refused("'ECU_ADDRESS' found")},
           {"a list behind /begin", "/begin CHARACTERISTIC 1 2 3 4 5 6 7 8 9 /begin MAP_LIST",
            refused("'MAP_LIST' found")}});
}

TEST(MessagesTest, Ccp)
{
    check(moduleBlock + "IF_DATA ASAP1B_CCP",
          {{"a bare blob behind /begin", "/begin KP_BLOB 1 2 3", refused("'KP_BLOB' found")},
           {"a bare blob behind /begin", "/begin DP_BLOB 1 2 3", refused("'DP_BLOB' found")},
           {"a raster behind another blob", "DP_BLOB 1 2 3 RASTER 1", refused("'RASTER' found")},
           {"a block without /begin", "TP_BLOB", refused("'TP_BLOB' found")},
           {"a block of another place", "/begin SOURCE s 4 1 /begin RASTER",
            refused("'RASTER' found")},
           {"a /begin in a bare blob", "/begin SOURCE s 4 1 QP_BLOB 0 /begin",
            refused("'/begin' found")},
           {"a fourth key", "/begin SEED_KEY \"1\" \"2\" \"3\" \"4\"", refused("\"4\"")},
           {"a key with another end", "/begin SEED_KEY \"1\" /end CHECKSUM",
            error("Keyword 'SEED_KEY' expected after /end")},
           {"a second checksum", "/begin CHECKSUM \"1\" \"2\"", refused("\"2\"")},
           {"choices of each other",
            "/begin TP_BLOB 1 2 3 4 5 6 DAQ_MODE ODT\nADDRESS_EXTENSION BURST 77",
            doubted("'ODT' found") + doubted("'BURST' found", 3) + refused("77", 3)},
           {"a core keyword as a choice", "/begin TP_BLOB 1 2 3 4 5 6 DAQ_MODE MEASUREMENT 77",
            doubted("'MEASUREMENT'") + refused("77")},
           {"a core keyword behind the section's end", "/end MODULE",
            error("Keyword 'IF_DATA' expected after /end")}});
    check(tpBlobBlock + "CAN_PARAM 1 2",
          {{"one field too many", "3 4", refused("4")},
           {"one field too few", "/end CAN_PARAM", refused("'CAN_PARAM' found")},
           {"another end", "3 /end x", refused("'x'")},
           {"a failure of the lexer", "3 /*", commentError() + refused("t=305")}});
}

TEST(MessagesTest, Xcp)
{
    check(moduleBlock + "IF_DATA XCP",
          {{"a block without /begin", "XCP_ON_CAN", refused("'XCP_ON_CAN' found")},
           {"another transport", "/begin XCP_ON_UDP_IP", refused("'XCP_ON_UDP_IP' found")},
           {"another transport", "/begin XCP_ON_SxI", refused("'XCP_ON_SxI' found")},
           {"a transport in no vocabulary", "/begin XCP_ON_USB", refused("'XCP_ON_USB'")},
           {"a section's block in a transport", "/begin XCP_ON_CAN 1 /begin DAQ",
            refused("'DAQ' found")}});
    check(moduleBlock + "IF_DATA XCP /begin XCP_ON_CAN 1 /begin DAQ_LIST_CAN_ID 0",
          {{"options in the wrong order", "FIXED 1 VARIABLE", refused("'VARIABLE' found")},
           {"an option twice", "VARIABLE VARIABLE", refused("'VARIABLE' found")},
           {"another end", "FIXED 1 /end DAQ_LIST", refused("'DAQ_LIST' found")}});
    check(daqBlock,
          {{"another flag", "STIM 1 2 TIMESTAMP_FIXED", refused("'TIMESTAMP_FIXED' found")},
           {"another end", "STIM 1 2 BIT_STIM_SUPPORTED /end DAQ", refused("'DAQ' found")},
           {"a fourth field", "TIMESTAMP_SUPPORTED 1 2 3 4", refused("4")},
           {"another end", "TIMESTAMP_SUPPORTED 1 2 3 TIMESTAMP_FIXED /end x", refused("'x'")},
           {"a predefined list", "DAQ_LIST 0 /begin PREDEFINED", refused("'PREDEFINED' found")},
           {"an entry of four fields", "DAQ_LIST 0 /begin ODT 0 ODT_ENTRY 1 2 3 4 /end ODT",
            refused("'ODT' found")},
           {"another end", "DAQ_LIST 0 /begin ODT 0 /end ODT_ENTRY", refused("'ODT_ENTRY' found")},
           {"an event's option", "EVENT x e 1 DAQ 1 5 6 0\nPRIORITY", refused("'PRIORITY'", 3)},
           {"an event that is closed too late",
            "EVENT x e 1 DAQ 1 5 6 0 PID_OFF_SUPPORTED /end EVENT",
            error("Keyword 'DAQ' expected after /end")}});
}

} // namespace
