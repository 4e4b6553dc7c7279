#pragma once

#include "daq/ConfigurationStream.h"

#include <cstdio>
#include <string>

namespace tavo {

/// A file that is written as a whole or not at all: a temporary file beside it takes its place in
/// the end. What isn't a regular file, a device or a pipe for example, is written straight.
///
/// The operations throw a `Failure` for what can't be done.
class OutputFile
{
public:
    /// Creates the temporary file, or opens what isn't a regular file.
    explicit OutputFile(const std::string& path);
    /// Removes the temporary file if it didn't get to its place.
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    ConfigurationStream& stream() { return stream_; }

    /// Writes out what is left and puts the file in its place. Nothing may follow.
    void commit();

private:
    void createTemporary();
    void removeTemporary();

    std::string path_;
    std::string target_;    ///< What `path_` names if it is a link.
    std::string temporary_; ///< "" if there is none.
    std::FILE* file_ = nullptr;
    ConfigurationStream stream_;
};

/// Throws a `Failure` unless the configuration of `input` may be written to `output`: it isn't the
/// same file, and it doesn't exist yet or `force` allows to replace it. What isn't a regular file
/// is never replaced.
void checkOutput(const std::string& input, const std::string& output, bool force);

} // namespace tavo
