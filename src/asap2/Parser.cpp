#include "asap2/Parser.h"

#include "asap2/leaves.h"

#include <limits>

namespace tavo {

Parser::Parser(Scanner& scanner, Inventory& inventory, Notices& notices)
    : scanner_(scanner), inventory_(inventory), notices_(notices), types_(inventory.texts)
{
}

/// { anything | /begin block } of which the first PROJECT is read.
void Parser::parse()
{
    bool isProjectRead = false;
    for (scanner_.advance(); scanner_.token() != Token::FileEnd;) {
        if (scanner_.token() == Token::End)
            throw Fault(scanner_.place(), "'/end' without a block that it could end");
        if (scanner_.token() != Token::Begin) {
            scanner_.advance();
            continue;
        }
        const Mark begin(scanner_);
        const std::string word(beginBlock(begin));
        if (word == "PROJECT" && !isProjectRead) {
            isProjectRead = true;
            scanner_.advance();
            parseProject(begin);
        } else {
            passOver(word, begin);
        }
    }
    if (!isProjectRead)
        throw Fault({}, "There is no PROJECT");
    expandInstances(instances_, types_, inventory_, notices_);
    reportUndefinedMethods();
}

/// /begin PROJECT anything { /begin block } /end PROJECT, of which the first MODULE is read.
void Parser::parseProject(const Mark& begin)
{
    bool isModuleRead = false;
    while (scanner_.token() != Token::End) {
        if (scanner_.token() == Token::FileEnd)
            throw Fault(begin, "Block 'PROJECT' without an end");
        if (scanner_.token() != Token::Begin) {
            scanner_.advance();
            continue;
        }
        const Mark blockBegin(scanner_);
        const std::string word(beginBlock(blockBegin));
        if (word == "MODULE" && !isModuleRead) {
            isModuleRead = true;
            scanner_.advance();
            parseModule(blockBegin);
        } else {
            passOver(word, blockBegin);
        }
    }
    closeBlock("PROJECT", begin);
    if (!isModuleRead)
        throw Fault(begin, "The first PROJECT has no MODULE");
}

/// /begin MODULE name longIdentifier { /begin block } /end MODULE
void Parser::parseModule(const Mark& begin)
{
    if (!faultSink_) {
        passOverFields(Block::Module, 2);
        return parseModuleBlocks(begin);
    }
    bool isBroken = false;
    for (;;) {
        try {
            if (!isBroken)
                passOverFields(Block::Module, 2);
            else if (!resumeModule())
                return;
            return parseModuleBlocks(begin);
        } catch (const Fault& fault) {
            keepFault(fault);
            isBroken = true;
        }
    }
}

void Parser::parseModuleBlocks(const Mark& begin)
{
    parseOptions(Block::Module, "MODULE", begin,
                 [this](Option option, const Mark& place) { parseModuleBlock(option, place); });
}

void Parser::parseModuleBlock(Option option, const Mark& begin)
{
    switch (option) {
    case Option::Module_MEASUREMENT_block:
        return parseMeasurement(begin);
    case Option::Module_COMPU_METHOD_block:
        return parseMethod(begin);
    case Option::Module_COMPU_TAB_block:
        return parseTable(TableKind::Numeric, "COMPU_TAB", begin);
    case Option::Module_COMPU_VTAB_block:
        return parseTable(TableKind::Verbal, "COMPU_VTAB", begin);
    case Option::Module_COMPU_VTAB_RANGE_block:
        return parseTable(TableKind::Ranges, "COMPU_VTAB_RANGE", begin);
    case Option::Module_IF_DATA_block:
        return parseIfData(begin);
    case Option::Module_INSTANCE_block:
        return parseInstance(begin);
    case Option::Module_MOD_COMMON_block:
        return parseModCommon(begin);
    case Option::Module_TYPEDEF_AXIS_block:
        return parseAdjustable("TYPEDEF_AXIS", begin);
    case Option::Module_TYPEDEF_BLOB_block:
        return parseAdjustable("TYPEDEF_BLOB", begin);
    case Option::Module_TYPEDEF_CHARACTERISTIC_block:
        return parseAdjustable("TYPEDEF_CHARACTERISTIC", begin);
    case Option::Module_TYPEDEF_MEASUREMENT_block:
        return parseTypedefMeasurement(begin);
    case Option::Module_TYPEDEF_STRUCTURE_block:
        return parseTypedefStructure(begin);
    default:
        return;
    }
}

/// MOD_COMMON longIdentifier { option } /end MOD_COMMON
void Parser::parseModCommon(const Mark& begin)
{
    passOverFields(Block::ModCommon, 1);
    parseOptions(Block::ModCommon, "MOD_COMMON", begin, [this](Option option, const Mark&) {
        if (option == Option::ModCommon_BYTE_ORDER)
            inventory_.byteOrder = byteOrderOf(text(0));
    });
}

ByteOrder Parser::byteOrderOf(std::string_view word)
{
    // LITTLE_ENDIAN goes with MSB_FIRST and BIG_ENDIAN with MSB_LAST, not the reverse: the standard
    // has the meanings of these two words exchanged.
    if (word == "MSB_FIRST" || word == "LITTLE_ENDIAN")
        return ByteOrder::Motorola;
    if (word == "MSB_LAST" || word == "BIG_ENDIAN")
        return ByteOrder::Intel;
    if (word == "MSB_FIRST_MSW_LAST")
        return ByteOrder::MotorolaWordsLast;
    if (word == "MSB_LAST_MSW_FIRST")
        return ByteOrder::IntelWordsFirst;
    notices_.add(lineOfFields(), joined({"Byte order ", inQuotes(word), " is not known"}));
    return ByteOrder::None;
}

/// `/begin` is current, and `begin` stands there: takes it and returns the word of the block, which
/// is current then.
std::string_view Parser::beginBlock(const Mark& begin)
{
    scanner_.advance();
    if (scanner_.token() != Token::Word && scanner_.token() != Token::Text)
        throw Fault(begin, "'/begin' without the word of its block");
    return scanner_.text();
}

/// `/end` is current: takes it and the word after it, which must be the block's.
void Parser::closeBlock(std::string_view word, const Mark& begin)
{
    scanner_.advance();
    if (!scanner_.isWord(word)) {
        scanner_.failAtOtherEnd(word, begin);
    }
    scanner_.advance();
}

/// Reads the rest of a block that is left out because of one of its fields. Unlike one that is
/// passed over, it may go on in an included file.
void Parser::leaveOut(std::string_view word, const Mark& begin)
{
    for (;;) {
        switch (scanner_.token()) {
        case Token::End:
            return closeBlock(word, begin);
        case Token::FileEnd:
            throw Fault(begin, joined({"Block ", inQuotes(word), " without an end"}));
        case Token::Begin: {
            const Mark inner(scanner_);
            const std::string innerWord(beginBlock(inner));
            passOver(innerWord, inner);
            break;
        }
        case Token::Word:
        case Token::Text:
            scanner_.advance();
            break;
        }
    }
}

/// Passes over the rest of a block, unread, from the current token on.
void Parser::skipRest(std::string_view word, const Mark& begin)
{
    switch (scanner_.token()) {
    case Token::End:
        return closeBlock(word, begin);
    case Token::FileEnd:
        throw Fault(begin, joined({"Block ", inQuotes(word), " without an end"}));
    case Token::Begin:
        return scanner_.skipBlock(word, begin, 2);
    case Token::Word:
    case Token::Text:
        return scanner_.skipBlock(word, begin);
    }
}

/// Passes over a whole block, whose word is current.
void Parser::passOver(std::string_view word, const Mark& begin)
{
    if (word == "A2ML")
        scanner_.skipA2ml(begin);
    else
        scanner_.skipBlock(word, begin);
}

/// A word that has no row, and whatever follows up to something that is known.
void Parser::passOverUnknown(Block block)
{
    if (parseNumber(scanner_.text())) { // what is left of a faulty option
        scanner_.advance();
        return;
    }
    if (block != Block::OtherTransport)
        notices_.add(scanner_.place(),
                     joined({"Unknown word ", inQuotes(scanner_.text()), " is passed over"}));
    passOverFields(block, std::numeric_limits<int>::max());
}

/// An option with a missing field, or one of another kind, which is current.
void Parser::ignoreOption(const OptionRow& row)
{
    if (row.option == Option::Known)
        return;
    notices_.add(scanner_.place(), joined({"Option '", row.word,
                                           "' is ignored: a field is missing or of another kind"}));
    isSetWrong_ |=
        row.option == Option::Method_COEFFS || row.option == Option::Method_COEFFS_LINEAR;
}

/// Passes over what stands before an option, a block or the end, but not over more than so many.
void Parser::passOverFields(Block block, int most)
{
    while (most-- > 0 && (scanner_.token() == Token::Text ||
                          (scanner_.token() == Token::Word &&
                           findOption(block, scanner_.text()).option == Option::Unknown)))
        scanner_.advance();
}

} // namespace tavo
