#pragma once

#include "SourceLines.h"
#include "base/PhLogger.h"

#include <cstdarg>
#include <string>

namespace tavo {

class Console;

/// How much the program says.
enum class Volume
{
    Quiet, ///< Errors only.
    Normal,
    Verbose, ///< The progress lines of the parsers, too.
};

/// Puts out what a reader and the program have to say, in the form that editors parse:
/// "FILE:LINE: error: TEXT" with the line of the file below it.
class Diagnostics : public PhLogger
{
public:
    /// The console outlives the object.
    Diagnostics(Console& console, Volume volume);

    Console& console() const { return console_; }
    Volume volume() const { return volume_; }
    /// How many of each there were, the silent ones too.
    unsigned errorCount() const { return errorCount_; }
    unsigned warningCount() const { return warningCount_; }

    /// How the lines of what is read from now on are counted.
    void setLineEnds(LineEnds lineEnds) { sources_.setLineEnds(lineEnds); }

    void reserved() override {}
    /// A progress line.
    void message(const char* text) override;
    /// A line about what was done, unless only errors are to be shown.
    void inform(const std::string& text);
    void warning(const char* format, ...) override TAVO_PRINTF(2, 3);
    void error(const char* format, ...) override TAVO_PRINTF(2, 3);
    /// One diagnostic, with its line of the file below it. Without a file it is one of the program
    /// itself: "tavo: error: TEXT".
    void report(const Diagnostic& diagnostic) override;

    /// A warning about a file as a whole.
    void warnAbout(const std::string& file, const std::string& text);
    /// A warning or an error of the program itself.
    void warnOfProgram(const std::string& text);
    void failProgram(const std::string& text);

private:
    void reportFormatted(Severity severity, const char* format, std::va_list arguments);

    Console& console_;
    Volume volume_;
    SourceLines sources_;
    unsigned errorCount_ = 0;
    unsigned warningCount_ = 0;
};

} // namespace tavo
