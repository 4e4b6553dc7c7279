#include "a2l/PhA2l.h"

#include "model/decimal.h"

#include <array>

namespace tavo {

namespace {

/// What a character may be a part of; a mask of these.
enum CharacterClass : unsigned char
{
    Letter = 1, ///< A letter or an underscore: what a name begins with.
    Digit = 2,
    HexDigit = 4,
    InName = 8,    ///< What follows in a name.
    InString = 16, ///< What stands for itself in a string.
};

constexpr std::array<unsigned char, 256> makeCharacterClasses()
{
    std::array<unsigned char, 256> classes{};
    for (unsigned c = 0; c < classes.size(); ++c) {
        const bool letter = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
        const bool digit = c >= '0' && c <= '9';
        if (letter || c == '_')
            classes[c] |= Letter | InName;
        if (digit)
            classes[c] |= Digit | HexDigit | InName;
        if ((c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f'))
            classes[c] |= HexDigit;
        if (c != '"' && c != '\\' && c != '\n' && c != SourceStream::endMark)
            classes[c] |= InString;
    }
    // Beyond the standard's names: index and path characters, and the German letters of Latin-1.
    for (const unsigned char c : {'.', '-', '[', ']', '|'})
        classes[c] |= InName;
    for (const unsigned c : {0xC4, 0xD6, 0xDC, 0xDF, 0xE4, 0xF6, 0xFC})
        classes[c] |= InName;
    return classes;
}

constexpr std::array<unsigned char, 256> characterClasses = makeCharacterClasses();

bool is(int character, unsigned classes)
{
    return (characterClasses[static_cast<unsigned char>(character)] & classes) != 0;
}

} // namespace

/// The next token's code. `value` gets what the token says, if it says anything; its text stands in
/// the buffer also for a keyword and a number, and is empty for everything else.
int PhA2l::nextToken(PhTokenValue& value)
{
    tokenBuffer_.clear();
    for (;;) {
        const int first = skipBlanks();
        if (first == '/') {
            if (file_.get() == '*') {
                if (!skipComment())
                    return T_ERROR;
                continue;
            }
            file_.putBack();
        }
        if (is(first, Letter) || first == '/')
            return lexName(first, value);
        if (is(first, Digit) || first == '.' || first == '-')
            return lexNumber(first, value);
        if (first == '"')
            return lexString(value);
        if (first == SourceStream::endMark)
            return T_EOF;
        return static_cast<signed char>(first);
    }
}

/// The first character that is no blank.
int PhA2l::skipBlanks()
{
    for (;;) {
        const int character = file_.get();
        if (character == '\n')
            ++line_;
        else if (character != ' ' && character != '\t' && character != '\r')
            return character;
    }
}

/// Called behind the opening of a comment. False, with an error, if it has no end.
bool PhA2l::skipComment()
{
    const auto startLine = static_cast<int>(line_);
    int character = file_.get();
    for (;;) {
        if (character == SourceStream::endMark) {
            error("Error: Unexpected EOF in Comment (Line %d)", startLine);
            return false;
        }
        if (character == '\n')
            ++line_;
        const bool star = character == '*';
        character = file_.get();
        if (star && character == '/')
            return true;
    }
}

/// Appends the characters of these classes to the buffer and stops in front of the first other one.
void PhA2l::takeRun(unsigned classes)
{
    int following = 0;
    do {
        const unsigned char* const first = file_.next();
        const unsigned char* last = first;
        while (is(*last, classes))
            ++last;
        tokenBuffer_.append(reinterpret_cast<const char*>(first),
                            static_cast<std::size_t>(last - first));
        file_.skipTo(last);
        following = file_.get(); // Reads on if the run has met the end of a block.
        file_.putBack();
    } while (is(following, classes));
}

int PhA2l::lexName(int first, PhTokenValue& value)
{
    tokenBuffer_.push_back(static_cast<char>(first));
    takeRun(InName);
    if (const int code = keywords_->lookup(tokenText()))
        return code;
    value.text = tokenText();
    return T_IDENTIFIER;
}

int PhA2l::lexString(PhTokenValue& value)
{
    for (;;) {
        takeRun(InString);
        int character = file_.get();
        if (character == '"') {
            if (file_.get() != '"') {
                file_.putBack();
                value.text = tokenText();
                return T_STRING;
            }
        } else if (character == '\\') {
            character = file_.get();
        }
        if (character == SourceStream::endMark) {
            error("Unexpected EOF in string");
            return failToken();
        }
        if (character == '\n')
            ++line_;
        tokenBuffer_.push_back(static_cast<char>(character));
    }
}

/// A number, or a name that begins like one. A character that doesn't continue the number where it
/// has to is lost.
int PhA2l::lexNumber(int first, PhTokenValue& value)
{
    int character = first;
    if (first == '.' || first == '-') {
        tokenBuffer_.push_back(static_cast<char>(first));
        character = file_.get();
        if (!is(character, Digit))
            return failToken();
    }
    tokenBuffer_.push_back(static_cast<char>(character));
    takeRun(Digit);
    character = file_.get();
    if (character == '.')
        return lexFraction(value);
    if (character == 'E' || character == 'e')
        return lexExponent(character, value);
    if (character == 'x' || character == 'X')
        return lexHexadecimal(value);
    file_.putBack();
    if (is(character, Letter))
        return finishNumericName(value);
    if (first == '.')
        return finishDouble(value);
    value.integer = parseInt32(tokenText(), tokenText() + tokenBuffer_.size());
    return T_INTEGER;
}

/// Called behind the point.
int PhA2l::lexFraction(PhTokenValue& value)
{
    tokenBuffer_.push_back('.');
    takeRun(Digit);
    const int character = file_.get();
    if (character == 'E' || character == 'e')
        return lexExponent(character, value);
    file_.putBack();
    return is(character, Letter) ? finishNumericName(value) : finishDouble(value);
}

/// Called behind the marker, an upper-case or lower-case E.
int PhA2l::lexExponent(int marker, PhTokenValue& value)
{
    tokenBuffer_.push_back(static_cast<char>(marker));
    int character = file_.get();
    if (character == '+' || character == '-') {
        tokenBuffer_.push_back(static_cast<char>(character));
        character = file_.get();
    }
    if (!is(character, Digit))
        return failToken();
    tokenBuffer_.push_back(static_cast<char>(character));
    takeRun(Digit);
    return finishDouble(value);
}

/// Called behind the x of a hexadecimal number. The buffer keeps the sign and the digits alone, and
/// the value their low 32 bits; without a digit it is 0.
int PhA2l::lexHexadecimal(PhTokenValue& value)
{
    const bool negative = tokenBuffer_ == "-0";
    if (!negative && tokenBuffer_ != "0")
        return failToken();
    tokenBuffer_.pop_back();
    takeRun(HexDigit);
    const bool name = is(file_.get(), Letter);
    file_.putBack();
    if (name)
        return finishNumericName(value);
    std::uint32_t number = 0;
    for (std::size_t i = negative ? 1 : 0; i < tokenBuffer_.size(); ++i) {
        const auto digit = static_cast<unsigned char>(tokenBuffer_[i]);
        number = number * 16 + (is(digit, Digit) ? digit - '0' : (digit | 0x20U) - 'a' + 10U);
    }
    value.integer = static_cast<std::int32_t>(negative ? 0 - number : number);
    return T_INTEGER;
}

int PhA2l::finishDouble(PhTokenValue& value)
{
    value.real = parseDouble(tokenText(), tokenText() + tokenBuffer_.size());
    return T_DOUBLE;
}

/// Such a name is never looked up, so no keyword can begin with a digit.
int PhA2l::finishNumericName(PhTokenValue& value)
{
    takeRun(InName);
    value.text = tokenText();
    return T_IDENTIFIER;
}

/// The result of a token that came to nothing: it has no text either.
int PhA2l::failToken()
{
    tokenBuffer_.clear();
    return T_NONE;
}

} // namespace tavo
