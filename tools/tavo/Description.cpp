#include "Description.h"

#include "Diagnostics.h"
#include "Input.h"
#include "Selection.h"
#include "base/Notices.h"
#include "daq/losses.h"

namespace tavo {

std::unique_ptr<Description> Description::make(const std::string& file, Dialect dialect)
{
    return dialect == Dialect::Strict ? makeStrictDescription(file) : makeWideDescription(file);
}

Description::Description(const std::string& file, Dialect dialect)
    : path_(file), name_(displayName(file)), dialect_(dialect)
{
}

ExitCode Description::read(Diagnostics& diagnostics)
{
    input_ = Input::open(path_, diagnostics);
    diagnostics.setSource(input_, dialect_ == Dialect::Strict ? LineEnds::LineFeed : LineEnds::Any);
    if (!isReadable(*input_, dialect_, diagnostics))
        return ExitCode::DescriptionFailed;
    Step reading(diagnostics, "read " + name_);
    const ExitCode exitCode = readInput(diagnostics);
    reading.finish();
    return exitCode;
}

bool isReadable(const Input& input, Dialect dialect, Diagnostics& diagnostics)
{
    const auto [kind, name, hint] = input.recognition();
    const auto fail = [&](const std::string& text, const char* help) {
        diagnostics.failAbout(input.name(), text, help);
        return false;
    };
    switch (kind) {
    case FileKind::Text:
        return true;
    case FileKind::Empty:
        return fail("The file is empty", "");
    case FileKind::WideText:
        return dialect == Dialect::Wide ||
               fail(joined({"The file is ", name, ", which strict reading doesn't know"}),
                    "read it without --strict");
    case FileKind::Gzip:
    case FileKind::Zstd:
    case FileKind::Other:
        return fail(joined({"The file is ", name, " and no description"}), hint);
    }
    return true;
}

void Description::select(Selection& selection, NameSet& enabled, Diagnostics& diagnostics)
{
    if (selection.isAll() && enabled.isEmpty())
        return;
    isSelected_ = true;
    Inventory& inventory = changeableInventory();
    NearestName nearest = nearestNameIn(inventory);
    selection.forget();
    enabled.forget();
    inventory.keepQuantities([&](Quantity& quantity) {
        quantity.isEnabled = enabled.contains(quantity.name);
        return selection.has(inventory, quantity);
    });
    selection.reportMissing(diagnostics, file(), nearest);
    enabled.reportMissing(diagnostics, file(), nearest);
}

void Description::reportLosses(Diagnostics& diagnostics)
{
    const auto warn = [&](Place, const std::string& text) { diagnostics.warnAbout(name_, text); };
    const bool isVerbose = diagnostics.volume() == Volume::Verbose;
    Notices notices(isVerbose ? Notices::Sink(warn) : Notices::Sink());
    tavo::reportLosses(inventory(), notices);
    if (!isVerbose)
        notices.report(warn);
}

} // namespace tavo
