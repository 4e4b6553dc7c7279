#pragma once

#include <cstdio>
#include <functional>
#include <string>

/// True if the environment asks for the full sizes of all that is made large, with
/// TAVO_HOSTILE_FULL=1. Without it they are such that a test takes a few seconds at most, under the
/// sanitizers too.
bool isFull();

/// How a host program ended.
struct Ending
{
    int status = -1;    ///< Its exit status; -1 if a signal ended it.
    int signal = 0;     ///< The signal that ended it, or 0.
    long peakBytes = 0; ///< The most memory that it had.
};

/// Runs the smallest host there is, `tavo-host`, in a process of its own: with a stack of 256 KiB,
/// and with a limit of processor time that a pass over the input in quadratic time exceeds by far.
class Host
{
public:
    /// The host that runs.
    const char* program = TAVO_HOST;
    /// What the new process does with its files before the host begins; nothing at first.
    std::function<void()> prepare = [] {};

    /// Starts the host and waits for its end. The report goes to nowhere, unless `prepare` sends it
    /// elsewhere.
    Ending run(const std::string& input, const std::string& output);
    /// The same for an input that `write` sends through a pipe of the name `input`, which is made
    /// here and must not be there.
    Ending runPiped(const std::string& input, const std::string& output,
                    const std::function<void(std::FILE*)>& write);

private:
    void start(const std::string& input, const std::string& output);
    int openPipe(const std::string& path);
    Ending wait();

    int process_ = 0;
};

/// For use in `prepare`: makes `path` the file of a descriptor.
void redirect(int descriptor, const char* path, int flags);
