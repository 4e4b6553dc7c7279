#pragma once

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

/// One place of the hash.
struct PhKeywordSlot
{
    std::uint32_t hash = 0;
    std::uint16_t length = 0; ///< Of the word.
    std::uint16_t row = 0;    ///< From 1 on; 0 in a free slot.
};

/// Adds one more byte of a word to its hash: bits that climb above bit 23 come back at the bottom.
constexpr std::uint32_t keywordHashStep(std::uint32_t hash, unsigned char byte)
{
    const std::uint32_t sum = byte + 2 * hash;
    return (sum & 0xFFFFFFU) + (sum >> 24);
}

/// The hash of a whole word; 0 for "".
constexpr std::uint32_t keywordHash(std::string_view text)
{
    // Nothing climbs above bit 23 within the first sixteen bytes.
    constexpr std::size_t withoutFold = 16;
    std::uint32_t hash = 0;
    for (const char c : text.substr(0, withoutFold))
        hash = hash * 2 + static_cast<unsigned char>(c);
    for (std::size_t i = withoutFold; i < text.size(); ++i)
        hash = keywordHashStep(hash, static_cast<unsigned char>(text[i]));
    return hash;
}

/// An open-addressing hash over the rows of a vocabulary, made by the compiler. There must be more
/// slots than rows.
template <std::uint32_t SlotCount> struct PhKeywordSlots
{
    consteval explicit PhKeywordSlots(const PhKeywordEntry* entries)
    {
        for (std::uint16_t row = 1; entries[row - 1].text; ++row) {
            const std::string_view text = entries[row - 1].text;
            const std::uint32_t hash = keywordHash(text);
            std::uint32_t slot = hash % SlotCount;
            while (slots[slot].row != 0)
                slot = (slot + 1) % SlotCount;
            slots[slot] = {hash, static_cast<std::uint16_t>(text.size()), row};
        }
    }

    PhKeywordSlot slots[SlotCount];
};

/// A vocabulary: which words are keywords, and their token codes.
class PhKeywordTable
{
public:
    /// No keyword is longer than this.
    static constexpr std::size_t longest = 63;

    /// Rows and slots outlive the table.
    template <std::uint32_t SlotCount>
    consteval PhKeywordTable(const PhKeywordEntry* entries, const PhKeywordSlots<SlotCount>& hash)
        : entries_(entries), slots_(hash.slots), slotCount_(SlotCount)
    {
        for (const PhKeywordEntry* entry = entries; entry->text; ++entry) {
            const std::string_view text = entry->text;
            lastCharacters_[text.size()] |= lastCharacterBit(text); // no longer than `longest`
        }
    }

    /// The code of a word, compared byte for byte; 0 if it is no keyword here.
    std::int32_t lookup(std::string_view text) const;
    /// The word of a code, or null if no row has it.
    const char* keywordName(std::int32_t code) const;

private:
    static constexpr std::uint64_t lastCharacterBit(std::string_view text)
    {
        return std::uint64_t{1} << (static_cast<unsigned char>(text.back()) & 63U);
    }
    bool mayHold(std::string_view text) const;

    const PhKeywordEntry* entries_;
    const PhKeywordSlot* slots_;
    std::uint32_t slotCount_;
    /// For each length of a keyword the characters that keywords of this length end with, as bits
    /// by the character's low six bits. Most names are told from keywords by these two alone.
    std::uint64_t lastCharacters_[longest + 1] = {};
};

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
