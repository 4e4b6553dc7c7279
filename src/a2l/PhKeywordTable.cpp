#include "a2l/PhKeywordTable.h"

#include "a2l/tokens.h"

#include <cstddef>

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

template <std::size_t Size> constexpr bool codesDiffer(const PhKeywordEntry (&entries)[Size])
{
    for (std::size_t i = 0; i < Size; ++i)
        for (std::size_t j = 0; j < i; ++j)
            if (entries[i].code == entries[j].code)
                return false;
    return true;
}

static_assert(codesDiffer(coreEntries) && codesDiffer(enumEntries) && codesDiffer(ccpEntries) &&
              codesDiffer(xcpEntries) && codesDiffer(kwpEntries));

constexpr PhKeywordSlots<512> coreSlots(coreEntries);
constexpr PhKeywordSlots<128> enumSlots(enumEntries);
constexpr PhKeywordSlots<128> ccpSlots(ccpEntries);
constexpr PhKeywordSlots<512> xcpSlots(xcpEntries);
constexpr PhKeywordSlots<128> kwpSlots(kwpEntries);

} // namespace

constinit const PhKeywordTable coreKeywords(coreEntries, coreSlots);
constinit const PhKeywordTable enumKeywords(enumEntries, enumSlots);
constinit const PhKeywordTable ccpKeywords(ccpEntries, ccpSlots);
constinit const PhKeywordTable xcpKeywords(xcpEntries, xcpSlots);
constinit const PhKeywordTable kwpKeywords(kwpEntries, kwpSlots);

const char* PhKeywordTable::keywordName(std::int32_t code) const
{
    for (const PhKeywordEntry* entry = entries_; entry->text; ++entry)
        if (entry->code == code)
            return entry->text;
    return nullptr;
}

} // namespace tavo
