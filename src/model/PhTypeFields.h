#pragma once

#include "model/PhConversionRef.h"
#include "model/enumerations.h"

namespace tavo {

/// What a file says of a type, except its mask. It stands in the `PhType`, or in the entity as long
/// as nobody has asked that for its type.
struct PhTypeFields
{
    [[no_unique_address]] PhConversionRef conversion;
    PhBaseType baseType : 8 = PhBaseType::BtUndefined;
    PhEndian endian : 8 = PhEndian::BigEndian;
    std::int32_t bitCount = 0; ///< Width of the stored value.
};

} // namespace tavo
