#pragma once

#include "daq/ConfigurationStream.h"

#include <string_view>

namespace tavo {

/// The standard output for a command's results, with a buffer of its own.
class StandardOutput
{
public:
    StandardOutput();

    /// Writes a text. Throws as `finish` does.
    static void print(std::string_view text);

    ConfigurationStream& stream() { return stream_; }
    /// Writes out what is left. Throws a `Failure` if not all could be written.
    void finish();

private:
    ConfigurationStream stream_;
};

} // namespace tavo
