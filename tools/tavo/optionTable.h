#pragma once

#include "Failure.h"

#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

/// The commands of the program and their options: a row for each, from which the command line is
/// read and its help is made.
namespace tavo {

class Diagnostics;
struct Options;

/// A set of commands, one bit each.
using CommandSet = unsigned;

struct CommandRow
{
    const char* name;
    CommandSet bit;
    const char* summary;
    const char* usage;     ///< What follows "tavo " on the line or lines.
    const char* arguments; ///< Lines of the help about what isn't an option.
    const char* notes;     ///< What the help ends with.
    std::size_t mostFiles;
    ExitCode (*run)(const Options& options, Diagnostics& diagnostics);
};

// In the order in which a row is read. NOLINTNEXTLINE(clang-analyzer-optin.performance.Padding)
struct ProgramOption
{
    char letter; ///< 0 if there is no short form.
    const char* name;
    const char* value; ///< What it takes, in the words of the help; null for nothing.
    const char*
        choices; ///< The values that there are, with a blank between them; null if any goes.
    CommandSet commands;
    const char* help;
    /// Takes the value, which is one of the choices. Throws a `BadValue`.
    void (*apply)(Options& options, const std::string& value);
};

/// What is wrong with the value of an option, without the name of the option.
class BadValue : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Both in the order of the help. A name may have several rows, each for other commands.
std::span<const CommandRow> commandRows();
std::span<const ProgramOption> optionRows();

/// The row of the command, or null.
const CommandRow* findCommand(std::string_view name);

/// The place of a value among the choices of an option; the value is one of them.
std::size_t choiceNumber(std::string_view choices, std::string_view value);
/// Hands each word of the choices to `visit`.
template <class Visit> void forEachChoice(std::string_view choices, Visit visit)
{
    while (!choices.empty()) {
        const std::size_t end = choices.find(' ');
        visit(choices.substr(0, end));
        choices.remove_prefix(end == std::string_view::npos ? choices.size() : end + 1);
    }
}

} // namespace tavo
