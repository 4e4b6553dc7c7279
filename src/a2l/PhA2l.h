#pragma once

#include "a2l/Lexer.h"
#include "base/PhReader.h"
#include "model/PhString.h"
#include "model/enumerations.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace tavo {

class PhCommParam;
class PhConversion;
class PhConversionRef;
class PhEntity;
class PhGroup;
class PhObject;
class PhValue;
struct PhTypeFields;

/// Reader of ASAP2 descriptions: a recursive-descent parser with one operation for each block,
/// which asks a `Lexer` for the tokens. It keeps what a configuration needs and drops the rest.
///
/// How the parsers work together:
///
/// - There is no look-ahead and no put-back of tokens. A block's parser is called when `/begin` and
///   the block's keyword have been read, and returns the code of the token after the block, which
///   is its caller's current token and the lexer's too. T_ERROR means that the reading is over and
///   the failure has been reported.
/// - Fields stand by position and are taken whatever they are: a keyword, a `/end` or a failure of
///   the lexer in such a place counts as the field.
/// - Optional keywords come in any order and number. A word that a block doesn't know ends the
///   reading; nothing but an IF_DATA of an unknown name is skipped.
/// - Names are keywords by the vocabulary that is active when they are read. `coreKeywords` is
///   active between blocks.
/// - An object is attached to its owner after its first fields, at the latest before its options,
///   so a malformed block leaves a partly filled object.
///
/// A reader serves one `readFile`.
class PhA2l : public PhReader
{
public:
    /// `path` is copied; with a null path nothing can be read.
    explicit PhA2l(const char* path);
    ~PhA2l() override;

    /// "ASAP2".
    const char* formatName() const override;

    /// Reads the file into `root`. 0 for success; -1 if there is no file name or the reading ended
    /// at an error, with what was built so far left in `root`; -2 if the file can't be opened.
    int readFile(PhRoot* root) override;

    /// Report with the file name and the line of the last character read. The text is cut at 499
    /// bytes, and so is the line printed without a logger.
    virtual void warning(const char* format, ...) TAVO_PRINTF(2, 3);
    virtual void error(const char* format, ...) TAVO_PRINTF(2, 3);

    /// Makes the reader read from memory, which outlives the reading. The file is only a name then.
    void useMemory(std::string_view description) { memory_ = description; }

    /// Logs the file's tokens, one a line, and builds nothing. Results as of `readFile`.
    int print_tokens();

    /// The system's number of the error at which the file could be read no further, or 0. The
    /// reading has gone on as at the end of the file.
    int readError() const { return lexer_.source().readError(); }

    /// Installs what is told how far the reading has come. It may be empty.
    void setWatch(SourceStream::Watch watch) { lexer_.source().setWatch(std::move(watch)); }

    /// Makes vocabulary 0 (core), 1 (enumerated words), 2 (CCP), 3 (XCP) or 4 (KWP) the active one;
    /// any other number changes nothing.
    void setKeywordTable(int number);
    /// Makes the core vocabulary the active one.
    void resetKeywordTable() { lexer_.setVocabulary(coreKeywords); }
    const PhKeywordTable& keywords() const { return lexer_.vocabulary(); }

private:
    int openFile();

    // The lexer, as the parsers call it.
    int nextToken() { return lexer_.next(); }
    int skipToken() { return lexer_.skip(); }
    const PhTokenValue& token() const { return lexer_.token(); }

    // What the parsers do again and again.
    static constexpr const char* endExpected = "Keyword '%s' expected after /end";
    std::string_view readText();
    std::int32_t readInteger();
    int afterFields(int count);
    void dropFields(int count);
    int afterRun(int code);
    int parseNameList(int keyword, const char* format = endExpected);
    int parseOpenRun(int runCode, int keyword, const char* format = endExpected);
    int expectEnd(int keyword, const char* format = endExpected);
    int expectClosed(int code, int keyword);
    template <class Option> int parseOptionsUpToEnd(Option option);
    template <class Option> int parseOptions(int keyword, Option option);
    template <class Option>
    int parseSection(const PhKeywordTable& vocabulary, const char* name, Option option);
    template <class Enumeration> Enumeration readWord(Enumeration (*meaning)(int code));
    bool readNumber();
    PhValue number() const;
    int skipBlock(int keyword);
    int unexpectedToken();
    void warnUnexpectedToken();
    int parseByteOrder(PhEndian& byteOrder);
    const PhString& sharedName(std::string_view name);
    const PhString& readReference(const PhGroup& group);
    static void refer(PhConversionRef& reference, const PhString& name, const PhGroup& group,
                      const PhConversion* referrer);
    void progress(const char* format, std::string_view text = {});

    // The frame of a file.
    int parseFileItem(PhRoot* root, int code);
    int parseProject(PhRoot* root);
    int parseHeader();
    int parseModule(PhGroup* project);
    int parseModuleBlock(PhGroup* module);
    int parseA2ml();

    // The blocks of a module as a whole.
    int parseModCommon(PhGroup* group);
    int parseModPar(PhGroup* group);
    int parseMemorySegment(PhGroup* group);

    // The blocks that fill the model.
    int parseMeasurement(PhGroup* group);
    int parseDataType(PhTypeFields& type);
    void readLimit(PhEntity& entity, bool isUpper);
    void readAddress(PhEntity& entity, bool isExtension);
    int parseMeasurementOption(PhEntity* entity, int code);
    int parseMeasurementBlock(PhEntity* entity);
    int parseCompuMethod(PhGroup* group);
    void parseCoeffs(PhConversion* conversion);
    int parseFormula();
    int parseCompuTab(PhGroup* group);
    int parseCompuVtab(PhGroup* group);
    int parseCompuVtabRange(PhGroup* group);
    struct TableKind;
    int parseTable(PhGroup* group, const TableKind& kind);
    void parseTableType(const TableKind& kind);
    bool parseTableRow(PhConversion& table, const TableKind& kind);
    bool readTableNumber(PhValue& result, bool isRounded);

    // The blocks that are read for their form only.
    int parseCharacteristic();
    int parseCharacteristicOption(int code);
    int parseCharacteristicBlock();
    int parseRecordLayout();
    int parseFunction();
    int parseFunctionBlock();
    int parseGroup();
    int parseFrame();
    int parseUserRights();
    int parseAnnotation();
    int parseBitOperation();

    // The measuring interfaces.
    int parseIfData(PhObject* owner);
    PhCommParam* commParamOf(PhObject* owner, const PhString& name, PhProtocol protocol);
    int parseIfDataCcp(PhObject* owner);
    int parseCcpBlock(PhObject* owner);
    int parseCcpSource(PhCommParam* commParam);
    int parseCcpQpBlob(bool begun);
    int parseCcpRaster(PhCommParam* commParam);
    int parseCcpEventGroup(PhCommParam* commParam);
    int parseCcpSeedKey(PhCommParam* commParam);
    int parseCcpChecksum(PhCommParam* commParam);
    int parseCcpTpBlob(PhCommParam* commParam);
    int parseCcpTpBlobOption(PhCommParam* commParam, int code);
    std::int32_t readChoice(int first, int second);
    int parseCcpTpBlobBlock();
    int parseCcpDefinedPages();
    int parseCcpChecksumParam();
    int parseIfDataXcp(PhObject* owner);
    int parseXcpBlock(PhObject* owner);
    int parseXcpOnCan(PhCommParam* commParam);
    int parseXcpDaqListCanId();
    int parseXcpDaq(PhCommParam* commParam);
    int parseXcpDaqBlock(PhCommParam* commParam);
    int parseXcpFlagged(int fieldCount, int flag, int keyword);
    int parseXcpDaqList();
    int parseXcpEvent(PhCommParam* commParam);

    Lexer lexer_;                            ///< Open during `readFile` and `print_tokens` only.
    std::optional<std::string_view> memory_; ///< What is read if it isn't the file.
    /// Names that were given lately, by their hash: objects of one name share its text. A power of
    /// two of them while a description is read.
    std::vector<PhString> sharedNames_;
    /// Default of the types and comm params made from here on: the last BYTE_ORDER of a MOD_COMMON.
    PhEndian byteOrder_ = PhEndian::Undefined;
};

/// The options of a block up to its `/end`. `option` gets the code of the current token and gives
/// the code of the token after the option, which is the current token then, or T_ERROR. The result
/// is T_END or T_ERROR. A failure of the lexer ends the block in silence after an option, but is
/// an unexpected token where the first option would stand: there it goes to `option` like any
/// other.
template <class Option> int PhA2l::parseOptionsUpToEnd(Option option)
{
    int code = nextToken();
    while (code != T_END) {
        code = option(code);
        if (code == T_ERROR)
            return T_ERROR;
    }
    return code;
}

/// The same for a block that ends with its own keyword. The result is the token after the block.
template <class Option> int PhA2l::parseOptions(int keyword, Option option)
{
    const int code = parseOptionsUpToEnd(option);
    return code == T_END ? expectEnd(keyword) : code;
}

/// The same for an IF_DATA section with a vocabulary of its own. Its `/end` belongs to that
/// vocabulary, and the word after it to the core again.
template <class Option>
int PhA2l::parseSection(const PhKeywordTable& vocabulary, const char* name, Option option)
{
    const auto code = [&] {
        const VocabularyScope words(lexer_, vocabulary);
        progress("  Parse IF_DATA %s\n", name);
        return parseOptionsUpToEnd(option);
    }();
    return code == T_END ? expectEnd(T_IF_DATA) : code;
}

/// Reads an enumerated field, to which `meaning` gives a value. A word without a meaning leaves the
/// field at 0, with a warning.
template <class Enumeration> Enumeration PhA2l::readWord(Enumeration (*meaning)(int code))
{
    const int code = nextToken();
    const Enumeration word = meaning(code);
    if (word == Enumeration())
        warnUnexpectedToken();
    return word;
}

} // namespace tavo
