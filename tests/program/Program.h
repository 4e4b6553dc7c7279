#pragma once

#include <filesystem>
#include <string>
#include <sys/types.h>
#include <vector>

/// How the program is run. By default it writes to pipes.
struct Setting
{
    std::filesystem::path folder;         ///< The current one; "" keeps that of the test.
    std::vector<std::string> environment; ///< Added variables, as NAME=VALUE.
    std::string standardOutput;           ///< A file to write to instead.
    bool onTerminal = false;              ///< The standard error is a terminal.
    long fileSizeLimit = 0;               ///< A write beyond it fails; 0 for none.
};

/// What the program gave.
struct ProgramRun
{
    int exitCode = 0; ///< Negative for the signal that ended the program.
    std::string out;
    std::string err;
};

/// The program while it runs.
class RunningProgram
{
public:
    explicit RunningProgram(const std::vector<std::string>& arguments, const Setting& setting = {});
    ~RunningProgram();
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;

    void sendSignal(int number) const;
    /// Waits until the program and all processes that it has started are over.
    ProgramRun finish();

private:
    pid_t process_ = 0;
    int out_ = -1;
    int err_ = -1;
};

ProgramRun run(const std::vector<std::string>& arguments, const Setting& setting = {});
