#include "commands.h"

#include "Description.h"
#include "StandardOutput.h"
#include "model/PhList.h"
#include "text.h"
#include "topology/PhCommParam.h"
#include "topology/PhGroup.h"

namespace tavo {

namespace {

/// "2 sources"
std::string counted(std::uint32_t count, const char* noun)
{
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

std::string countOf(const PhList* list, const char* noun)
{
    return counted(list ? list->count() : 0, noun);
}

/// What the configuration would hold. The module may be null.
std::string summary(const PhGroup* module)
{
    const PhList* commParams = module ? module->commParams() : nullptr;
    std::uint32_t sources = 0;
    for (const PhCommParam* commParam : each<PhCommParam>(commParams))
        sources += commParam->rasters() ? commParam->rasters()->count() : 0;
    return countOf(commParams, "interface") + ", " + counted(sources, "source") + ", " +
           countOf(module ? module->entities() : nullptr, "measurement");
}

/// A description with an error that the reading got over fails here, too.
ExitCode checkOne(const std::string& file, Diagnostics& diagnostics)
{
    const unsigned formerErrors = diagnostics.errorCount();
    const unsigned formerWarnings = diagnostics.warningCount();
    Description description(file);
    const ExitCode status = description.read(diagnostics);
    const unsigned errors = diagnostics.errorCount() - formerErrors;
    const unsigned warnings = diagnostics.warningCount() - formerWarnings;
    if (diagnostics.volume() != Volume::Quiet) {
        std::string report = printable(file) + ": ";
        if (status == ExitCode::AllWell)
            report += summary(description.writtenModule()) + "; ";
        report += counted(errors, "error") + ", " + counted(warnings, "warning") + "\n";
        // It stands behind the diagnostics of its file, so it can't wait for the others.
        StandardOutput::print(report);
    }
    return errors > 0 ? ExitCode::DescriptionFailed : status;
}

} // namespace

ExitCode check(const std::vector<std::string>& files, Diagnostics& diagnostics)
{
    ExitCode exitCode = ExitCode::AllWell;
    for (const std::string& file : files)
        exitCode =
            worse(exitCode, attempt(diagnostics, [&] { return checkOne(file, diagnostics); }));
    return exitCode;
}

} // namespace tavo
