#include "model/enumerations.h"

#include <cstddef>

namespace tavo {

namespace {

template <std::size_t Count>
const char* textAt(const char* const (&texts)[Count], std::int32_t value)
{
    const auto row = static_cast<std::uint32_t>(value);
    return row < Count ? texts[row] : "*Undefined*";
}

} // namespace

#define PH_TEXT(enumerator, text) text,
#define PH_ENUMERATION(type, nameFunction, values)                                                 \
    const char* nameFunction(std::int32_t value)                                                   \
    {                                                                                              \
        static constexpr const char* texts[] = {values(PH_TEXT)};                                  \
        return textAt(texts, value);                                                               \
    }
#include "model/enumerations.def"
#undef PH_TEXT

} // namespace tavo
