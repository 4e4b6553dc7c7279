#include "commands.h"

#include "Description.h"
#include "Selection.h"
#include "StandardOutput.h"
#include "Tally.h"
#include "jsonListing.h"
#include "render.h"

namespace tavo {

namespace {

constexpr KindSet usualKinds = 0b0111; // all except the methods, which the measurements have

/// Lists the files one after the other.
class Lister
{
public:
    Lister(const Options& options, Diagnostics& diagnostics)
        : options_(options),
          diagnostics_(diagnostics),
          selection_(options.selection),
          kinds_(options.listedKinds.any() ? options.listedKinds : usualKinds)
    {
        form_.columns = options.columns;
        form_.hasFiles = options.files.size() > 1;
    }

    ExitCode list(const std::string& file);

private:
    void render(ConfigurationStream& stream, const Listing& listing, const std::string& file);

    const Options& options_;
    Diagnostics& diagnostics_;
    Selection selection_;
    KindSet kinds_;
    ListingForm form_;
    bool hasHeader_ = false; ///< The header of CSV is written.
};

ExitCode Lister::list(const std::string& file)
{
    const auto description = Description::make(file, options_.dialect);
    const ExitCode exitCode = description->read(diagnostics_);
    if (exitCode != ExitCode::AllWell)
        return exitCode;
    Step step(diagnostics_, "listed " + description->file());
    const Inventory& inventory = description->inventory();
    selection_.forget();
    Listing listing(inventory, selection_, kinds_);
    sortListing(listing, options_.sortKeys);
    StandardOutput output;
    render(output.stream(), listing, description->file());
    output.finish();
    step.finish();
    if (!selection_.isComplete()) {
        NearestName nearest = nearestNameIn(inventory);
        selection_.reportMissing(diagnostics_, description->file(), nearest);
    }
    return exitCode;
}

void Lister::render(ConfigurationStream& stream, const Listing& listing, const std::string& file)
{
    switch (options_.format) {
    case ListFormat::Table:
        renderTable(stream, listing, form_, file);
        break;
    case ListFormat::Csv:
        if (!hasHeader_)
            renderCsvHeader(stream, kinds_, form_);
        hasHeader_ = true;
        renderCsv(stream, listing, form_, file);
        break;
    case ListFormat::Json:
        renderJson(stream, listing, form_, file);
        break;
    }
}

} // namespace

ExitCode list(const Options& options, Diagnostics& diagnostics)
{
    Lister lister(options, diagnostics);
    Tally tally;
    for (const std::string& file : options.files)
        tally.add(file, attempt(diagnostics, [&] { return lister.list(file); }));
    tally.reportFailures(diagnostics, "listed");
    return tally.exitCode();
}

} // namespace tavo
