#include "commands.h"

#include "Description.h"
#include "Glob.h"
#include "StandardOutput.h"
#include "Tally.h"
#include "jsonListing.h"
#include "render.h"

namespace tavo {

namespace {

ExitCode listOne(const std::string& file, const Options& options, Diagnostics& diagnostics)
{
    const auto description = Description::make(file, options.dialect);
    const ExitCode exitCode = description->read(diagnostics);
    if (exitCode != ExitCode::AllWell)
        return exitCode;
    const Glob names(options.pattern);
    bool isAnyChosen = false;
    const Choice isChosen = [&](std::string_view name) {
        const bool isMatch = names.matches(name);
        isAnyChosen |= isMatch;
        return isMatch;
    };
    const Inventory& inventory = description->inventory();
    Step listing(diagnostics, "listed " + description->file());
    StandardOutput output;
    switch (options.format) {
    case ListFormat::Table:
        renderTable(output.stream(), listingOf(inventory, isChosen));
        break;
    case ListFormat::Csv:
        renderCsv(output.stream(), listingOf(inventory, isChosen));
        break;
    case ListFormat::Json:
        renderJson(output.stream(), inventory, isChosen);
        break;
    }
    output.finish();
    listing.finish();
    if (!isAnyChosen && options.pattern != "*")
        diagnostics.warnOfProgram("No name matches '" + options.pattern + "'");
    return exitCode;
}

} // namespace

ExitCode list(const Options& options, Diagnostics& diagnostics)
{
    Tally tally;
    for (const std::string& file : options.files)
        tally.add(file, attempt(diagnostics, [&] { return listOne(file, options, diagnostics); }));
    tally.reportFailures(diagnostics, "listed");
    return tally.exitCode();
}

} // namespace tavo
