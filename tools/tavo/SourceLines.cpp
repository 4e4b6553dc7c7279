#include "SourceLines.h"

#include <filesystem>
#include <limits>

namespace tavo {

namespace {

constexpr std::size_t longest = 160;

} // namespace

std::string SourceLines::line(const std::string& file, int number)
{
    constexpr auto anySize = std::numeric_limits<std::streamsize>::max();
    if (file != file_ || number + 1 < next_) {
        std::error_code ignored;
        file_ = file;
        stream_ = {};
        if (std::filesystem::is_regular_file(file, ignored))
            stream_.open(file, std::ios::binary);
        next_ = 1;
    }
    if (number + 1 == next_)
        return current_;
    for (; next_ < number; ++next_)
        stream_.ignore(anySize, '\n');
    while (stream_.peek() == ' ' || stream_.peek() == '\t')
        stream_.get();
    // Not all at once: a line may hold most of a file.
    current_.clear();
    int character = stream_.get();
    while (character != '\n' && character != std::ifstream::traits_type::eof()) {
        if (current_.size() == longest) {
            current_ += "...";
            stream_.ignore(anySize, '\n');
            break;
        }
        current_.push_back(static_cast<char>(character));
        character = stream_.get();
    }
    ++next_;
    current_.erase(current_.find_last_not_of(" \t\r") + 1);
    return current_;
}

} // namespace tavo
