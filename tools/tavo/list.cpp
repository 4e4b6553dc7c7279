#include "commands.h"

#include "Description.h"
#include "Glob.h"
#include "StandardOutput.h"
#include "render.h"

#include <algorithm>

namespace tavo {

ExitCode list(const ListOptions& options, Diagnostics& diagnostics)
{
    Description description(options.file);
    const ExitCode exitCode = description.read(diagnostics);
    if (exitCode != ExitCode::AllWell)
        return exitCode;
    const std::vector<Section> listing =
        listingOf(description.writtenModule(), Glob(options.pattern));
    const bool empty = std::all_of(listing.begin(), listing.end(),
                                   [](const Section& section) { return section.rows.empty(); });
    if (empty && options.pattern != "*")
        diagnostics.warnOfProgram("No name matches '" + options.pattern + "'");
    StandardOutput output;
    switch (options.format) {
    case ListFormat::Table:
        renderTable(output.stream(), listing);
        break;
    case ListFormat::Csv:
        renderCsv(output.stream(), listing);
        break;
    case ListFormat::Json:
        renderJson(output.stream(), listing);
        break;
    }
    output.finish();
    return exitCode;
}

} // namespace tavo
