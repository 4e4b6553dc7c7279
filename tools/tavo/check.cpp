#include "commands.h"

#include "Description.h"
#include "StandardOutput.h"
#include "Tally.h"
#include "comparison.h"
#include "summary.h"
#include "text.h"

namespace tavo {

namespace {

/// A description with an error that the reading got over fails here, too.
ExitCode checkOne(const std::string& file, const Options& options, Diagnostics& diagnostics)
{
    const unsigned formerErrors = diagnostics.errorCount();
    const unsigned formerWarnings = diagnostics.warningCount();
    const auto description = Description::make(file, options.dialect);
    description->setGoesOn();
    const ExitCode status = description->read(diagnostics);
    if (status == ExitCode::AllWell) {
        description->reportLosses(diagnostics);
        if (options.dialect == Dialect::Strict)
            compareReadings(description->input(), description->inventory(), diagnostics);
    }
    const unsigned errors = diagnostics.errorCount() - formerErrors;
    const unsigned warnings = diagnostics.warningCount() - formerWarnings;
    if (diagnostics.volume() != Volume::Quiet) {
        std::string report = printable(description->file()) + ": ";
        if (status == ExitCode::AllWell)
            report += summaryOf(description->inventory()) + "; ";
        report += counted(errors, "error") + ", " + counted(warnings, "warning") + "\n";
        // It comes after the diagnostics of its file, so it can't wait for the others.
        StandardOutput::print(report);
    }
    const bool hasFailed = errors > 0 || (options.warningsAreErrors && warnings > 0);
    return hasFailed ? ExitCode::DescriptionFailed : status;
}

} // namespace

ExitCode check(const Options& options, Diagnostics& diagnostics)
{
    Tally tally;
    for (const std::string& file : options.files)
        tally.add(file, attempt(diagnostics, [&] { return checkOne(file, options, diagnostics); }));
    tally.reportFailures(diagnostics, "passed");
    return tally.exitCode();
}

} // namespace tavo
