// The reader itself: its settings, and all that it says.

#include "a2l/PhA2l.h"

#include "model/decimal.h"

#include <cstdio>

namespace tavo {

PhA2l::PhA2l(const char* path)
    : PhReader(path), lexer_([this](const char* text) { error("%s", text); })
{
}

PhA2l::~PhA2l() = default;

const char* PhA2l::formatName() const { return "ASAP2"; }

void PhA2l::setKeywordTable(int number)
{
    static constexpr const PhKeywordTable* tables[] = {&coreKeywords, &enumKeywords, &ccpKeywords,
                                                       &xcpKeywords, &kwpKeywords};
    if (number >= 0 && number < static_cast<int>(std::size(tables)))
        lexer_.setVocabulary(*tables[number]);
}

namespace {

/// The caller's part of a diagnostic.
struct MessageText
{
    MessageText(const char* format, std::va_list arguments)
    {
        std::vsnprintf(text, sizeof text, format, arguments);
    }
    char text[messageCapacity];
};

/// How a token is told, by what it is.
struct TokenWording
{
    const char* keyword;
    const char* end;
    const char* string;
    const char* identifier;
    const char* integer;
    const char* real; ///< Takes the number as text, with six decimals.
    const char* other;
};

constexpr TokenWording unexpected = {"Unexpected token '%s' found", "Unexpected token EOF",
                                     "Unexpected token \"%s\"",     "Unexpected token '%s'",
                                     "Unexpected token %d",         "Unexpected token %s",
                                     "Unexpected token t=%d"};

constexpr TokenWording dumped = {"[%s]", "EOF", "\"%s\"", "'%s'", "%d", "%s", "t=%d"};

/// As much of a text as a message can show.
class ShownText
{
public:
    explicit ShownText(std::string_view text) { text_[text.copy(text_, sizeof text_ - 1)] = '\0'; }
    const char* get() const { return text_; }

private:
    char text_[messageCapacity];
};

/// Tells a token through `put`, which takes a format and its arguments. A stray character whose
/// code is a keyword's is told as the keyword.
template <class Put>
void tellToken(const PhTokenValue& token, const PhKeywordTable& vocabulary,
               const TokenWording& words, Put put)
{
    if (const char* keyword = vocabulary.keywordName(token.code))
        put(words.keyword, keyword);
    else if (token.code == T_EOF)
        put(words.end, ""); // a format without a place for it
    else if (token.code == T_STRING)
        put(words.string, ShownText(token.text).get());
    else if (token.code == T_IDENTIFIER)
        put(words.identifier, ShownText(token.text).get());
    else if (token.code == T_INTEGER)
        put(words.integer, token.integer);
    else if (token.code == T_DOUBLE)
        put(words.real, FixedText(token.real).text());
    else
        put(words.other, token.code);
}

} // namespace

void PhA2l::warning(const char* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    const MessageText message(format, arguments);
    va_end(arguments);
    report({Severity::Warning, fileName(), lexer_.line(), message.text});
}

void PhA2l::error(const char* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    const MessageText message(format, arguments);
    va_end(arguments);
    report({Severity::Error, fileName(), lexer_.line(), message.text});
}

/// Reports the current token, which the block in hand doesn't hold. The result is T_ERROR, for the
/// caller to return.
int PhA2l::unexpectedToken()
{
    tellToken(token(), keywords(), unexpected,
              [this](const char* format, auto argument) { error(format, argument); });
    return T_ERROR;
}

/// The same words for a token that can be passed over.
void PhA2l::warnUnexpectedToken()
{
    tellToken(token(), keywords(), unexpected,
              [this](const char* format, auto argument) { warning(format, argument); });
}

int PhA2l::print_tokens()
{
    log("print_tokens ()\n");
    if (const int status = openFile())
        return status;
    do {
        nextToken();
        tellToken(token(), keywords(), dumped,
                  [this](const char* format, auto argument) { log(format, argument); });
        log("\n");
    } while (token().code != T_EOF);
    lexer_.close();
    return 0;
}

/// Logs a progress line, with at most one text in it, if the reader is verbose.
void PhA2l::progress(const char* format, std::string_view text)
{
    if (verbose())
        log(format, ShownText(text).get());
}

} // namespace tavo
