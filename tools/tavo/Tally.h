#pragma once

#include "Failure.h"

#include <cstddef>
#include <string>
#include <vector>

namespace tavo {

class Diagnostics;

/// Counts what became of several files.
class Tally
{
public:
    void add(const std::string& file, ExitCode exitCode);
    /// Of all files.
    ExitCode exitCode() const { return exitCode_; }

    /// Sums several files up: those that failed by name, and "7 of 10 DONE". Nothing of one file.
    void report(Diagnostics& diagnostics, const char* done) const;
    /// The same if one has failed.
    void reportFailures(Diagnostics& diagnostics, const char* done) const
    {
        if (!failed_.empty())
            report(diagnostics, done);
    }

private:
    std::size_t count_ = 0;
    std::vector<std::string> failed_;
    ExitCode exitCode_ = ExitCode::AllWell;
};

} // namespace tavo
