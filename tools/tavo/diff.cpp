#include "commands.h"

#include "Console.h"
#include "Description.h"
#include "Diagnostics.h"
#include "StandardOutput.h"
#include "differences.h"
#include "renderDifferences.h"

namespace tavo {

namespace {

std::unique_ptr<Description> readOne(const std::string& file, const Options& options,
                                     Diagnostics& diagnostics)
{
    auto description = Description::make(file, options.dialect);
    const ExitCode exitCode = description->read(diagnostics);
    // That it is faulty must not look like a difference.
    if (exitCode != ExitCode::AllWell)
        throw Failure(ExitCode::Trouble, file + ": Not compared");
    return description;
}

} // namespace

ExitCode diff(const Options& options, Diagnostics& diagnostics)
{
    if (options.files.size() != 2)
        throw Failure(ExitCode::Usage, "Two descriptions are required, an older and a newer one");
    const auto before = readOne(options.files[0], options, diagnostics);
    const auto after = readOne(options.files[1], options, diagnostics);
    Step comparing(diagnostics, "compared");
    const Differences differences(before->inventory(), after->inventory());
    comparing.finish();
    const ChangeSet& shown = options.shownChanges;
    const ExitCode exitCode =
        countOf(differences, shown) == 0 ? ExitCode::AllWell : ExitCode::DescriptionFailed;
    const bool isJson = options.diffFormat == DiffFormat::Json;
    if (!isJson && diagnostics.volume() == Volume::Quiet)
        return exitCode;
    StandardOutput output(isJson ? StandardOutput::Content::Bytes
                                 : StandardOutput::Content::Harmless);
    if (isJson) {
        renderDifferencesJson(output.stream(), differences, shown);
    } else {
        renderDifferences(output.stream(), differences, shown,
                          diagnostics.console().hasColors(stdout));
        output.stream().put(summaryOf(differences, shown) + "\n");
    }
    output.finish();
    return exitCode;
}

} // namespace tavo
