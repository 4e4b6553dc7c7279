#pragma once

#include "daq/ConfigurationStream.h"

#include <cstdio>
#include <string>

namespace tavo {

/// A file that is written as a whole or not at all: a temporary file next to it takes its place in
/// the end. What isn't a regular file, a device or a pipe for example, is written directly; a pipe
/// waits for its reader.
///
/// The operations throw a `Failure` for what can't be done.
class OutputFile
{
public:
    /// Creates the temporary file, or opens what is written directly. A link is followed, even to a
    /// file that doesn't exist yet, if the output may replace a file; else it counts as a file.
    OutputFile(const std::string& path, bool mayReplace);
    /// Removes the temporary file if it didn't get to its place.
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    ConfigurationStream& stream() { return stream_; }

    /// Writes out what is left and puts the file in its place, unless something has taken that in
    /// the meantime and isn't to be replaced. Nothing may follow.
    void commit();

private:
    void createTemporary();
    void putInPlace();
    void removeTemporary();

    std::string path_;
    bool mayReplace_;
    std::string target_;    ///< Where the links of `path_` lead.
    std::string temporary_; ///< "" if there is none.
    std::FILE* file_ = nullptr;
    ConfigurationStream stream_;
};

/// Throws a `Failure` unless the configuration of `input` may be written to `output`: it isn't the
/// same file, and it doesn't exist yet or `force` allows to replace it. What isn't a regular file
/// is never replaced.
void checkOutput(const std::string& input, const std::string& output, bool force);

} // namespace tavo
