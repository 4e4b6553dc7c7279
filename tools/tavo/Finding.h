#pragma once

#include "Failure.h"
#include "base/Diagnostic.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tavo {

/// A diagnostic that is kept.
struct Finding
{
    Severity severity = Severity::Error;
    std::string file; ///< "" if it is one of the program itself.
    int line = 0;
    unsigned column = 0; ///< In characters from 1 on; 0 if nobody knows.
    std::string text;
    std::string hint;
};

/// What `check` finds out about one description.
struct CheckReport
{
    struct Counts
    {
        std::size_t interfaces = 0;
        std::size_t sources = 0;
        std::size_t measurements = 0; ///< That a configuration has.
        std::size_t leftOut = 0;
    };

    std::string file;
    ExitCode exitCode = ExitCode::AllWell;
    unsigned errors = 0;
    unsigned warnings = 0;
    std::optional<Counts> counts; ///< Of one that could be read.
    std::vector<Finding> findings;
};

/// The reports as one JSON object, by docs/check.schema.json.
std::string checkJson(const std::vector<CheckReport>& reports);
/// The same as a log of the format SARIF 2.1.0.
std::string checkSarif(const std::vector<CheckReport>& reports);

} // namespace tavo
