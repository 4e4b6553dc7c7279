#pragma once

#include <fstream>
#include <string>

namespace tavo {

/// The lines of a description, for diagnostics. They come in ascending order, so each file is read
/// once.
class SourceLines
{
public:
    /// The line of this number, from 1 on, without the blanks around it, as the bytes of the file.
    /// A long line is cut. "" if there is no such line, and for what can't be read a second time, a
    /// pipe for example.
    std::string line(const std::string& file, int number);

private:
    std::string file_;
    std::ifstream stream_;
    int next_ = 0;        ///< Number of the line where the stream stands.
    std::string current_; ///< The line before it, trimmed.
};

} // namespace tavo
