#pragma once

#include <algorithm>
#include <stdexcept>
#include <string>

namespace tavo {

/// What the program reports to its caller. The greater one wins where several files are at work.
enum class ExitCode
{
    AllWell = 0,
    DescriptionFailed = 1,
    Usage = 2,
    Trouble = 3, ///< A file can't be read or written.
};

inline ExitCode worse(ExitCode a, ExitCode b) { return std::max(a, b); }

/// What ends a command, or its work on one file. The text is for "tavo: error: TEXT", and the hint
/// for a line after it.
class Failure : public std::runtime_error
{
public:
    Failure(ExitCode exitCode, const std::string& reason, const std::string& hint = "")
        : std::runtime_error(reason), exitCode_(exitCode), hint_(hint)
    {
    }

    ExitCode exitCode() const { return exitCode_; }
    const std::string& hint() const { return hint_; } ///< What helps; "" if nobody knows.

private:
    ExitCode exitCode_;
    std::string hint_;
};

/// A file, or whatever else `what` names, that failed with the system's error `number`.
Failure systemFailure(const std::string& what, int number);

} // namespace tavo
