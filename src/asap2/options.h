#pragma once

#include <cstdint>
#include <string_view>

namespace tavo {

/// The blocks whose words are told apart. "Any" stands for all of them in the table.
enum class Block : std::uint8_t
{
    Any,
    Module,
    Measurement,
    Instance,
    Structure,
    Component,
    Method,
    Formula,
    Table,
    ModCommon,
    Ccp,
    Raster,
    TpBlob,
    QuantityCcp,
    QuantityKwp,
    QuantityXcp,
    DaqEvent,
    EventList,
    Xcp,
    Daq,
    Event,
    Can,
    CanFd,
    Ethernet,
    OtherTransport
};

/// What something is taken from, by block and word. `Known` stands for all words of which nothing
/// is taken, `Unknown` for all that no row has.
enum class Option : std::uint16_t
{
    Unknown,
    Known,
#define TAVO_OPTION(block, word, fields) block##_##word,
#define TAVO_BLOCK(block, word) block##_##word##_block,
#define TAVO_KNOWN(block, word, fields)
#include "asap2/options.def"
#undef TAVO_OPTION
#undef TAVO_BLOCK
#undef TAVO_KNOWN
};

/// A row of the table.
struct OptionRow
{
    Option option = Option::Unknown;
    std::string_view word;
    const char* fields = ""; ///< The kinds of the fields of a plain option.
};

/// Looks a word up that stands where an option may begin. The row is the table's, or one with
/// `Unknown`, and lives as long as the process.
const OptionRow& findOption(Block block, std::string_view word);
/// The same for the word after `/begin`.
const OptionRow& findBlock(Block block, std::string_view word);

} // namespace tavo
