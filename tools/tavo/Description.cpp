#include "Description.h"

#include "Diagnostics.h"
#include "base/Notices.h"
#include "daq/losses.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace tavo {

std::unique_ptr<Description> Description::make(const std::string& file, Dialect dialect)
{
    return dialect == Dialect::Strict ? makeStrictDescription(file) : makeWideDescription(file);
}

void Description::checkFile() const
{
    std::error_code ignored;
    if (std::filesystem::is_directory(file_, ignored))
        throw systemFailure(file_, EISDIR);
}

void Description::reportLosses(Diagnostics& diagnostics)
{
    const auto warn = [&](Place, const std::string& text) { diagnostics.warnAbout(file_, text); };
    const bool isVerbose = diagnostics.volume() == Volume::Verbose;
    Notices notices(isVerbose ? Notices::Sink(warn) : Notices::Sink());
    tavo::reportLosses(inventory(), notices);
    if (!isVerbose)
        notices.report(warn);
}

} // namespace tavo
