#pragma once

#include <cstddef>
#include <cstdint>

namespace tavo {

class Inventory;
class Notices;
struct Quantity;

/// Why a configuration can't express a quantity.
enum class Obstacle : std::uint8_t
{
    None,
    Integer64,      ///< A_UINT64, A_INT64
    Float16,        ///< FLOAT16_IEEE
    MixedByteOrder, ///< MSB_FIRST_MSW_LAST, MSB_LAST_MSW_FIRST
    Address,        ///< Beyond 32 bits, as the next two.
    AddressExtension,
    BitMask,
    Pointer ///< ADDRESS_TYPE: the address in the description is the pointer's.
};

Obstacle obstacleOf(const Inventory& inventory, const Quantity& quantity);
/// A few words for people: "64-bit integer" and so on; "" for `None`.
const char* obstacleText(Obstacle obstacle);

/// How many quantities a configuration holds.
std::size_t expressibleCount(const Inventory& inventory);

/// Reports what a configuration doesn't say, or not exactly: quantities that are left out, arrays,
/// conversions that are no line, transports other than CAN, events of quantities, and numbers that
/// six decimals can't hold.
void reportLosses(const Inventory& inventory, Notices& notices);

} // namespace tavo
