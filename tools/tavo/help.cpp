#include "help.h"

#include "optionTable.h"

namespace tavo {

namespace {

constexpr const char* programHead =
    "Turns ECU descriptions (ASAM MCD-2 MC, .a2l) into data-acquisition configurations.\n"
    "Usage: tavo COMMAND [OPTIONS] ...\n\nCommands:\n";

constexpr const char* programNotes = R"(Examples:
  tavo convert ecu.a2l                            writes ecu.ini
  tavo convert --jobs 4 --output-dir out *.a2l    four at a time
  tavo check ecu.a2l                              tells what is wrong with it
  tavo list ecu.a2l --match 'Eng*'                shows what can be measured

Exit codes:
  0  all is well
  1  a description is faulty, or has a warning and --werror is given, or differs
  2  the command line is wrong
  3  a file can't be read or written
Of several files, the highest code counts.

'tavo COMMAND --help' and 'tavo help COMMAND' tell more about a command.
)";

/// A line of two columns.
void appendRow(std::string& text, std::string left, const char* right)
{
    constexpr std::size_t width = 26;
    left.insert(0, "  ");
    left.resize(left.size() < width ? width : left.size() + 1, ' ');
    text.append(left).append(right).append("\n");
}

void appendOption(std::string& text, char letter, const char* name, const char* value,
                  const char* help)
{
    std::string left = letter != 0 ? std::string("-") + letter + ", --" : "    --";
    left.append(name);
    if (value)
        left.append(" ").append(value);
    appendRow(text, left, help);
}

/// The lines of a command's usage, each after the program's name.
std::string usageOf(const CommandRow& command)
{
    std::string usage = command.usage;
    for (std::size_t end = 0; (end = usage.find('\n', end)) != std::string::npos; ++end)
        usage.insert(end + 1, "       tavo ");
    return "Usage: tavo " + usage + "\n";
}

} // namespace

std::string helpOf(const CommandRow* command)
{
    std::string text;
    if (command) {
        text.append(command->summary).append("\n").append(usageOf(*command));
        text.append("\nArguments:\n").append(command->arguments);
    } else {
        text = programHead;
        for (const CommandRow& row : commandRows())
            appendRow(text, row.name, row.summary);
    }
    text.append("\nOptions:\n");
    for (const ProgramOption& row : optionRows())
        if (command ? (row.commands & command->bit) != 0 : row.commands == ~CommandSet{0})
            appendOption(text, row.letter, row.name, row.value, row.help);
    if (!command)
        appendOption(text, 'V', "version", nullptr, "Show the version");
    text.append("\n").append(command ? command->notes : programNotes);
    return text;
}

} // namespace tavo
