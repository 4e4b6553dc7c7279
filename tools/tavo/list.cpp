#include "commands.h"

#include "Description.h"
#include "Selection.h"
#include "StandardOutput.h"
#include "Tally.h"
#include "jsonListing.h"
#include "render.h"

namespace tavo {

namespace {

ExitCode listOne(const std::string& file, const Options& options, Selection& selection,
                 Diagnostics& diagnostics)
{
    const auto description = Description::make(file, options.dialect);
    const ExitCode exitCode = description->read(diagnostics);
    if (exitCode != ExitCode::AllWell)
        return exitCode;
    selection.forget();
    const Inventory& inventory = description->inventory();
    Step listing(diagnostics, "listed " + description->file());
    StandardOutput output;
    switch (options.format) {
    case ListFormat::Table:
        renderTable(output.stream(), listingOf(inventory, selection));
        break;
    case ListFormat::Csv:
        renderCsv(output.stream(), listingOf(inventory, selection));
        break;
    case ListFormat::Json:
        renderJson(output.stream(), inventory, selection);
        break;
    }
    output.finish();
    listing.finish();
    if (!selection.isComplete()) {
        NearestName nearest = nearestNameIn(inventory);
        selection.reportMissing(diagnostics, description->file(), nearest);
    }
    return exitCode;
}

} // namespace

ExitCode list(const Options& options, Diagnostics& diagnostics)
{
    Selection selection(options.selection);
    Tally tally;
    for (const std::string& file : options.files)
        tally.add(file, attempt(diagnostics,
                                [&] { return listOne(file, options, selection, diagnostics); }));
    tally.reportFailures(diagnostics, "listed");
    return tally.exitCode();
}

} // namespace tavo
