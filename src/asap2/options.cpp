#include "asap2/options.h"

#include "base/sameBytes.h"

#include <array>
#include <cstddef>

namespace tavo {

namespace {

enum class Form : std::uint8_t
{
    Plain,
    AsBlock,
    Either
};

struct Row
{
    Block block;
    Form form;
    std::string_view word;
    OptionRow result;
};

constexpr Row rows[] = {
#define TAVO_OPTION(block, word, fields)                                                           \
    {Block::block, Form::Plain, #word, {Option::block##_##word, #word, fields}},
#define TAVO_BLOCK(block, word)                                                                    \
    {Block::block, Form::AsBlock, #word, {Option::block##_##word##_block, #word, ""}},
#define TAVO_KNOWN(block, word, fields)                                                            \
    {Block::block, Form::Either, #word, {Option::Known, #word, fields}},
#include "asap2/options.def"
#undef TAVO_OPTION
#undef TAVO_BLOCK
#undef TAVO_KNOWN
};

constexpr std::size_t slotCount = 1024;
constexpr std::uint16_t noRow = 0xFFFF;
static_assert(std::size(rows) < slotCount / 2, "the table must stay sparse");

/// Four characters of a word, the zero byte in the place of those that it hasn't got.
constexpr std::uint32_t fourOf(std::string_view word, std::size_t first)
{
    const auto at = [&](std::size_t i) {
        return std::uint32_t{static_cast<unsigned char>(word[first + i])};
    };
    const std::size_t size = word.size() - first;
    if (size >= 4)
        return at(0) | at(1) << 8U | at(2) << 16U | at(3) << 24U;
    std::uint32_t four = 0;
    for (std::size_t i = 0; i < size; ++i)
        four |= at(i) << 8U * i;
    return four;
}

/// By the length of the word, its first characters and its last ones, in which hardly two words of
/// the table are alike.
constexpr std::size_t slotOf(std::string_view word)
{
    const std::size_t lastFour = word.size() < 4 ? 0 : word.size() - 4;
    const std::uint32_t hash = fourOf(word, 0) * 0x9E3779B1U +
                               fourOf(word, lastFour) * 0x85EBCA6BU +
                               static_cast<std::uint32_t>(word.size()) * 0xC2B2AE35U;
    return (hash ^ hash >> 15U) % slotCount;
}

constexpr std::array<std::uint16_t, slotCount> makeSlots()
{
    std::array<std::uint16_t, slotCount> slots{};
    slots.fill(noRow);
    // Rows of a block before those of any block, so that its own are found first.
    for (const bool any : {false, true})
        for (std::size_t i = 0; i < std::size(rows); ++i) {
            if ((rows[i].block == Block::Any) != any)
                continue;
            std::size_t slot = slotOf(rows[i].word);
            while (slots[slot] != noRow)
                slot = (slot + 1) % slotCount;
            slots[slot] = static_cast<std::uint16_t>(i);
        }
    return slots;
}

constexpr std::array<std::uint16_t, slotCount> slots = makeSlots();

constexpr std::size_t longestRun()
{
    std::size_t longest = 0;
    std::size_t run = 0;
    for (std::size_t i = 0; i < 2 * slotCount; ++i) {
        run = slots[i % slotCount] == noRow ? 0 : run + 1;
        longest = run > longest ? run : longest;
    }
    return longest;
}

static_assert(longestRun() <= 24, "a look-up must stay short, whatever the word is");

OptionRow find(Block block, Form form, std::string_view word)
{
    if (word.empty())
        return {};
    for (std::size_t slot = slotOf(word); slots[slot] != noRow; slot = (slot + 1) % slotCount) {
        const Row& row = rows[slots[slot]];
        const bool fits = (row.block == block || row.block == Block::Any) &&
                          (row.form == form || row.form == Form::Either);
        if (fits && sameBytes(row.word, word))
            return row.result;
    }
    // One for each data type that an edition of the standard adds.
    if (block == Block::ModCommon && form == Form::Plain && word.starts_with("ALIGNMENT_"))
        return {Option::Known, "", "x"};
    return {};
}

} // namespace

OptionRow findOption(Block block, std::string_view word) { return find(block, Form::Plain, word); }

OptionRow findBlock(Block block, std::string_view word) { return find(block, Form::AsBlock, word); }

} // namespace tavo
