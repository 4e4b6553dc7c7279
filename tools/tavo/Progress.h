#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace tavo {

class Console;

/// Shows on a terminal how far the reading of a file has come, if it takes longer than a second.
class Progress
{
public:
    /// The console outlives the object.
    Progress(Console& console, const std::string& file);
    /// Wipes the display away.
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void advance(std::uint64_t bytesRead);

private:
    using Clock = std::chrono::steady_clock;

    Console& console_;
    std::string file_;
    std::uint64_t total_ = 0; ///< 0 for what has no size, a pipe for example.
    Clock::time_point nextDisplay_;
};

} // namespace tavo
