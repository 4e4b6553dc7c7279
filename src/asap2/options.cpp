#include "asap2/options.h"

#include "base/WordKey.h"
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
    OptionRow result;
};

constexpr Row rows[] = {
#define TAVO_OPTION(block, word, fields)                                                           \
    {Block::block, Form::Plain, {Option::block##_##word, #word, fields}},
#define TAVO_BLOCK(block, word)                                                                    \
    {Block::block, Form::AsBlock, {Option::block##_##word##_block, #word, ""}},
#define TAVO_KNOWN(block, word, fields)                                                            \
    {Block::block, Form::Either, {Option::Known, #word, fields}},
#include "asap2/options.def"
#undef TAVO_OPTION
#undef TAVO_BLOCK
#undef TAVO_KNOWN
};

/// One place of the hash over the rows.
struct Slot
{
    WordKey key;
    std::uint16_t length = 0; ///< Of the word.
    std::uint16_t row = noRow;
    Block block = Block::Any;
    Form form = Form::Plain;

    static constexpr std::uint16_t noRow = 0xFFFF;
};

constexpr std::size_t slotCount = 1024;
static_assert(std::size(rows) < slotCount / 2, "the table must stay sparse");

constexpr std::array<Slot, slotCount> makeSlots()
{
    std::array<Slot, slotCount> slots{};
    // Rows of a block before those of any block, so that its own are found first.
    for (const bool any : {false, true})
        for (std::size_t i = 0; i < std::size(rows); ++i) {
            const Row& row = rows[i];
            if ((row.block == Block::Any) != any)
                continue;
            const WordKey key(row.result.word);
            std::size_t slot = key.hash(row.result.word.size()) % slotCount;
            while (slots[slot].row != Slot::noRow)
                slot = (slot + 1) % slotCount;
            slots[slot] = {key, static_cast<std::uint16_t>(row.result.word.size()),
                           static_cast<std::uint16_t>(i), row.block, row.form};
        }
    return slots;
}

constexpr std::array<Slot, slotCount> slots = makeSlots();

constexpr std::size_t longestRun()
{
    std::size_t longest = 0;
    std::size_t run = 0;
    for (std::size_t i = 0; i < 2 * slotCount; ++i) {
        run = slots[i % slotCount].row == Slot::noRow ? 0 : run + 1;
        longest = run > longest ? run : longest;
    }
    return longest;
}

static_assert(longestRun() <= 24, "a look-up must stay short, whatever the word is");

/// One for each data type that an edition of the standard adds.
constexpr OptionRow alignment = {Option::Known, "", "x"};
constexpr OptionRow unknown;

const OptionRow& find(Block block, Form form, std::string_view word)
{
    const WordKey key(word);
    for (std::size_t i = key.hash(word.size()) % slotCount; slots[i].row != Slot::noRow;
         i = (i + 1) % slotCount) {
        const Slot& slot = slots[i];
        if (slot.key == key && slot.length == word.size() &&
            (slot.block == block || slot.block == Block::Any) &&
            (slot.form == form || slot.form == Form::Either) &&
            (word.size() <= WordKey::size || sameBytes(rows[slot.row].result.word, word)))
            return rows[slot.row].result;
    }
    if (block == Block::ModCommon && form == Form::Plain && word.starts_with("ALIGNMENT_"))
        return alignment;
    return unknown;
}

} // namespace

const OptionRow& findOption(Block block, std::string_view word)
{
    return find(block, Form::Plain, word);
}

const OptionRow& findBlock(Block block, std::string_view word)
{
    return find(block, Form::AsBlock, word);
}

} // namespace tavo
