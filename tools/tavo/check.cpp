#include "commands.h"

#include "Description.h"
#include "Finding.h"
#include "Input.h"
#include "StandardOutput.h"
#include "Tally.h"
#include "comparison.h"
#include "daq/losses.h"
#include "inventory/Inventory.h"
#include "summary.h"
#include "text.h"

#include <utility>
#include <vector>

namespace tavo {

namespace {

CheckReport::Counts countsOf(const Inventory& inventory)
{
    CheckReport::Counts counts;
    counts.interfaces = inventory.interfaces.size();
    for (const Interface& interface : inventory.interfaces)
        counts.sources += interface.sources.size();
    counts.measurements = expressibleCount(inventory);
    counts.leftOut = inventory.quantityCount() - counts.measurements;
    return counts;
}

/// A description with an error that the reading got over fails here, too.
ExitCode checkOne(const std::string& file, const Options& options, Diagnostics& diagnostics,
                  CheckReport& report)
{
    const auto description = Description::make(file, options.dialect);
    description->setGoesOn();
    const ExitCode status = description->read(diagnostics);
    if (status == ExitCode::AllWell) {
        description->reportLosses(diagnostics);
        if (options.dialect == Dialect::Strict)
            compareReadings(description->input(), description->inventory(), diagnostics);
        report.counts = countsOf(description->inventory());
    }
    report.errors = diagnostics.errorCount();
    report.warnings = diagnostics.warningCount();
    if (options.checkFormat == CheckFormat::Gcc && diagnostics.volume() != Volume::Quiet) {
        std::string line = printable(description->file()) + ": ";
        if (status == ExitCode::AllWell)
            line += summaryOf(description->inventory()) + "; ";
        line += counted(report.errors, "error") + ", " + counted(report.warnings, "warning") + "\n";
        // It comes after the diagnostics of its file, so it can't wait for the others.
        StandardOutput::print(line);
    }
    const bool hasFailed = report.errors > 0 || (options.warningsAreErrors && report.warnings > 0);
    return hasFailed ? ExitCode::DescriptionFailed : status;
}

} // namespace

ExitCode check(const Options& options, Diagnostics& diagnostics)
{
    const bool isCollected = options.checkFormat != CheckFormat::Gcc;
    Tally tally;
    std::vector<CheckReport> reports;
    for (const std::string& file : options.files) {
        CheckReport report;
        report.file = displayName(file);
        Diagnostics ofFile(diagnostics.console(), diagnostics.volume());
        if (isCollected)
            ofFile.collect(&report.findings);
        report.exitCode = attempt(ofFile, [&] { return checkOne(file, options, ofFile, report); });
        report.errors = ofFile.errorCount();
        tally.add(file, report.exitCode);
        if (isCollected)
            reports.push_back(std::move(report));
    }
    if (isCollected) {
        StandardOutput output(StandardOutput::Content::Bytes);
        output.stream().put(options.checkFormat == CheckFormat::Json ? checkJson(reports)
                                                                     : checkSarif(reports));
        output.finish();
    } else {
        tally.reportFailures(diagnostics, "passed");
    }
    return tally.exitCode();
}

} // namespace tavo
