#pragma once

#include <cstdarg>

#if defined(__MINGW32__)
#define TAVO_PRINTF(text, first) __attribute__((format(gnu_printf, text, first)))
#elif defined(__GNUC__)
#define TAVO_PRINTF(text, first) __attribute__((format(printf, text, first)))
#else
#define TAVO_PRINTF(text, first)
#endif

namespace tavo {

/// Size of the buffer that every message is built in. A longer text is cut, never refused.
constexpr int messageCapacity = 500;

/// Where a host may take the messages of a reader or of a model's root. The library only calls it:
/// it brings no logger of its own, installs none in a conversion, and never destroys one.
class PhLogger
{
public:
    virtual ~PhLogger() = default;
    /// Never called; it keeps the places of the operations behind it.
    virtual void reserved() = 0;
    /// One finished text, which bears its own line end.
    virtual void message(const char* text) = 0;
    /// A printf-like format and its arguments. A reader gives the format
    /// "File '%s', Line %d: %s\n".
    virtual void warning(const char* format, ...) TAVO_PRINTF(2, 3) = 0;
    /// The same for what ends the reading.
    virtual void error(const char* format, ...) TAVO_PRINTF(2, 3) = 0;
};

/// Formats a message of at most 499 bytes and hands it to `logger`, or, without one, prints it to
/// the standard output behind "-: ". Adds no line end.
void putMessage(PhLogger* logger, const char* format, std::va_list arguments);

} // namespace tavo
