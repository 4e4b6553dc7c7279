#include "a2l/PhA2l.h"

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

} // namespace tavo
