#pragma once

#include "Console.h"
#include "Description.h"
#include "Diagnostics.h"
#include "Listing.h"
#include "Selection.h"
#include "differences.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tavo {

enum class ListFormat : std::uint8_t
{
    Table,
    Csv,
    Json
};

/// How what `check` finds is reported.
enum class CheckFormat : std::uint8_t
{
    Gcc, ///< As compilers report it, for people and editors.
    Json,
    Sarif
};

enum class DiffFormat : std::uint8_t
{
    Text,
    Json
};

/// What the command line asks for. Each command reads what its rows of the table of options set
/// (optionTable.cpp), and leaves the rest alone.
struct Options
{
    // All commands.
    std::vector<std::string> files; ///< The arguments after the command, at least one.
    Volume volume = Volume::Normal;
    ColorChoice colors = ColorChoice::Auto;

    /// The options as they were given, without those that concern several descriptions.
    std::vector<std::string> words;

    // What is read, and how strictly it is judged.
    Dialect dialect = Dialect::Wide;
    bool warningsAreErrors = false; ///< Writes nothing if there is a warning.

    // convert and normalize
    std::string outputFolder; ///< "" if there is none: `files` are an input and maybe an output.
    bool force = false;       ///< Replaces existing files.
    unsigned jobs = 1;

    // convert and list
    SelectionOptions selection;

    // convert
    std::vector<std::string> enabledPatterns;
    std::vector<std::string> enabledFiles; ///< With lists of names.

    // list
    ListFormat format = ListFormat::Table;

    KindSet listedKinds;              ///< None for the usual ones.
    std::vector<std::string> columns; ///< None for the usual ones.
    std::vector<SortKey> sortKeys;

    // diff
    CheckFormat checkFormat = CheckFormat::Gcc;
    DiffFormat diffFormat = DiffFormat::Text;
    ChangeSet shownChanges = allChanges;
};

} // namespace tavo
