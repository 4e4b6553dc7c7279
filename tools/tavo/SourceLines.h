#pragma once

#include "base/Diagnostic.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tavo {

class Input;

/// What ends a line of a description.
enum class LineEnds : std::uint8_t
{
    LineFeed, ///< For strict reading.
    Any       ///< A line feed, a carriage return, or both together.
};

/// A line of a file, or as much of it around a word as people like to see.
struct Excerpt
{
    std::string line;       ///< Without the blanks around it, harmless to a terminal.
    std::size_t indent = 0; ///< Characters of `line` before the word.
    std::size_t width = 0;  ///< Characters of the word; 0 if nobody knows where it stands.
    unsigned column = 0;    ///< Of the word in the file's line, in characters from 1 on, or 0.
};

/// The lines of a description and of the files that it includes, for diagnostics.
class SourceLines
{
public:
    SourceLines();
    ~SourceLines();

    /// What the lines come from from now on, with what it includes, and how they end.
    void setSource(std::shared_ptr<const Input> input, LineEnds lineEnds);
    /// The line of a diagnostic that has a file. Empty if there is no such line.
    Excerpt excerpt(const Diagnostic& diagnostic);

private:
    class Source;

    Source& sourceOf(const std::string& file);

    std::shared_ptr<const Input> input_; ///< Null at first.
    LineEnds lineEnds_ = LineEnds::Any;
    std::vector<std::unique_ptr<Source>> sources_; ///< The one in use last stands last.
};

} // namespace tavo
