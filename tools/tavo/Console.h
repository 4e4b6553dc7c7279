#pragma once

#include <string>

namespace tavo {

/// The standard error of the program, where all its messages go, and what it can show.
class Console
{
public:
    /// Looks whether it is a terminal, and at the variables NO_COLOR and TERM.
    Console();
    /// Wipes the status away.
    ~Console();
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;

    bool hasColors() const { return hasColors_; }
    /// False if a status would never be seen.
    bool hasStatus() const { return hasStatus_; }
    void disableStatus() { hasStatus_ = false; }

    /// Writes whole lines, in one piece, so that lines of processes side by side don't mix.
    void write(const std::string& lines);

    /// Shows one line, without a line end, up to the next `write` or `setStatus`; "" shows none.
    void setStatus(const std::string& line);

private:
    bool hasColors_ = false;
    bool hasStatus_ = false;
    bool statusShown_ = false;
};

} // namespace tavo
