#pragma once

#include "base/Diagnostic.h"

#include <cstdarg>

#if defined(__MINGW32__)
#define TAVO_PRINTF(text, first) __attribute__((format(gnu_printf, text, first)))
#elif defined(__GNUC__)
#define TAVO_PRINTF(text, first) __attribute__((format(printf, text, first)))
#else
#define TAVO_PRINTF(text, first)
#endif

namespace tavo {

/// Size of the buffer that every message is built in. A longer text is cut, never refused. Hosts
/// rely on it (docs/architecture.md).
constexpr int messageCapacity = 500;

/// Where a host may take the messages of a reader or of a model's root. The library only calls it:
/// it brings no logger of its own, installs none in a conversion, and never destroys one.
class PhLogger
{
public:
    virtual ~PhLogger() = default;
    /// Never called; it keeps the places of the operations after it.
    virtual void reserved() = 0;
    /// One finished text, which bears its own line end.
    virtual void message(const char* text) = 0;
    /// A printf-like format and its arguments.
    virtual void warning(const char* format, ...) TAVO_PRINTF(2, 3) = 0;
    virtual void error(const char* format, ...) TAVO_PRINTF(2, 3) = 0;
    /// What readers call. Unless it is overridden, an error and a warning go to the operation of
    /// their name with the format "File '%s', Line %d: %s\n", and a note goes to `message` as a
    /// text of this form.
    virtual void report(const Diagnostic& diagnostic);
};

/// "Error", "Warning" or "Note".
const char* severityWord(Severity severity);

/// Formats a message of at most 499 bytes and hands it to `logger`. Without one it goes to the
/// standard output, after "-: ". Adds no line end.
void putMessage(PhLogger* logger, const char* format, std::va_list arguments);

/// Hands a diagnostic to `logger`. Without one it goes to the standard output as
/// "-: Error (FILE:LINE): TEXT", with "Warning" or "Note" for the other severities.
void putDiagnostic(PhLogger* logger, const Diagnostic& diagnostic);

} // namespace tavo
