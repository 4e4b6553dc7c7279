#pragma once

#include "support/files.h"

#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

/// What the program gave.
struct ProgramRun
{
    int exitCode = 0; ///< Negative for the signal that ended the program.
    std::string out;
    std::string err;
};

/// Runs the program in a folder of its own.
class ProgramTest : public testing::Test
{
protected:
    std::string path(const std::string& name) const { return folder_.path(name); }
    std::string content(const std::string& name) const { return readFile(path(name)); }
    void write(const std::string& name, std::string_view bytes) const
    {
        writeFile(path(name), bytes);
    }
    /// The names of all entries of a folder in this folder, sorted, each with a blank after it.
    std::string names(const std::string& folder = "") const;

    /// Runs `tavo` with these words, between which blanks stand, and waits until it and all
    /// processes that it has started are over. `meanwhile` gets the number of the process.
    ProgramRun tavo(const std::string& words,
                    const std::function<void(pid_t)>& meanwhile = {}) const;

    std::vector<std::string> environment_; ///< Added variables, as NAME=VALUE.
    std::string standardInput_;            ///< A file in the folder to read from.
    std::string standardOutput_;           ///< A file to write to, instead of `ProgramRun::out`.
    bool onTerminal_ = false;              ///< The standard error is a terminal, else a pipe.
    unsigned long fileSizeLimit_ = 0;      ///< A write beyond it fails; 0 for none.

private:
    [[noreturn]] void becomeProgram(const std::string& words) const;

    TemporaryFolder folder_;
};
