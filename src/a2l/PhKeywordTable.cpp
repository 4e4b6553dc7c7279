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
    std::uint32_t hash = 0;
    if (text)
        for (; *text != '\0'; ++text)
            hash = keywordHashStep(hash, static_cast<unsigned char>(*text));
    return hash;
}

PhKeywordTable::PhKeywordTable(const PhKeywordEntry* entries, std::int32_t size)
    : entries_(entries), slotCount_(static_cast<std::uint32_t>(size) + 1)
{
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
        const std::uint32_t hash = keywordHash(entry->text);
        std::uint32_t slot = hash % slotCount_;
        while (slots_[slot].entry)
            slot = (slot + 1) % slotCount_;
        slots_[slot] = {hash, entry};
    }
}

std::int32_t PhKeywordTable::lookup(const char* text) const
{
    return lookup(text, keywordHash(text));
}

std::int32_t PhKeywordTable::lookup(std::string_view text, std::uint32_t hash) const
{
    if (!slots_) {
        for (const PhKeywordEntry* entry = entries_; entry->text; ++entry)
            if (text == entry->text)
                return entry->code;
        return 0;
    }
    for (std::uint32_t slot = hash % slotCount_; slots_[slot].entry; slot = (slot + 1) % slotCount_)
        if (slots_[slot].hash == hash && text == slots_[slot].entry->text)
            return slots_[slot].entry->code;
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
