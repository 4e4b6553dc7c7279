#pragma once

#include "Finding.h"
#include "SourceLines.h"
#include "base/PhLogger.h"

#include <chrono>
#include <cstdarg>
#include <cstdint>
#include <string>

namespace tavo {

class Console;

/// How much the program says.
enum class Volume : std::uint8_t
{
    Quiet, ///< Errors only.
    Normal,
    Verbose, ///< Each case of a warning, and each step with its time.
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

    /// What is read from now on, and how its lines are counted.
    void setSource(std::shared_ptr<const Input> input, LineEnds lineEnds)
    {
        sources_.setSource(std::move(input), lineEnds);
    }
    /// True if somebody wants to see how far the reading of a file has come.
    bool showsProgress() const;

    void reserved() override {}
    /// What a reader logs about its way, which is of no use here.
    void message(const char*) override {}
    /// A line about what was done, unless only errors are to be shown.
    void inform(const std::string& text);
    /// A line for those who want to know more.
    void explain(const std::string& text);
    void warning(const char* format, ...) override TAVO_PRINTF(2, 3);
    void error(const char* format, ...) override TAVO_PRINTF(2, 3);
    /// One diagnostic, with its line of the file below it. Without a file it is one of the program
    /// itself: "tavo: error: TEXT".
    void report(const Diagnostic& diagnostic) override;

    /// From now on, what there is to report goes here, and not to the console; null for the
    /// console.
    void collect(std::vector<Finding>* findings) { findings_ = findings; }

    /// What helps with the last one.
    void advise(const std::string& hint);

    /// A warning or an error about a file as a whole.
    void warnAbout(const std::string& file, const std::string& text);
    void failAbout(const std::string& file, const std::string& text, const std::string& hint);
    /// An error of the program itself.
    void failProgram(const std::string& text, const std::string& hint = "");

private:
    void reportFormatted(Severity severity, const char* format, std::va_list arguments);
    std::string hintLine(const std::string& hint) const;
    void reportWithHint(const Diagnostic& diagnostic, const std::string& hint);

    Console& console_;
    Volume volume_;
    SourceLines sources_;
    std::vector<Finding>* findings_ = nullptr;
    unsigned errorCount_ = 0;
    unsigned warningCount_ = 0;
};

/// One step of a command, from the construction of the object on.
class Step
{
public:
    /// `what` says what was done, as in "read ecu.a2l".
    Step(Diagnostics& diagnostics, std::string what);
    /// Reports the step and its time, if somebody wants to know.
    void finish();

private:
    using Clock = std::chrono::steady_clock;

    Diagnostics& diagnostics_;
    std::string what_;
    Clock::time_point begin_;
};

} // namespace tavo
