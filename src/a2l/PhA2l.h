#pragma once

#include "a2l/PhKeywordTable.h"
#include "a2l/PhTokenValue.h"
#include "a2l/SourceStream.h"
#include "a2l/tokens.h"
#include "base/PhReader.h"
#include "model/PhString.h"
#include "model/enumerations.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tavo {

class PhCommParam;
class PhConversion;
class PhEntity;
class PhGroup;
class PhObject;
class PhRange;
class PhType;
class PhValue;

/// Reader of ASAP2 descriptions: a lexer and a recursive-descent parser with one operation for each
/// block. It keeps what a configuration needs and drops the rest.
///
/// How the parsers work together:
///
/// - There is no look-ahead and no put-back of tokens. A block's parser is called when `/begin` and
///   the block's keyword have been read, and returns the code of the token behind the block, which
///   is its caller's current token. T_ERROR means that the reading is over and the failure has been
///   reported.
/// - Fields stand by position and are taken whatever they are: a keyword, a `/end` or a failure of
///   the lexer in such a place counts as the field.
/// - Optional keywords come in any order and number. A word that a block doesn't know ends the
///   reading; nothing but an IF_DATA of an unknown name is skipped.
/// - All parsers share one `PhTokenValue`, and names are keywords by the table that is active when
///   they are read. `coreKeywords` is active between blocks.
/// - An object is attached to its owner behind its first fields, at the latest ahead of its
///   options, so a malformed block leaves a partly filled object.
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

    /// Logs the file's tokens, one a line, and builds nothing. Results as of `readFile`.
    int print_tokens();

    /// The system's number of the error at which the file could be read no further, or 0. The
    /// reading has gone on as at the end of the file.
    int readError() const { return file_.readError(); }

    /// Installs what is told how far the reading has come. It may be empty.
    void setWatch(SourceStream::Watch watch) { file_.setWatch(std::move(watch)); }

    /// Makes vocabulary 0 (core), 1 (enumerated words), 2 (CCP), 3 (XCP) or 4 (KWP) the active one;
    /// any other number changes nothing.
    void setKeywordTable(int number);
    /// Makes the core vocabulary the active one.
    void resetKeywordTable() { keywords_ = &coreKeywords; }
    const PhKeywordTable& keywords() const { return *keywords_; }

protected:
    // The lexer, which a subclass may drive by itself.
    int openFile();
    int nextToken(PhTokenValue& value);

private:
    /// Makes a vocabulary the active one for the length of a scope, and then the core vocabulary,
    /// on the way of a failure too.
    class VocabularyScope
    {
    public:
        VocabularyScope(PhA2l& reader, const PhKeywordTable& keywords) : reader_(reader)
        {
            reader_.keywords_ = &keywords;
        }
        ~VocabularyScope() { reader_.resetKeywordTable(); }
        VocabularyScope(const VocabularyScope&) = delete;
        VocabularyScope& operator=(const VocabularyScope&) = delete;

    private:
        PhA2l& reader_;
    };

    /// What a token is before more is made of it than its text.
    enum Scanned : int
    {
        ScannedName = 306, ///< A name that may be a keyword.
        ScannedHexadecimal = 307,
    };

    // The lexer.
    int skipToken();
    int scanToken();
    int skipBlanks();
    bool skipComment();
    int scanName();
    int scanString();
    int scanEditedString();
    int scanNumber();
    int scanFraction();
    int scanExponent();
    int scanHexadecimal();
    int finishText(int code, unsigned classes);
    int loseCharacter();
    int line() const { return static_cast<int>(line_); }

    // What the parsers do again and again.
    static constexpr const char* endExpected = "Keyword '%s' expected after /end";
    std::string_view readText(PhTokenValue& value);
    std::int32_t readInteger(PhTokenValue& value);
    int afterFields(PhTokenValue& value, int count);
    void dropFields(int count);
    int afterRun(PhTokenValue& value, int code);
    int parseNameList(PhTokenValue& value, int keyword, const char* format = endExpected);
    int parseOpenRun(PhTokenValue& value, int runCode, int keyword,
                     const char* format = endExpected);
    int expectEnd(PhTokenValue& value, int keyword, const char* format = endExpected);
    int expectClosed(PhTokenValue& value, int code, int keyword);
    template <class Option> int parseOptionsUpToEnd(PhTokenValue& value, Option option);
    template <class Option> int parseOptions(PhTokenValue& value, int keyword, Option option);
    template <class Option>
    int parseSection(PhTokenValue& value, const PhKeywordTable& keywords, const char* name,
                     Option option);
    template <class Enumeration>
    Enumeration readWord(PhTokenValue& value, Enumeration (*meaning)(int code));
    PhValue* createValue(int code, const PhTokenValue& value);
    int skipBlock(PhTokenValue& value, int keyword);
    int unexpectedToken(const PhTokenValue& value, int code);
    void warnUnexpectedToken(const PhTokenValue& value, int code);
    int parseByteOrder(PhTokenValue& value, PhEndian& byteOrder);
    PhConversion* conversionByName(PhGroup* group, std::string_view name);
    void progress(const char* format, std::string_view text = {});

    // The frame of a file.
    int parseFileItem(PhRoot* root, PhTokenValue& value, int code);
    int parseProject(PhRoot* root, PhTokenValue& value);
    int parseHeader(PhTokenValue& value);
    int parseModule(PhGroup* project, PhTokenValue& value);
    int parseModuleBlock(PhGroup* module, PhTokenValue& value);
    int parseA2ml(PhTokenValue& value);

    // The blocks of a module as a whole.
    int parseModCommon(PhGroup* group, PhTokenValue& value);
    int parseModPar(PhGroup* group, PhTokenValue& value);
    int parseMemorySegment(PhGroup* group, PhTokenValue& value);

    // The blocks that fill the model.
    int parseMeasurement(PhGroup* group, PhTokenValue& value);
    int parseDataType(PhType* type, PhTokenValue& value);
    PhValue* readLimit(PhTokenValue& value, const char* which);
    PhValue* readAddress(PhTokenValue& value);
    int parseMeasurementOption(PhEntity* entity, PhTokenValue& value, int code);
    int parseMeasurementBlock(PhEntity* entity, PhTokenValue& value);
    int parseCompuMethod(PhGroup* group, PhTokenValue& value);
    void parseCoeffs(PhConversion* conversion, PhTokenValue& value);
    int parseFormula(PhTokenValue& value);
    int parseCompuTab(PhGroup* group, PhTokenValue& value);
    int parseCompuVtab(PhGroup* group, PhTokenValue& value);
    int parseCompuVtabRange(PhGroup* group, PhTokenValue& value);
    int parseTable(PhGroup* group, PhTokenValue& value, int keyword);
    void parseTableType(PhTokenValue& value, int keyword);
    bool readRow(PhRange* row, int keyword);
    bool readDouble(PhValue& number);
    bool readRounded(PhValue& number);
    bool readString(PhValue& text);

    // The blocks that are read for their form only.
    int parseCharacteristic(PhTokenValue& value);
    int parseCharacteristicOption(PhTokenValue& value, int code);
    int parseCharacteristicBlock(PhTokenValue& value);
    int parseRecordLayout(PhTokenValue& value);
    int parseFunction(PhTokenValue& value);
    int parseFunctionBlock(PhTokenValue& value);
    int parseGroup(PhTokenValue& value);
    int parseFrame(PhTokenValue& value);
    int parseUserRights(PhTokenValue& value);
    int parseAnnotation(PhTokenValue& value);
    int parseBitOperation(PhTokenValue& value);

    // The measuring interfaces.
    int parseIfData(PhObject* owner, PhTokenValue& value);
    PhCommParam* commParamOf(PhObject* owner, const PhString& name, PhProtocol protocol);
    int parseIfDataCcp(PhObject* owner, PhTokenValue& value);
    int parseCcpBlock(PhObject* owner, PhTokenValue& value);
    int parseCcpSource(PhCommParam* commParam, PhTokenValue& value);
    int parseCcpQpBlob(bool begun, PhTokenValue& value);
    int parseCcpRaster(PhCommParam* commParam, PhTokenValue& value);
    int parseCcpEventGroup(PhCommParam* commParam, PhTokenValue& value);
    int parseCcpSeedKey(PhCommParam* commParam, PhTokenValue& value);
    int parseCcpChecksum(PhCommParam* commParam, PhTokenValue& value);
    int parseCcpTpBlob(PhCommParam* commParam, PhTokenValue& value);
    int parseCcpTpBlobOption(PhCommParam* commParam, PhTokenValue& value, int code);
    std::int32_t readChoice(PhTokenValue& value, int first, int second);
    int parseCcpTpBlobBlock(PhTokenValue& value);
    int parseCcpDefinedPages(PhTokenValue& value);
    int parseCcpChecksumParam(PhTokenValue& value);
    int parseIfDataXcp(PhObject* owner, PhTokenValue& value);
    int parseXcpBlock(PhObject* owner, PhTokenValue& value);
    int parseXcpOnCan(PhCommParam* commParam, PhTokenValue& value);
    int parseXcpDaqListCanId(PhTokenValue& value);
    int parseXcpDaq(PhCommParam* commParam, PhTokenValue& value);
    int parseXcpDaqBlock(PhCommParam* commParam, PhTokenValue& value);
    int parseXcpFlagged(PhTokenValue& value, int fieldCount, int flag, int keyword);
    int parseXcpDaqList(PhTokenValue& value);
    int parseXcpEvent(PhCommParam* commParam, PhTokenValue& value);

    const PhKeywordTable* keywords_ =
        &coreKeywords;        ///< The vocabulary that names are looked up in.
    std::uint32_t line_ = 1;  ///< Line of the last character read; may wrap in a huge file.
    SourceStream file_;       ///< Open during `readFile` only.
    std::string_view token_;  ///< The text of the token read last.
    std::string tokenBuffer_; ///< Holds that text if it differs from what stands in the file.
    /// Names that were looked up lately, by their hash: placeholders of one name share its text.
    PhString lookedUp_[1024];
    /// Default of the types and comm params made from here on: the last BYTE_ORDER of a MOD_COMMON.
    PhEndian byteOrder_ = PhEndian::Undefined;
};

/// The options of a block up to its `/end`. `option` gets the code of the current token and gives
/// the code of the token behind the option, which is the current token then, or T_ERROR. The result
/// is T_END or T_ERROR. A failure of the lexer ends the block in silence behind an option, but is
/// an unexpected token where the first option would stand: there it goes to `option` like any
/// other.
template <class Option> int PhA2l::parseOptionsUpToEnd(PhTokenValue& value, Option option)
{
    int code = nextToken(value);
    while (code != T_END) {
        code = option(code);
        if (code == T_ERROR)
            return T_ERROR;
    }
    return code;
}

/// The same for a block that ends with its own keyword. The result is the token behind the block.
template <class Option> int PhA2l::parseOptions(PhTokenValue& value, int keyword, Option option)
{
    const int code = parseOptionsUpToEnd(value, option);
    return code == T_END ? expectEnd(value, keyword) : code;
}

/// The same for an IF_DATA section with a vocabulary of its own. Its `/end` belongs to that
/// vocabulary, and the word behind it to the core again.
template <class Option>
int PhA2l::parseSection(PhTokenValue& value, const PhKeywordTable& keywords, const char* name,
                        Option option)
{
    const auto code = [&] {
        const VocabularyScope words(*this, keywords);
        progress("  Parse IF_DATA %s\n", name);
        return parseOptionsUpToEnd(value, option);
    }();
    return code == T_END ? expectEnd(value, T_IF_DATA) : code;
}

/// Reads an enumerated field, to which `meaning` gives a value. A word without a meaning leaves the
/// field at 0, with a warning.
template <class Enumeration>
Enumeration PhA2l::readWord(PhTokenValue& value, Enumeration (*meaning)(int code))
{
    const int code = nextToken(value);
    const Enumeration word = meaning(code);
    if (word == Enumeration())
        warnUnexpectedToken(value, code);
    return word;
}

} // namespace tavo
