#pragma once

#include <cstdint>

/// The enumerations of the model and their texts. In each of them 0 means not set and the values
/// run without gaps; the rows stand in `enumerations.def`.
///
/// Each `...Name` function gives the text of a value as a constant that belongs to the library. A
/// value outside the enumeration gives "*Undefined*", with its stars, which is no value's text.
namespace tavo {

#define PH_ENUMERATOR(enumerator, text) enumerator,
#define PH_ENUMERATION(type, nameFunction, values)                                                 \
    enum class type : std::int32_t                                                                 \
    {                                                                                              \
        values(PH_ENUMERATOR)                                                                      \
    };                                                                                             \
    const char* nameFunction(std::int32_t value);
#include "model/enumerations.def"
#undef PH_ENUMERATOR

} // namespace tavo
