#include "a2l/Lexer.h"

#include "model/decimal.h"

#include <cstdio>

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

bool Lexer::open(const char* path)
{
    line_ = 1;
    return source_.open(path);
}

void Lexer::openMemory(std::string_view text)
{
    line_ = 1;
    source_.openMemory(text);
}

int Lexer::next()
{
    int code = scan();
    const std::string_view text = token_.text;
    switch (code) {
    case ScannedName:
        code = vocabulary_->lookup(text);
        if (code == 0)
            code = T_IDENTIFIER;
        break;
    case T_INTEGER:
        token_.integer = parseInt32(text.data(), text.data() + text.size());
        break;
    case ScannedHexadecimal:
        token_.integer = hexadecimalValue(text);
        code = T_INTEGER;
        break;
    case T_DOUBLE:
        token_.real = parseDouble(text.data(), text.data() + text.size());
        break;
    }
    return token_.code = code;
}

int Lexer::skip()
{
    int code = scan();
    if (code == ScannedName && token_.text.front() == '/') {
        if (token_.text == "/begin")
            code = T_BEGIN;
        else if (token_.text == "/end")
            code = T_END;
    }
    return token_.code = code;
}

/// Finds the next token and its text, and makes no more of it: a name isn't looked up yet, and a
/// number has no value.
int Lexer::scan()
{
    token_.text = {};
    source_.endText();
    for (;;) {
        const int first = skipBlanks();
        if (is(first, Letter))
            return scanName();
        if (is(first, Digit) || first == '.' || first == '-')
            return scanNumber();
        if (first == '"')
            return scanString();
        if (first != '/') {
            source_.take();
            if (first == endMark)
                return T_EOF;
            return static_cast<signed char>(first);
        }
        source_.beginText();
        source_.advance();
        if (source_.peek() != '*')
            return finishText(ScannedName, InName);
        source_.endText();
        source_.advance();
        if (!skipComment())
            return T_ERROR;
    }
}

/// The first character that is no blank; it is in hand then.
int Lexer::skipBlanks()
{
    for (;;) {
        const int character = source_.skipRun(Blank);
        if (character != '\n')
            return character;
        ++line_;
        source_.advance();
    }
}

/// Called after the opening of a comment. False, with an error, if it has no end.
bool Lexer::skipComment()
{
    const int startLine = line();
    for (;;) {
        source_.skipRun(InComment);
        const int character = source_.take();
        if (character == '\n') {
            ++line_;
        } else if (character == '*') {
            if (source_.peek() == '/') {
                source_.advance();
                return true;
            }
        } else {
            // The second "Error" is frozen, see "What hosts rely on" in docs/architecture.md.
            char text[64];
            std::snprintf(text, sizeof text, "Error: Unexpected EOF in Comment (Line %d)",
                          startLine);
            report_(text);
            return false;
        }
    }
}

/// Takes the characters of these classes as the rest of the token's text.
int Lexer::finishText(int code, unsigned classes)
{
    source_.skipRun(classes);
    token_.text = source_.text();
    return code;
}

int Lexer::scanName()
{
    source_.beginText();
    return finishText(ScannedName, InName);
}

int Lexer::scanString()
{
    source_.advance();
    source_.beginText();
    for (;;) {
        const int character = source_.skipRun(InString);
        if (character == '\n') {
            ++line_;
            source_.advance();
        } else if (character == '"') {
            source_.advance();
            if (source_.peek() != '"') {
                token_.text = source_.text();
                token_.text.remove_suffix(1);
                return T_STRING;
            }
            textBuffer_.assign(source_.text()); // with the one quote that counts
            source_.advance();
            return scanEditedString();
        } else {
            textBuffer_.assign(source_.text());
            return scanEditedString();
        }
    }
}

/// The rest of a string whose text isn't what stands in the file: the buffer holds the text so far.
int Lexer::scanEditedString()
{
    for (;;) {
        source_.beginText();
        source_.skipRun(InString);
        textBuffer_.append(source_.text());
        source_.endText();
        int character = source_.take();
        if (character == '\\') {
            character = source_.take();
        } else if (character == '"') {
            if (source_.peek() != '"') {
                token_.text = textBuffer_;
                return T_STRING;
            }
            source_.advance();
        }
        if (character == endMark) {
            report_("Unexpected EOF in string");
            return T_NONE;
        }
        if (character == '\n')
            ++line_;
        textBuffer_.push_back(static_cast<char>(character));
    }
}

/// A number, or a name that begins like one; such a name is never looked up, so no keyword can
/// begin with a digit. A character that doesn't continue the number where it has to is lost.
int Lexer::scanNumber()
{
    source_.beginText();
    const int first = source_.peek();
    if (first == '.' || first == '-') {
        source_.advance();
        if (!is(source_.peek(), Digit))
            return loseCharacter();
    }
    switch (const int character = source_.skipRun(Digit)) {
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
    token_.text = source_.text();
    return first == '.' ? T_DOUBLE : T_INTEGER;
}

/// The point is in hand.
int Lexer::scanFraction()
{
    source_.advance();
    const int character = source_.skipRun(Digit);
    if (character == 'E' || character == 'e')
        return scanExponent();
    if (is(character, Letter))
        return finishText(T_IDENTIFIER, InName);
    token_.text = source_.text();
    return T_DOUBLE;
}

/// The E is in hand.
int Lexer::scanExponent()
{
    source_.advance();
    if (source_.peek() == '+' || source_.peek() == '-')
        source_.advance();
    if (!is(source_.peek(), Digit))
        return loseCharacter();
    return finishText(T_DOUBLE, Digit);
}

/// The x is in hand. The text of a hexadecimal number is its sign and its digits alone, which may
/// be none, and that of a name that looks like one lacks the marker too.
int Lexer::scanHexadecimal()
{
    const bool negative = source_.text() == "-0";
    if (!negative && source_.text() != "0")
        return loseCharacter();
    source_.advance();
    source_.beginText();
    const bool name = is(source_.skipRun(HexDigit), Letter);
    if (name)
        source_.skipRun(InName);
    token_.text = source_.text();
    if (negative) {
        textBuffer_ = '-';
        textBuffer_ += token_.text;
        token_.text = textBuffer_;
    }
    return name ? int{T_IDENTIFIER} : int{ScannedHexadecimal};
}

/// A number came to nothing at the character in hand.
int Lexer::loseCharacter()
{
    source_.take();
    return T_NONE;
}

} // namespace tavo
