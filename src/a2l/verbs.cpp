// What the block parsers do again and again.

#include "a2l/PhA2l.h"

#include "model/PhConversion.h"
#include "model/PhValue.h"
#include "model/decimal.h"
#include "topology/PhGroup.h"

#include <functional>
#include <iterator>

namespace tavo {

namespace {

PhEndian byteOrderOf(int code)
{
    switch (code) {
    // LITTLE_ENDIAN goes with MSB_FIRST and BIG_ENDIAN with MSB_LAST, not the reverse: descriptions
    // use these two words with their meanings exchanged. Hosts rely on it (docs/architecture.md).
    case enumWord::T_MSB_FIRST:
    case enumWord::T_LITTLE_ENDIAN:
        return PhEndian::BigEndian;
    case enumWord::T_MSB_LAST:
    case enumWord::T_BIG_ENDIAN:
        return PhEndian::LittleEndian;
    default:
        return PhEndian::Undefined;
    }
}

} // namespace

/// Reads a name or text field and gives its text, valid until the next token: of a keyword the
/// word, of a number its digits (without the 0x), of anything else that is no text the empty text.
std::string_view PhA2l::readText()
{
    skipToken(); // its text is all that counts
    return token().text;
}

/// Reads an integer field. A floating-point number in its place counts truncated toward zero and
/// saturated, anything else as 0.
std::int32_t PhA2l::readInteger()
{
    switch (nextToken()) {
    case T_INTEGER:
        return token().integer;
    case T_DOUBLE:
        return truncated<std::int32_t>(token().real);
    default:
        return 0;
    }
}

/// Reads fields of no use, whatever they are.
void PhA2l::dropFields(int count)
{
    while (count-- > 0)
        skipToken();
}

/// The token after fields of no use.
int PhA2l::afterFields(int count)
{
    dropFields(count);
    return nextToken();
}

/// The first token after a run, maybe an empty one, of tokens of one code.
int PhA2l::afterRun(int code)
{
    int next = nextToken();
    while (next == code)
        next = nextToken();
    return next;
}

/// { identifier } /end KEYWORD
int PhA2l::parseNameList(int keyword, const char* format)
{
    const int code = afterRun(T_IDENTIFIER);
    return code == T_END ? expectEnd(keyword, format) : unexpectedToken();
}

/// { token of this code } [ /end KEYWORD ]
///
/// A run that has begun may end at any token: that token is the result, and the list stays open.
int PhA2l::parseOpenRun(int runCode, int keyword, const char* format)
{
    int code = nextToken();
    if (code != runCode && code != T_END)
        return unexpectedToken();
    if (code == runCode)
        code = afterRun(runCode);
    return code == T_END ? expectEnd(keyword, format) : code;
}

/// Called after `/end`: the block's own keyword must follow. Gives the token after it.
int PhA2l::expectEnd(int keyword, const char* format)
{
    if (nextToken() != keyword) {
        error(format, keywords().keywordName(keyword));
        return T_ERROR;
    }
    return nextToken();
}

/// For the small blocks that say no more of a missing end than of any other token: `code`, the
/// current token, must be `/end`, and the block's keyword must follow. Gives the token after it.
int PhA2l::expectClosed(int code, int keyword)
{
    if (code == T_END) {
        code = nextToken();
        if (code == keyword)
            return nextToken();
    }
    return unexpectedToken();
}

/// Reads a field. False if it is no number; what to say about that is the caller's matter.
bool PhA2l::readNumber()
{
    const int code = nextToken();
    return code == T_INTEGER || code == T_DOUBLE;
}

/// The current token, a number, as a value of its kind, integer or double.
PhValue PhA2l::number() const
{
    return token().code == T_INTEGER ? PhValue(token().integer) : PhValue(token().real);
}

/// Drops a block with all blocks inside it, up to its `/end` and keyword. The end of the file comes
/// back as the token after the block.
int PhA2l::skipBlock(int keyword)
{
    std::uint64_t depth = 0;
    int code = skipToken();
    while (code != T_END || depth > 0) {
        if (code == T_BEGIN)
            ++depth;
        else if (code == T_END)
            --depth;
        code = skipToken();
        if (code == T_EOF || code == T_ERROR)
            return code;
    }
    return expectEnd(keyword);
}

/// MSB_FIRST | LITTLE_ENDIAN | MSB_LAST | BIG_ENDIAN, called after BYTE_ORDER. Gives the token
/// after the word. Any other word leaves the byte order undefined, with a warning.
int PhA2l::parseByteOrder(PhEndian& byteOrder)
{
    {
        const VocabularyScope words(lexer_, enumKeywords);
        byteOrder = readWord(byteOrderOf);
    }
    return nextToken();
}

/// A text that is likely to be given again soon. The reference is valid until the next call.
const PhString& PhA2l::sharedName(std::string_view name)
{
    const std::size_t hash = std::hash<std::string_view>()(name);
    PhString& shared = sharedNames_[hash & (sharedNames_.size() - 1)];
    if (shared.isNull() || shared.view() != name)
        shared.set(name);
    return shared;
}

/// Reads the name of a conversion, which `refer` will look up. The reference is valid until the
/// next call of `sharedName`.
const PhString& PhA2l::readReference(const PhGroup& group)
{
    const PhString& name = sharedName(readText());
    group.prepareConversion(name);
    return name;
}

/// Makes `reference` lead to the conversion of this name in `group` or above, or, if none was read
/// yet, to the name alone. Nothing happens if the conversion is `referrer`.
void PhA2l::refer(PhConversionRef& reference, const PhString& name, const PhGroup& group,
                  const PhConversion* referrer)
{
    PhConversion* conversion = group.resolveConversion(name);
    if (!conversion)
        reference.setText(name);
    else if (conversion != referrer)
        reference = conversion;
}

} // namespace tavo
