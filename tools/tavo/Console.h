#pragma once

#include <cstdint>
#include <cstdio>
#include <string>

namespace tavo {

enum class ColorChoice : std::uint8_t
{
    Auto, ///< By the environment, and on terminals.
    Always,
    Never
};

/// The standard error of the program, where all its messages go, and what it can show.
class Console
{
public:
    /// Looks whether it is a terminal, and at the variables NO_COLOR, CLICOLOR_FORCE and TERM.
    Console();
    /// Wipes the status away.
    ~Console();
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;

    /// What the user wants; Auto at first.
    void chooseColors(ColorChoice choice) { choice_ = choice; }
    /// Whether to write colors to the file: the standard error, or the standard output.
    bool hasColors(std::FILE* file = stderr) const;
    /// False if a status would never be seen.
    bool hasStatus() const { return hasStatus_; }
    void disableStatus() { hasStatus_ = false; }

    /// Writes whole lines, in one piece, so that lines of processes side by side don't mix.
    void write(const std::string& lines);

    /// Shows one line, without a line end, up to the next `write` or `setStatus`; "" shows none.
    void setStatus(const std::string& line);

private:
    ColorChoice choice_ = ColorChoice::Auto;
    bool hasStatus_ = false;
    bool statusShown_ = false;
};

} // namespace tavo
