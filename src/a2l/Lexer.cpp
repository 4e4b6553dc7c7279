#include "a2l/PhA2l.h"

#include "model/decimal.h"

namespace tavo {

namespace {

std::int32_t hexadecimalValue(std::string_view text)
{
    const bool negative = !text.empty() && text.front() == '-';
    std::uint32_t number = 0;
    for (const char c : text.substr(negative ? 1 : 0)) {
        const auto digit = static_cast<unsigned char>(c);
        number = number * 16 + (is(digit, Digit) ? digit - '0' : (digit | 0x20U) - 'a' + 10U);
    }
    return static_cast<std::int32_t>(negative ? 0 - number : number);
}

} // namespace

/// The next token's code. `value` gets what the token says, if it says anything; its text stands in
/// `token_` also for a keyword and a number, and is empty for everything else.
int PhA2l::nextToken(PhTokenValue& value)
{
    int code = scanToken();
    switch (code) {
    case ScannedName:
        code = keywords_->lookup(token_);
        if (code != 0)
            return code;
        value.text = token_;
        return T_IDENTIFIER;
    case T_IDENTIFIER:
    case T_STRING:
        value.text = token_;
        return code;
    case T_INTEGER:
        value.integer = parseInt32(token_.data(), token_.data() + token_.size());
        return code;
    case ScannedHexadecimal:
        value.integer = hexadecimalValue(token_);
        return T_INTEGER;
    case T_DOUBLE:
        value.real = parseDouble(token_.data(), token_.data() + token_.size());
        return code;
    default:
        return code;
    }
}

/// Reads over a token of no use. Gives T_BEGIN, T_END, T_EOF and T_ERROR as `nextToken` does under
/// a vocabulary that has the two words, and else nothing to rely upon.
int PhA2l::skipToken()
{
    const int code = scanToken();
    if (code == ScannedName && token_.front() == '/') {
        if (token_ == "/begin")
            return T_BEGIN;
        if (token_ == "/end")
            return T_END;
    }
    return code;
}

/// Finds the next token and its text, and makes no more of it: a name isn't looked up yet, and a
/// number has no value.
int PhA2l::scanToken()
{
    token_ = {};
    file_.endText();
    for (;;) {
        const int first = skipBlanks();
        if (is(first, Letter))
            return scanName();
        if (is(first, Digit) || first == '.' || first == '-')
            return scanNumber();
        if (first == '"')
            return scanString();
        if (first != '/') {
            file_.take();
            if (first == endMark)
                return T_EOF;
            return static_cast<signed char>(first);
        }
        file_.beginText();
        file_.advance();
        if (file_.peek() != '*')
            return finishText(ScannedName, InName);
        file_.endText();
        file_.advance();
        if (!skipComment())
            return T_ERROR;
    }
}

/// The first character that is no blank; it is in hand then.
int PhA2l::skipBlanks()
{
    for (;;) {
        const int character = file_.skipRun(Blank);
        if (character != '\n')
            return character;
        ++line_;
        file_.advance();
    }
}

/// Called behind the opening of a comment. False, with an error, if it has no end.
bool PhA2l::skipComment()
{
    const int startLine = line();
    for (;;) {
        file_.skipRun(InComment);
        const int character = file_.take();
        if (character == '\n') {
            ++line_;
        } else if (character == '*') {
            if (file_.peek() == '/') {
                file_.advance();
                return true;
            }
        } else {
            error("Error: Unexpected EOF in Comment (Line %d)", startLine);
            return false;
        }
    }
}

/// Takes the characters of these classes as the rest of the token's text.
int PhA2l::finishText(int code, unsigned classes)
{
    file_.skipRun(classes);
    token_ = file_.text();
    return code;
}

int PhA2l::scanName()
{
    file_.beginText();
    return finishText(ScannedName, InName);
}

int PhA2l::scanString()
{
    file_.advance();
    file_.beginText();
    for (;;) {
        const int character = file_.skipRun(InString);
        if (character == '\n') {
            ++line_;
            file_.advance();
        } else if (character == '"') {
            file_.advance();
            if (file_.peek() != '"') {
                token_ = file_.text();
                token_.remove_suffix(1);
                return T_STRING;
            }
            tokenBuffer_.assign(file_.text()); // with the one quote that counts
            file_.advance();
            return scanEditedString();
        } else {
            tokenBuffer_.assign(file_.text());
            return scanEditedString();
        }
    }
}

/// The rest of a string whose text isn't what stands in the file: the buffer holds the text so far.
int PhA2l::scanEditedString()
{
    for (;;) {
        file_.beginText();
        file_.skipRun(InString);
        tokenBuffer_.append(file_.text());
        file_.endText();
        int character = file_.take();
        if (character == '\\') {
            character = file_.take();
        } else if (character == '"') {
            if (file_.peek() != '"') {
                token_ = tokenBuffer_;
                return T_STRING;
            }
            file_.advance();
        }
        if (character == endMark) {
            error("Unexpected EOF in string");
            return T_NONE;
        }
        if (character == '\n')
            ++line_;
        tokenBuffer_.push_back(static_cast<char>(character));
    }
}

/// A number, or a name that begins like one; such a name is never looked up, so no keyword can
/// begin with a digit. A character that doesn't continue the number where it has to is lost.
int PhA2l::scanNumber()
{
    file_.beginText();
    const int first = file_.peek();
    if (first == '.' || first == '-') {
        file_.advance();
        if (!is(file_.peek(), Digit))
            return loseCharacter();
    }
    switch (const int character = file_.skipRun(Digit)) {
    case '.':
        return scanFraction();
    case 'E':
    case 'e':
        return scanExponent();
    case 'x':
    case 'X':
        return scanHexadecimal();
    default:
        if (is(character, Letter))
            return finishText(T_IDENTIFIER, InName);
    }
    token_ = file_.text();
    return first == '.' ? T_DOUBLE : T_INTEGER;
}

/// The point is in hand.
int PhA2l::scanFraction()
{
    file_.advance();
    const int character = file_.skipRun(Digit);
    if (character == 'E' || character == 'e')
        return scanExponent();
    if (is(character, Letter))
        return finishText(T_IDENTIFIER, InName);
    token_ = file_.text();
    return T_DOUBLE;
}

/// The E is in hand.
int PhA2l::scanExponent()
{
    file_.advance();
    if (file_.peek() == '+' || file_.peek() == '-')
        file_.advance();
    if (!is(file_.peek(), Digit))
        return loseCharacter();
    return finishText(T_DOUBLE, Digit);
}

/// The x is in hand. The text of a hexadecimal number is its sign and its digits alone, which may
/// be none, and that of a name that looks like one lacks the marker too.
int PhA2l::scanHexadecimal()
{
    const bool negative = file_.text() == "-0";
    if (!negative && file_.text() != "0")
        return loseCharacter();
    file_.advance();
    file_.beginText();
    const bool name = is(file_.skipRun(HexDigit), Letter);
    if (name)
        file_.skipRun(InName);
    token_ = file_.text();
    if (negative) {
        tokenBuffer_ = '-';
        tokenBuffer_ += token_;
        token_ = tokenBuffer_;
    }
    return name ? int{T_IDENTIFIER} : int{ScannedHexadecimal};
}

/// A number came to nothing at the character in hand.
int PhA2l::loseCharacter()
{
    file_.take();
    return T_NONE;
}

} // namespace tavo
