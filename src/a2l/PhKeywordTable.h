#pragma once

#include "base/WordKey.h"
#include "base/sameBytes.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tavo {

/// One row of a vocabulary. A row without a text closes the rows.
struct PhKeywordEntry
{
    const char* text;
    std::int32_t code;
};

/// One place of the hash, of a size by which it is found without a multiplication.
struct alignas(32) PhKeywordSlot
{
    WordKey key;
    std::int32_t code = 0;
    std::uint16_t length = 0; ///< Of the word.
    std::uint16_t row = 0;    ///< From 1 on; 0 in a free slot.
};

/// An open-addressing hash over the rows of a vocabulary, made by the compiler. The slots are a
/// power of two, and more than the rows.
template <std::uint32_t SlotCount> struct PhKeywordSlots
{
    static_assert(std::has_single_bit(SlotCount));

    consteval explicit PhKeywordSlots(const PhKeywordEntry* entries)
    {
        for (std::uint16_t row = 1; entries[row - 1].text; ++row) {
            const PhKeywordEntry& entry = entries[row - 1];
            const std::string_view text = entry.text;
            const WordKey key(text);
            std::uint32_t slot = key.hash(text.size()) % SlotCount;
            while (slots[slot].row != 0)
                slot = (slot + 1) % SlotCount;
            slots[slot] = {key, entry.code, static_cast<std::uint16_t>(text.size()), row};
        }
    }

    PhKeywordSlot slots[SlotCount];
};

/// A vocabulary: which words are keywords, and their token codes.
class PhKeywordTable
{
public:
    /// Rows and slots outlive the table.
    template <std::uint32_t SlotCount>
    consteval PhKeywordTable(const PhKeywordEntry* entries, const PhKeywordSlots<SlotCount>& hash)
        : entries_(entries), slots_(hash.slots), lastSlot_(SlotCount - 1)
    {
    }

    /// The code of a word, compared byte for byte; 0 if it is no keyword here.
    std::int32_t lookup(std::string_view text) const;
    /// The word of a code, or null if no row has it.
    const char* keywordName(std::int32_t code) const;

private:
    const PhKeywordEntry* entries_;
    const PhKeywordSlot* slots_;
    std::uint32_t lastSlot_;
};

inline std::int32_t PhKeywordTable::lookup(std::string_view text) const
{
    const WordKey key(text);
    std::uint32_t i = key.hash(text.size()) & lastSlot_;
    for (; slots_[i].row != 0; i = (i + 1) & lastSlot_) {
        const PhKeywordSlot& slot = slots_[i];
        if (slot.key == key && slot.length == text.size() &&
            (text.size() <= WordKey::size ||
             sameBytes(text, {entries_[slot.row - 1].text, slot.length})))
            return slot.code;
    }
    return 0;
}

/// Outside of the sections below. A reader starts with it.
extern const PhKeywordTable coreKeywords;
/// Enumerated fields only. It holds neither /begin nor /end.
extern const PhKeywordTable enumKeywords;
/// The body of an IF_DATA ASAP1B_CCP section.
extern const PhKeywordTable ccpKeywords;
/// The body of an IF_DATA XCP section.
extern const PhKeywordTable xcpKeywords;
/// The body of a KWP section, which no parser reads at present.
extern const PhKeywordTable kwpKeywords;

} // namespace tavo
