#pragma once

#include "options.h"

namespace tavo {

struct CommandRow;

/// What the words of a command line ask for.
struct Request
{
    enum class Kind : std::uint8_t
    {
        Run,
        Help, ///< Of the command, or of the program if there is none.
        Version
    };

    Kind kind = Kind::Run;
    const CommandRow* command = nullptr; ///< Not null for `Run`.
    Options options;
};

/// Reads the words after the name of the program. Options may stand before the command, too, and
/// after the arguments; after "--" there are none. Throws a `Failure` for what the program doesn't
/// know; `request` has the choice of colors even then.
void readArguments(const std::vector<std::string>& words, Request& request);

} // namespace tavo
