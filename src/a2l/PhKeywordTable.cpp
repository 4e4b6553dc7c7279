#include "a2l/PhKeywordTable.h"

#include "a2l/tokens.h"

#include <algorithm>
#include <cstddef>
#include <new>

namespace tavo {

namespace {

constexpr PhKeywordEntry coreEntries[] = {
#define TAVO_KEYWORD(enumerator, word, code) {word, enumerator},
#include "a2l/coreKeywords.def"
    {nullptr, -1},
};

#define TAVO_KEYWORD(enumerator, word) {word, enumWord::enumerator},
constexpr PhKeywordEntry enumEntries[] = {
#include "a2l/enumKeywords.def"
    {nullptr, -1},
};

#define TAVO_KEYWORD(enumerator, word) {word, ccp::enumerator},
constexpr PhKeywordEntry ccpEntries[] = {
    {"/begin", T_BEGIN},
    {"/end", T_END},
#include "a2l/ccpKeywords.def"
    {nullptr, -1},
};

#define TAVO_KEYWORD(enumerator, word) {word, xcp::enumerator},
constexpr PhKeywordEntry xcpEntries[] = {
    {"/begin", T_BEGIN},
    {"/end", T_END},
#include "a2l/xcpKeywords.def"
    {nullptr, -1},
};

#define TAVO_KEYWORD(enumerator, word) {word, kwp::enumerator},
#define TAVO_KEYWORD_WITH_CODE(enumerator, word, code) {word, kwp::enumerator},
constexpr PhKeywordEntry kwpEntries[] = {
    {"/begin", T_BEGIN},
    {"/end", T_END},
#include "a2l/kwpKeywords.def"
    {nullptr, -1},
};

template <std::size_t Size> constexpr std::size_t rows(const PhKeywordEntry (&)[Size])
{
    return Size - 1;
}

template <std::size_t Size> constexpr bool codesDiffer(const PhKeywordEntry (&entries)[Size])
{
    for (std::size_t i = 0; i < Size; ++i)
        for (std::size_t j = 0; j < i; ++j)
            if (entries[i].code == entries[j].code)
                return false;
    return true;
}

template <std::size_t Size> constexpr bool wordsFit(const PhKeywordEntry (&entries)[Size])
{
    return std::all_of(entries, entries + Size - 1, [](const PhKeywordEntry& entry) {
        return std::string_view(entry.text).size() <= PhKeywordTable::longest;
    });
}

static_assert(wordsFit(coreEntries) && wordsFit(enumEntries) && wordsFit(ccpEntries) &&
              wordsFit(xcpEntries) && wordsFit(kwpEntries));
static_assert(rows(coreEntries) == 154 && codesDiffer(coreEntries));
static_assert(rows(enumEntries) == 42 && codesDiffer(enumEntries));
static_assert(rows(ccpEntries) == 53 && codesDiffer(ccpEntries));
static_assert(rows(xcpEntries) == 211 && codesDiffer(xcpEntries));
static_assert(rows(kwpEntries) == 31 && codesDiffer(kwpEntries));

} // namespace

const PhKeywordTable coreKeywords(coreEntries, 400);
const PhKeywordTable enumKeywords(enumEntries, 100);
const PhKeywordTable ccpKeywords(ccpEntries, 200);
const PhKeywordTable xcpKeywords(xcpEntries, 300);
const PhKeywordTable kwpKeywords(kwpEntries, 100);

std::uint32_t keywordHash(const char* text)
{
    return text ? keywordHash(std::string_view(text)) : 0;
}

std::uint32_t keywordHash(std::string_view text)
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

namespace {

std::uint64_t lastCharacterBit(std::string_view text)
{
    return std::uint64_t{1} << (static_cast<unsigned char>(text.back()) & 63U);
}

} // namespace

PhKeywordTable::PhKeywordTable(const PhKeywordEntry* entries, std::int32_t size)
    : entries_(entries), slotCount_(static_cast<std::uint32_t>(size) + 1)
{
    for (const PhKeywordEntry* entry = entries_; entry->text; ++entry) {
        const std::string_view text = entry->text;
        lastCharacters_[text.size()] |= lastCharacterBit(text);
    }
    rebuild();
}

void PhKeywordTable::rebuild()
{
    if (!slots_)
        slots_.reset(new (std::nothrow) PhKeywordSlot[slotCount_]);
    if (!slots_)
        return;
    std::fill_n(slots_.get(), slotCount_, PhKeywordSlot());
    for (const PhKeywordEntry* entry = entries_; entry->text; ++entry) {
        const std::string_view text = entry->text;
        const std::uint32_t hash = keywordHash(text);
        std::uint32_t slot = hash % slotCount_;
        while (slots_[slot].entry)
            slot = (slot + 1) % slotCount_;
        slots_[slot] = {hash, static_cast<std::uint32_t>(text.size()), entry};
    }
}

bool PhKeywordTable::mayHold(std::string_view text) const
{
    return !text.empty() && text.size() <= longest &&
           (lastCharacters_[text.size()] & lastCharacterBit(text)) != 0;
}

std::int32_t PhKeywordTable::lookup(std::string_view text) const
{
    if (!mayHold(text))
        return 0;
    if (!slots_) {
        for (const PhKeywordEntry* entry = entries_; entry->text; ++entry)
            if (text == entry->text)
                return entry->code;
        return 0;
    }
    const std::uint32_t hash = keywordHash(text);
    for (std::uint32_t i = hash % slotCount_; slots_[i].entry; i = (i + 1) % slotCount_) {
        const PhKeywordSlot& slot = slots_[i];
        if (slot.hash == hash && text == std::string_view(slot.entry->text, slot.length))
            return slot.entry->code;
    }
    return 0;
}

const char* PhKeywordTable::keywordName(std::int32_t code) const
{
    for (const PhKeywordEntry* entry = entries_; entry->text; ++entry)
        if (entry->code == code)
            return entry->text;
    return nullptr;
}

} // namespace tavo
