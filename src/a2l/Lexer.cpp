#include "a2l/Lexer.h"

#include "base/exactDecimal.h"
#include "model/decimal.h"

#include <cstdio>

namespace tavo {

namespace {

constexpr char endCharacter = static_cast<char>(endMark);

/// What doesn't stand for itself in a string.
ByteGroup::Matches textEnds(ByteGroup bytes)
{
    return bytes.equalTo('"') | bytes.equalTo('\\') | bytes.equalTo(endCharacter);
}

/// What may end a comment.
ByteGroup::Matches stars(ByteGroup bytes)
{
    return bytes.equalTo('*') | bytes.equalTo(endCharacter);
}

unsigned decimalDigit(unsigned char digit) { return digit - unsigned{'0'}; }

/// Without a decision, which would be guessed wrong for every other digit: of a letter, the low
/// four bits count from 1, and bit 6 is set.
unsigned hexadecimalDigit(unsigned char digit) { return (digit & 15U) + 9U * (digit >> 6U); }

std::int32_t hexadecimalValue(std::string_view text)
{
    const bool negative = !text.empty() && text.front() == '-';
    std::uint32_t number = 0;
    for (const char c : text.substr(negative ? 1 : 0))
        number = number * 16 + hexadecimalDigit(static_cast<unsigned char>(c));
    return static_cast<std::int32_t>(negative ? 0 - number : number);
}

} // namespace

bool Lexer::open(const char* path) { return source_.open(path); }

void Lexer::openMemory(std::string_view text) { source_.openMemory(text); }

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
    case ScannedInteger:
        code = T_INTEGER;
        token_.integer = parseInt32(text.data(), text.data() + text.size());
        break;
    case ScannedHexadecimal:
        token_.integer = hexadecimalValue(text);
        code = T_INTEGER;
        break;
    case ScannedReal:
        code = T_DOUBLE;
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

/// Finds the next token and its text, and makes no more of it: a name isn't looked up yet, and only
/// a plain number has its value.
int Lexer::scan()
{
    const unsigned char* first = source_.position();
    while (is(*first, Blank))
        ++first;
    if (is(*first, Letter) || (*first == '/' && first[1] != '*' && first[1] != endMark)) {
        const unsigned char* const last = source_.nameEnd(first + 1);
        if (*last != endMark)
            return finishPlain(ScannedName, first, last, last);
    } else if (is(*first, Digit) || *first == '-') {
        return scanPlainNumber(first);
    } else if (*first == '"') {
        const unsigned char* const last = SourceStream::find(first + 1, textEnds);
        if (*last == '"' && last[1] != '"' && last[1] != endMark)
            return finishPlain(T_STRING, first + 1, last, last + 1);
    }
    source_.goTo(first);
    return scanOther();
}

/// Takes a token that stands in the block as plainly as most do, and goes on after it.
int Lexer::finishPlain(int code, const unsigned char* first, const unsigned char* last,
                       const unsigned char* next)
{
    token_.text = {reinterpret_cast<const char*>(first), static_cast<std::size_t>(last - first)};
    source_.goTo(next);
    return code;
}

/// A number of decimal digits, maybe with a point, or of hexadecimal ones. It has its value at
/// once.
int Lexer::scanPlainNumber(const unsigned char* first)
{
    std::uint64_t number = 0;
    const auto readDigits = [&](const unsigned char* digit) {
        for (; is(*digit, Digit); ++digit)
            number = number * 10 + decimalDigit(*digit);
        return digit;
    };
    const auto fits = [&](const unsigned char* last) {
        return last - first <= static_cast<std::ptrdiff_t>(exactDigits) && !is(*last, Letter) &&
               *last != endMark;
    };
    const bool isNegative = *first == '-';
    const unsigned char* const digits = first + isNegative;
    const unsigned char* last = readDigits(digits);
    if (last != digits && *last == '.') {
        const unsigned char* const decimals = last + 1;
        last = readDigits(decimals);
        if (fits(last)) {
            const double magnitude = withPoint(number, static_cast<std::size_t>(last - decimals));
            token_.real = isNegative ? -magnitude : magnitude;
            return finishPlain(T_DOUBLE, first, last, last);
        }
    } else if (last != digits && fits(last)) {
        token_.integer = saturated(number, isNegative);
        return finishPlain(T_INTEGER, first, last, last);
    } else if (*last == 'x' && last == first + 1 && *first == '0') {
        const unsigned char* const text = first + 2;
        for (last = text; is(*last, HexDigit); ++last)
            number = number * 16 + hexadecimalDigit(*last);
        if (!is(*last, Letter) && *last != endMark) {
            token_.integer = static_cast<std::int32_t>(static_cast<std::uint32_t>(number));
            return finishPlain(T_INTEGER, text, last, last);
        }
    }
    source_.goTo(first);
    return scanOther();
}

/// A token that `scan` doesn't know from its first characters or that goes on in the next block.
/// No blank is in hand, unless a block begins with it.
int Lexer::scanOther()
{
    token_.text = {};
    source_.endText();
    for (;;) {
        const int first = source_.skipFew(Blank);
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
            return finishName(ScannedName);
        source_.endText();
        source_.advance();
        if (!skipComment())
            return T_ERROR;
    }
}

/// Called after the opening of a comment. False, with an error, if it has no end.
bool Lexer::skipComment()
{
    source_.markLine();
    for (;;) {
        if (source_.skipTo(stars) == endMark) {
            source_.take();
            // The second "Error" is frozen, see "What hosts rely on" in docs/architecture.md.
            char text[64];
            std::snprintf(text, sizeof text, "Error: Unexpected EOF in Comment (Line %d)",
                          static_cast<int>(source_.markedLine()));
            report_(text);
            return false;
        }
        source_.advance();
        if (source_.peek() == '/') {
            source_.advance();
            source_.unmarkLine();
            return true;
        }
    }
}

/// Takes the rest of a name as the token's text.
int Lexer::finishName(int code)
{
    source_.skipName();
    token_.text = source_.text();
    return code;
}

int Lexer::scanName()
{
    source_.beginText();
    return finishName(ScannedName);
}

int Lexer::scanString()
{
    source_.advance();
    source_.beginText();
    if (source_.skipTo(textEnds) != '"') {
        textBuffer_.assign(source_.text());
        return scanEditedString();
    }
    source_.advance();
    if (source_.peek() != '"') {
        token_.text = source_.text();
        token_.text.remove_suffix(1);
        return T_STRING;
    }
    textBuffer_.assign(source_.text()); // with the one quote that counts
    source_.advance();
    return scanEditedString();
}

/// The rest of a string whose text isn't what stands in the file: the buffer holds the text so far.
int Lexer::scanEditedString()
{
    for (;;) {
        source_.beginText();
        source_.skipTo(textEnds);
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
    switch (const int character = source_.skipFew(Digit)) {
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
            return finishName(T_IDENTIFIER);
    }
    token_.text = source_.text();
    return first == '.' ? ScannedReal : ScannedInteger;
}

/// The point is in hand.
int Lexer::scanFraction()
{
    source_.advance();
    const int character = source_.skipFew(Digit);
    if (character == 'E' || character == 'e')
        return scanExponent();
    if (is(character, Letter))
        return finishName(T_IDENTIFIER);
    token_.text = source_.text();
    return ScannedReal;
}

/// The E is in hand.
int Lexer::scanExponent()
{
    source_.advance();
    if (source_.peek() == '+' || source_.peek() == '-')
        source_.advance();
    if (!is(source_.peek(), Digit))
        return loseCharacter();
    source_.skipFew(Digit);
    token_.text = source_.text();
    return ScannedReal;
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
    const bool name = is(source_.skipFew(HexDigit), Letter);
    if (name)
        source_.skipName();
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
    source_.forgetLineFeed();
    return T_NONE;
}

} // namespace tavo
