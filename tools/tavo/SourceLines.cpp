#include "SourceLines.h"

#include "Input.h"
#include "asap2/SourceFile.h"
#include "base/paths.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <utility>

namespace tavo {

namespace {

constexpr std::size_t longest = 160;
/// More files than can include one another.
constexpr std::size_t mostSources = 20;

} // namespace

/// One file, at the beginning of a line.
class SourceLines::Source
{
public:
    /// `memory` holds the bytes, if they aren't in the file.
    Source(const std::string& file, const std::optional<std::string_view>& memory,
           LineEnds lineEnds)
        : file_(file), lineEnds_(lineEnds)
    {
        std::error_code ignored;
        if (memory)
            input_.use(memory->data(), memory->size());
        isOpen_ = memory ||
                  (std::filesystem::is_regular_file(pathOf(file), ignored) && input_.open(file));
    }

    const std::string& file() const { return file_; }
    bool hasPassed(int number) const { return number + 1 < next_; }
    const std::string& line(int number)
    {
        for (; next_ < number; ++next_)
            while (hasMore() && !endsLine(*position_++))
                continue;
        if (next_ == number) {
            readLine();
            ++next_;
        }
        return current_;
    }

private:
    bool hasMore()
    {
        if (position_ == end_ && isOpen_) {
            position_ = buffer_;
            end_ = buffer_ + input_.read(buffer_, sizeof buffer_);
        }
        return position_ != end_;
    }
    /// True if `character`, which was just passed, is the end of a line, which is passed then.
    bool endsLine(char character)
    {
        if (character == '\r' && lineEnds_ == LineEnds::Any) {
            if (hasMore() && *position_ == '\n')
                ++position_;
            return true;
        }
        return character == '\n';
    }
    void readLine();

    std::string file_;
    LineEnds lineEnds_;
    SourceFile input_;
    bool isOpen_ = false;
    char buffer_[16384] = {};
    const char* position_ = buffer_;
    const char* end_ = buffer_;
    int next_ = 1;        ///< Number of the line where the file stands.
    std::string current_; ///< The line before it, trimmed.
};

void SourceLines::Source::readLine()
{
    current_.clear();
    bool isCut = false;
    // Not all at once: a line may hold most of a file.
    while (hasMore()) {
        const char character = *position_++;
        if (endsLine(character))
            break;
        if (current_.empty() && (character == ' ' || character == '\t'))
            continue;
        if (current_.size() < longest)
            current_.push_back(character);
        else
            isCut = true;
    }
    if (isCut)
        current_ += "...";
    current_.erase(current_.find_last_not_of(" \t\r") + 1);
}

SourceLines::SourceLines() = default;
SourceLines::~SourceLines() = default;

void SourceLines::setSource(std::shared_ptr<const Input> input, LineEnds lineEnds)
{
    input_ = std::move(input);
    lineEnds_ = lineEnds;
    sources_.clear();
}

std::string SourceLines::line(const std::string& file, int number)
{
    auto found = std::find_if(sources_.begin(), sources_.end(),
                              [&](const auto& source) { return source->file() == file; });
    if (found == sources_.end() || (*found)->hasPassed(number)) {
        if (found != sources_.end())
            sources_.erase(found);
        else if (sources_.size() == mostSources)
            sources_.erase(sources_.begin());
        const bool isMain = input_ && input_->name() == file;
        sources_.push_back(
            std::make_unique<Source>(file, isMain ? input_->memory() : std::nullopt, lineEnds_));
    } else {
        std::rotate(found, found + 1, sources_.end());
    }
    return sources_.back()->line(number);
}

} // namespace tavo
