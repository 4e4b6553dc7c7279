#include "asap2/Parser.h"

#include "asap2/leaves.h"

#include <algorithm>
#include <cmath>
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

/// Reads the fields of an option by their kinds. False if one is missing or of another kind, which
/// is current then.
bool Parser::readFields(Block block, const OptionRow& row)
{
    std::size_t i = 0;
    for (const char* kinds = row.fields; *kinds; ++kinds) {
        if (kinds[1] == '*' && *kinds == 'w') {
            while (scanner_.token() == Token::Word &&
                   findOption(block, scanner_.text()).option == Option::Unknown)
                scanner_.advance();
            return true;
        }
        // A word without effect isn't worth one that has an effect.
        const bool isOption = row.option == Option::Known && *kinds == 'w' &&
                              scanner_.token() == Token::Word &&
                              findOption(block, scanner_.text()).option > Option::Known;
        if (isOption || !readField(*kinds, fields_[i]))
            return false;
        fields_[i].further.clear();
        if (kinds[1] == '*') {
            readMoreNumbers(fields_[i]);
            return true;
        }
        ++i;
    }
    return true;
}

/// A field of one of the kinds of `options.def`, or of these: S and W are s and w of which the text
/// is kept in the inventory, and m is the name of a method, which is looked up soon.
bool Parser::readField(char kind, Field& field)
{
    const Token token = scanner_.token();
    if (token != Token::Word && token != Token::Text)
        return false;
    const std::string_view word = scanner_.text();
    const bool isText = token == Token::Text;
    const auto store = [&] {
        field.storage.assign(word);
        field.text = field.storage;
    };
    switch (kind) {
    case 's':
        if (!isText)
            return false;
        store();
        break;
    case 'S':
        if (!isText)
            return false;
        field.text = inventory_.texts.keep(word);
        break;
    case 'm':
    case 'w':
    case 'W':
        if (!isText && parseNumber(word))
            return false;
        if (kind == 'm')
            field.prepared = inventory_.methodNames.prepare(word);
        if (kind == 'W')
            field.text = inventory_.texts.keep(word);
        else
            store();
        break;
    case 'x':
        store();
        break;
    default: {
        Number& number = field.number;
        if (!readNumber(word, number))
            return false;
        if (kind == 'i') {
            const std::optional<Number> integer = number.asInteger();
            if (!integer)
                return false;
            number = *integer;
        }
        if (kind == 'p' && number.real != std::floor(number.real))
            return false;
    }
    }
    if (isText && kind != 's' && kind != 'S' && kind != 'x')
        notices_.add(scanner_.place(), "Quotes around a word or a number are ignored");
    scanner_.advance();
    return true;
}

/// The numbers after a field, as many as come.
void Parser::readMoreNumbers(Field& field)
{
    constexpr std::size_t most = 64; // Dimensions beyond these are no array's.
    while (scanner_.token() == Token::Word) {
        const std::optional<Number> number = parseNumber(scanner_.text());
        if (!number)
            return;
        if (field.further.size() < most)
            field.further.push_back(*number);
        scanner_.advance();
    }
}

std::int64_t Parser::integer(std::size_t field) const
{
    return number(field).asSigned().value_or(std::numeric_limits<std::int64_t>::max());
}

/// Reads the positional fields of a block by their kinds; `names` says what each one is. False,
/// with a warning that has the block's name if that was read, if one is missing or of another kind.
bool Parser::readPositional(std::string_view word, const char* kinds,
                            std::initializer_list<const char*> names)
{
    const auto isName = [](std::string_view name) { return name == "its name"; };
    for (const auto* name = names.begin(); name != names.end(); ++name) {
        const auto i = static_cast<std::size_t>(name - names.begin());
        if (!readField(kinds[i], fields_[i])) {
            const auto* const called = std::find_if(names.begin(), name, isName);
            const auto place = static_cast<std::size_t>(called - names.begin());
            reportMissing(word, called != name ? text(place) : "", *name);
            return false;
        }
    }
    return true;
}

/// Something is left out because of the current token, which is no `field`.
void Parser::reportMissing(std::string_view word, std::string_view name, const char* field)
{
    const bool isToken = scanner_.token() == Token::Word || scanner_.token() == Token::Text;
    std::string text(word);
    if (!name.empty())
        text = joined({word, " ", inQuotes(name)});
    if (isToken)
        text = joined({text, " is left out: ", field, " can't be ", inQuotes(scanner_.text())});
    else
        text = joined({text, " is left out: ", field, " is missing"});
    reportLeftOut(scanner_.place(), word, text);
}

/// A warning for one thing that is left out, with a name. Beyond a hundred, there is one for all of
/// the same block.
void Parser::reportLeftOut(Place place, std::string_view word, const std::string& text)
{
    constexpr unsigned mostOfTheirOwn = 100;
    if (++leftOutCount_ <= mostOfTheirOwn)
        notices_.add(place, text);
    else
        notices_.add(place,
                     joined({"A further ", word, " is left out: a field is missing or wrong"}));
}

} // namespace tavo
