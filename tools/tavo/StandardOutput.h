#pragma once

#include "daq/ConfigurationStream.h"

#include <cstdio>
#include <string_view>

namespace tavo {

/// The standard output for a command's results, with a buffer of its own.
///
/// A terminal must not obey what a description holds, so it gets escapes for control characters, as
/// `printable` makes them, once all is there. Files and pipes get the bytes.
class StandardOutput
{
public:
    enum class Content
    {
        Bytes,   ///< Of a description.
        Harmless ///< To a terminal, which gets them as they are, with their colors.
    };

    /// Throws a `Failure` if there is no place for what a terminal is to show.
    explicit StandardOutput(Content content = Content::Bytes);
    ~StandardOutput();
    StandardOutput(const StandardOutput&) = delete;
    StandardOutput& operator=(const StandardOutput&) = delete;

    /// Writes a text. Throws as `finish` does.
    static void print(std::string_view text);

    ConfigurationStream& stream() { return stream_; }
    /// Writes out what is left. Throws a `Failure` if not all could be written.
    void finish();

private:
    std::FILE* scratch_ = nullptr; ///< What a terminal is to show; null for all else.
    ConfigurationStream stream_;
};

} // namespace tavo
