#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace tavo {

class Input;

/// What ends a line of a description.
enum class LineEnds : std::uint8_t
{
    LineFeed, ///< For strict reading.
    Any       ///< A line feed, a carriage return, or both together.
};

/// The lines of a description and of the files that it includes, for diagnostics. Those of one file
/// come in ascending order, so each file is read once, whichever other ones come between.
class SourceLines
{
public:
    SourceLines();
    ~SourceLines();

    /// What the lines come from from now on, with what it includes, and how they are counted.
    void setSource(std::shared_ptr<const Input> input, LineEnds lineEnds);
    /// The line of this number, from 1 on, without the blanks around it: the bytes of the file, or
    /// UTF-8 for one in UTF-16 or UTF-32. A long line is cut. "" if there is no such line.
    std::string line(const std::string& file, int number);

private:
    class Source;

    std::shared_ptr<const Input> input_; ///< Null at first.
    LineEnds lineEnds_ = LineEnds::Any;
    std::vector<std::unique_ptr<Source>> sources_; ///< The one in use last stands last.
};

} // namespace tavo
