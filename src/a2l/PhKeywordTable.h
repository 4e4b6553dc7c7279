#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

namespace tavo {

/// One row of a vocabulary. A row without a text closes the table.
struct PhKeywordEntry
{
    const char* text;
    std::int32_t code;
};

/// One place of the hash; free if it has no entry.
struct PhKeywordSlot
{
    std::uint32_t hash = 0;
    std::uint32_t length = 0; ///< Of the word.
    const PhKeywordEntry* entry = nullptr;
};

/// Adds one more byte of a word to its hash: bits that climb above bit 23 come back at the bottom.
constexpr std::uint32_t keywordHashStep(std::uint32_t hash, unsigned char byte)
{
    const std::uint32_t sum = byte + 2 * hash;
    return (sum & 0xFFFFFFU) + (sum >> 24);
}

/// The hash of a whole word; 0 for null and "".
std::uint32_t keywordHash(const char* text);
std::uint32_t keywordHash(std::string_view text);

/// A vocabulary: which words are keywords, and their token codes. An open-addressing hash stands
/// over rows that never change.
class PhKeywordTable
{
public:
    /// No keyword is longer than this.
    static constexpr std::size_t longest = 63;

    /// `entries` stays the caller's and outlives the table. The hash gets `size` + 1 slots, which
    /// must be more than there are rows; without memory for it, look-ups walk the rows.
    PhKeywordTable(const PhKeywordEntry* entries, std::int32_t size);

    /// The code of a word, compared byte for byte; 0 if it is no keyword here.
    std::int32_t lookup(std::string_view text) const;
    /// The word of a code, or null if no row has it.
    const char* keywordName(std::int32_t code) const;
    /// Fills the hash again from the rows.
    void rebuild();

private:
    bool mayHold(std::string_view text) const;

    const PhKeywordEntry* entries_;
    std::unique_ptr<PhKeywordSlot[]> slots_;
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
