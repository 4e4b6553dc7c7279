#include "Tally.h"

#include "Diagnostics.h"
#include "Input.h"

#include <algorithm>

namespace tavo {

void Tally::add(const std::string& file, ExitCode exitCode)
{
    ++count_;
    exitCode_ = worse(exitCode_, exitCode);
    if (exitCode != ExitCode::AllWell)
        failed_.push_back(file);
}

void Tally::report(Diagnostics& diagnostics, const char* done) const
{
    if (count_ < 2)
        return;
    constexpr std::size_t mostNames = 100;
    const std::size_t shown = std::min(failed_.size(), mostNames);
    for (std::size_t i = 0; i < shown; ++i)
        diagnostics.inform("Failed: " + displayName(failed_[i]));
    if (shown < failed_.size())
        diagnostics.inform("Failed: " + std::to_string(failed_.size() - shown) + " more");
    diagnostics.inform(std::to_string(count_ - failed_.size()) + " of " + std::to_string(count_) +
                       " " + done);
}

} // namespace tavo
