#pragma once

#include "asap2/Fields.h"
#include "asap2/Scanner.h"
#include "asap2/Types.h"
#include "asap2/options.h"
#include "base/Diagnostic.h"
#include "base/Notices.h"
#include "inventory/Inventory.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <initializer_list>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace tavo {

/// The sources of an interface, to look them up by all that they hold.
class KnownSources
{
public:
    /// True if `interface`, always the same, has an equal source.
    bool has(const Interface& interface, const Source& source);

private:
    struct Before
    {
        bool operator()(const Source* a, const Source* b) const { return *a < *b; }
    };

    std::set<const Source*, Before> sources_;
    std::size_t count_ = 0; ///< So many of the interface are in the set.
};

/// Reads the first MODULE of a description into an inventory. Serves one reading.
///
/// How the operations work together:
///
/// - One token is current. A block's operation begins with the first token after the block's word
///   and ends with the first one after its `/end` and word.
/// - Fields are taken by position and kind. A token of another kind is never taken for the field:
///   it stays current, and what the field belongs to is left out.
/// - Options are looked up in a table with the kinds of their fields, so that a word that nobody
///   knows doesn't shift what follows.
/// - What ends the reading is thrown as a `Fault`; everything else is a notice.
class Parser
{
public:
    /// Gets a fault that the reading got over, or a note about where it goes on.
    using FaultSink = std::function<void(Severity severity, Place place, const std::string& text)>;

    /// All three outlive the parser; a description is open in the scanner.
    Parser(Scanner& scanner, Inventory& inventory, Notices& notices);

    void parse();
    /// The same, but after a fault the reading goes on with the next block of the module. False if
    /// there was a fault.
    bool parseAll(const FaultSink& sink);

private:
    // Tokens and blocks.
    std::string_view beginBlock(const Mark& begin);
    void closeBlock(std::string_view word, const Mark& begin);
    void leaveOut(std::string_view word, const Mark& begin);
    void skipRest(std::string_view word, const Mark& begin);
    void passOver(std::string_view word, const Mark& begin);
    template <class Handle>
    void parseOptions(Block block, std::string_view word, const Mark& begin, Handle handle);
    template <class Handle> void parseOption(Block block, const Mark& begin, Handle handle);
    template <class Handle> void parseInnerBlock(Block block, Handle handle);
    template <class Handle>
    void parseNamedBlock(Block block, const Mark& begin, std::string_view word, Handle handle);
    void passOverUnknown(Block block);
    void ignoreOption(const OptionRow& row);

    // Fields.
    bool readFields(Block block, const OptionRow& row);
    template <char kind> bool readField(Field& field);
    bool readField(char kind, Field& field);
    void readMoreNumbers(Field& field);
    template <char... kinds>
    bool readPositional(std::string_view word, std::initializer_list<const char*> names);
    void reportMissing(std::string_view word, std::string_view name, const char* field);
    void reportLeftOut(Place place, std::string_view word, const std::string& text);
    std::string_view text(std::size_t field) const { return fields_[field].text; }
    const Number& number(std::size_t field) const { return fields_[field].number; }
    std::string_view keep(std::size_t field) { return inventory_.texts.keep(text(field)); }
    /// An integer field with a sign; the highest number for one that is beyond it.
    std::int64_t integer(std::size_t field) const;
    /// Where fields stand that have been read, as far as that is still known: the line.
    Place lineOfFields() { return {scanner_.place().file, scanner_.place().line}; }

    // The frame of a file.
    void parseProject(const Mark& begin);
    void parseModule(const Mark& begin);
    void parseModuleBlocks(const Mark& begin);
    bool resumeModule();
    void keepFault(const Fault& fault);
    void reportPassedOver(Place place);
    void parseModuleBlock(Option option, const Mark& begin);
    void parseModCommon(const Mark& begin);
    ByteOrder byteOrderOf(std::string_view word);

    // Quantities and their types.
    void parseMeasurement(const Mark& begin);
    void parseTypedefMeasurement(const Mark& begin);
    bool parseQuantity(std::string_view word, const Mark& begin, Quantity& quantity);
    void parseQuantityOption(Option option, Quantity& quantity, const Mark& begin);
    void parseCommonOption(Option option, Quantity& quantity, const Mark& begin);
    bool takeDimensions(Dimensions& dimensions);
    bool readDimensions(Quantity& quantity);
    bool isPointerWord() const;
    void parseQuantityIfData(Quantity& quantity, const Mark& begin);
    void parseBlob(Option option, const Mark& begin);
    void parseDaqEvent(Quantity& quantity, const Mark& begin);
    void parseEventList(std::string_view word, Quantity& quantity, const Mark& begin);
    void bindEvent(Quantity& quantity);
    void parseTypedefStructure(const Mark& begin);
    void parseComponent(Structure& structure, const Mark& begin);
    void parseInstance(const Mark& begin);
    void parseAdjustable(std::string_view word, const Mark& begin);

    // Conversions.
    void parseMethod(const Mark& begin);
    void parseMethodOption(Option option, Method& method, const Mark& begin);
    void parseFormula(Method& method, const Mark& begin);
    void parseTable(TableKind kind, std::string_view word, const Mark& begin);
    void readRows(Table& table);
    void reportUndefinedMethods();

    // Interfaces.
    void parseIfData(const Mark& begin);
    Interface& interfaceOf(Protocol protocol);
    void parseCcp(const Mark& begin);
    void parseTpBlob(Interface& interface, const Mark& begin);
    void giveIdentifier(std::optional<std::int64_t>& identifier, const Number& number,
                        std::string_view where);
    void parseRaster(Interface& interface, const Mark& begin);
    bool isExpressible(const Source& source, std::string_view word);
    void parseXcp(Protocol protocol, const Mark& begin);
    void parseXcpBlock(Option option, Interface& interface, const Mark& begin);
    void parseDaq(Interface& interface, bool isInTransport, const Mark& begin);
    void parseEvent(Interface& interface, bool isInTransport, const Mark& begin);
    void parseCan(Interface& interface, const Mark& begin);
    void parseEthernet(Interface& interface, TransportKind kind, std::string_view word,
                       const Mark& begin);
    void parseOtherTransport(Interface& interface, TransportKind kind, std::string_view word,
                             const Mark& begin);
    void passOverFields(Block block, int most);

    Scanner& scanner_;
    Inventory& inventory_;
    Notices& notices_;
    TypeTable types_;
    std::deque<Instance> instances_;
    std::array<Field, 9> fields_; ///< Of the block or option that was read last.
    Pattern64 blobAddress_;       ///< Of the first KP_BLOB in the quantity in hand.
    Pattern64 blobExtension_;
    std::map<Protocol, KnownSources> knownSources_;
    bool hasMatrix_ = false;           ///< The quantity in hand has a MATRIX_DIM.
    Protocol section_ = Protocol::Ccp; ///< Of the IF_DATA in hand.
    FaultSink faultSink_;              ///< Empty if the first fault ends the reading.
    Place lastFault_;                  ///< Where the last one was that the reading got over.
    unsigned faultCount_ = 0;          ///< Of those.
    bool isCutShort_ = false;          ///< After a fault, the file ended before the module did.
    unsigned leftOutCount_ = 0;        ///< Things that were left out with a warning of their own.
    bool isSetWrong_ = false; ///< A COEFFS or COEFFS_LINEAR of the method in hand is no set.
};

/// A field of one of the kinds of `options.def`, or of these: S and W are s and w of which the text
/// is kept in the inventory, and m is the name of a method, which is looked up soon. False if the
/// current token is none of the kind.
template <char kind> bool Parser::readField(Field& field)
{
    constexpr bool mustBeText = kind == 's' || kind == 'S';
    constexpr bool isName = kind == 'w' || kind == 'W' || kind == 'm';
    const Token token = scanner_.token();
    const bool isText = token == Token::Text;
    if (!isText && (mustBeText || token != Token::Word))
        return false;
    const std::string_view word = scanner_.text();
    if constexpr (mustBeText || isName || kind == 'x') {
        if (isName && !isText && mayBeNumber(word) && parseNumber(word))
            return false;
        if constexpr (kind == 'm')
            field.prepared = inventory_.methodNames.prepare(word);
        if constexpr (kind == 'S' || kind == 'W')
            field.text = inventory_.texts.keep(word);
        else if (isText)
            field.store(word);
        else
            field.storeWord(word);
    } else {
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
    if (isText && !mustBeText && kind != 'x')
        notices_.add(scanner_.place(), "Quotes around a word or a number are ignored");
    scanner_.advance();
    return true;
}

/// Reads the positional fields of a block, each of its kind; `names` says what each one is. False,
/// with a warning that has the block's name if that was read, if one is missing or of another kind.
template <char... kinds>
bool Parser::readPositional(std::string_view word, std::initializer_list<const char*> names)
{
    std::size_t i = 0;
    const bool isComplete = (... && (readField<kinds>(fields_[i]) && (++i, true)));
    if (isComplete)
        return true;
    const auto* const missing = names.begin() + i;
    const auto* const called = std::find_if(
        names.begin(), missing, [](std::string_view name) { return name == "its name"; });
    const auto place = static_cast<std::size_t>(called - names.begin());
    reportMissing(word, called != missing ? text(place) : "", *missing);
    return false;
}

/// The options of a block up to its `/end`, and that end. `handle` gets an option from which
/// something is taken: the fields of a plain one have been read; a block is the handler's to read,
/// which gets the mark of its own begin.
template <class Handle>
void Parser::parseOptions(Block block, std::string_view word, const Mark& begin, Handle handle)
{
    for (;;) {
        switch (scanner_.token()) {
        case Token::End:
            closeBlock(word, begin);
            return;
        case Token::FileEnd:
            throw Fault(begin, joined({"Block ", inQuotes(word), " without an end"}));
        case Token::Begin:
            parseInnerBlock(block, handle);
            break;
        case Token::Word:
            parseOption(block, begin, handle);
            break;
        case Token::Text: // what is left of a faulty option
            scanner_.advance();
            break;
        }
    }
}

template <class Handle> void Parser::parseOption(Block block, const Mark& begin, Handle handle)
{
    const OptionRow& row = findOption(block, scanner_.text());
    if (row.option == Option::Unknown)
        return passOverUnknown(block);
    scanner_.advance();
    if (!readFields(block, row))
        return ignoreOption(row);
    if (row.option != Option::Known)
        handle(row.option, begin);
}

template <class Handle> void Parser::parseInnerBlock(Block block, Handle handle)
{
    const Mark begin(scanner_);
    parseNamedBlock(block, begin, beginBlock(begin), handle);
}

/// The word of the block is current.
template <class Handle>
void Parser::parseNamedBlock(Block block, const Mark& begin, std::string_view word, Handle handle)
{
    const OptionRow& row = findBlock(block, word);
    if (block == Block::Ccp || block == Block::Xcp) // its first block makes an interface
        interfaceOf(section_);
    if (row.option == Option::Unknown) {
        const std::string unknown(word);
        if (block != Block::OtherTransport)
            notices_.add(begin, joined({"Unknown block ", inQuotes(unknown), " is passed over"}));
        passOver(unknown, begin);
    } else if (row.option == Option::Known) {
        passOver(row.word, begin);
    } else {
        scanner_.advance();
        handle(row.option, begin);
    }
}

} // namespace tavo
