#include "Progress.h"

#include "Console.h"
#include "base/paths.h"
#include "text.h"

#include <filesystem>

namespace tavo {

namespace {

std::string megabytes(std::uint64_t bytes)
{
    const std::uint64_t tenths = bytes / 100000;
    return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + " MB";
}

} // namespace

Progress::Progress(Console& console, const std::string& file)
    : console_(console),
      file_(printable(nameOf(pathOf(file).filename()))),
      nextDisplay_(Clock::now() + std::chrono::seconds(1))
{
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(pathOf(file), error);
    if (!error)
        total_ = size;
}

Progress::~Progress() { console_.setStatus(""); }

void Progress::advance(std::uint64_t bytesRead)
{
    const Clock::time_point now = Clock::now();
    if (now < nextDisplay_)
        return;
    nextDisplay_ = now + std::chrono::milliseconds(100);
    std::string status = file_ + ": " + megabytes(bytesRead);
    if (total_ > 0)
        status += " of " + megabytes(total_) + " (" +
                  std::to_string(static_cast<int>(100.0 * static_cast<double>(bytesRead) /
                                                  static_cast<double>(total_))) +
                  " %)";
    console_.setStatus(status);
}

} // namespace tavo
