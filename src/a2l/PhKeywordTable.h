#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <type_traits>

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

/// A part of a text as a number, its first byte lowest on every processor and in the compiler.
template <class Number> constexpr Number bytesFrom(const char* text)
{
    Number number = 0;
    if (!std::is_constant_evaluated() && std::endian::native == std::endian::little) {
        std::memcpy(&number, text, sizeof number);
        return number;
    }
    for (std::size_t i = sizeof number; i > 0; --i)
        number = number << 8 | static_cast<unsigned char>(text[i - 1]);
    return number;
}

/// The hash of a word, of its length and of its first and last bytes.
constexpr std::uint32_t keywordHash(std::string_view text)
{
    constexpr std::size_t longPart = sizeof(std::uint64_t);
    constexpr std::size_t shortPart = sizeof(std::uint32_t);
    std::uint64_t first = 0;
    std::uint64_t last = text.size();
    if (text.size() >= longPart) {
        first = bytesFrom<std::uint64_t>(text.data());
        last += bytesFrom<std::uint64_t>(text.data() + text.size() - longPart);
    } else if (text.size() >= shortPart) {
        first = bytesFrom<std::uint32_t>(text.data());
        last += bytesFrom<std::uint32_t>(text.data() + text.size() - shortPart);
    } else {
        for (const char c : text)
            first = first << 8 | static_cast<unsigned char>(c);
    }
    // Two odd numbers without a pattern in their bits.
    const std::uint64_t hash = first * 0x9E3779B97F4A7C15 ^ last * 0xC2B2AE3D27D4EB4F;
    return static_cast<std::uint32_t>(hash >> 32);
}

/// The place among so many at which the search for a word of this hash begins.
constexpr std::uint32_t keywordSlot(std::uint32_t hash, std::uint32_t slotCount)
{
    return static_cast<std::uint32_t>(std::uint64_t{hash} * slotCount >> 32);
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
            std::uint32_t slot = keywordSlot(hash, SlotCount);
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
    /// Rows and slots outlive the table.
    template <std::uint32_t SlotCount>
    consteval PhKeywordTable(const PhKeywordEntry* entries, const PhKeywordSlots<SlotCount>& hash)
        : entries_(entries), slots_(hash.slots), slotCount_(SlotCount)
    {
    }

    /// The code of a word, compared byte for byte; 0 if it is no keyword here.
    std::int32_t lookup(std::string_view text) const;
    /// The word of a code, or null if no row has it.
    const char* keywordName(std::int32_t code) const;

private:
    const PhKeywordEntry* entries_;
    const PhKeywordSlot* slots_;
    std::uint32_t slotCount_;
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
