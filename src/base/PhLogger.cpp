#include "base/PhLogger.h"

#include <cstdio>

namespace tavo {

void PhLogger::report(const Diagnostic& diagnostic)
{
    // Hosts rely on the format (docs/architecture.md).
    const char* file = diagnostic.file ? diagnostic.file : "";
    switch (diagnostic.severity) {
    case Severity::Error:
        error("File '%s', Line %d: %s\n", file, diagnostic.line, diagnostic.text);
        break;
    case Severity::Warning:
        warning("File '%s', Line %d: %s\n", file, diagnostic.line, diagnostic.text);
        break;
    case Severity::Note:
        char text[messageCapacity];
        std::snprintf(text, sizeof text, "File '%s', Line %d: %s\n", file, diagnostic.line,
                      diagnostic.text);
        message(text);
        break;
    }
}

const char* severityWord(Severity severity)
{
    constexpr const char* words[] = {"Error", "Warning", "Note"};
    return words[static_cast<int>(severity)];
}

void putMessage(PhLogger* logger, const char* format, std::va_list arguments)
{
    char text[messageCapacity];
    std::vsnprintf(text, sizeof text, format, arguments);
    if (logger)
        logger->message(text);
    else
        std::printf("-: %s", text);
}

namespace {

void printMessage(const char* format, ...) TAVO_PRINTF(1, 2);

void printMessage(const char* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    putMessage(nullptr, format, arguments);
    va_end(arguments);
}

} // namespace

void putDiagnostic(PhLogger* logger, const Diagnostic& diagnostic)
{
    if (logger)
        logger->report(diagnostic);
    else
        printMessage("%s (%s:%d): %s\n", severityWord(diagnostic.severity),
                     diagnostic.file ? diagnostic.file : "", diagnostic.line, diagnostic.text);
}

} // namespace tavo
