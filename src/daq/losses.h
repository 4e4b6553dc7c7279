#pragma once

#include "inventory/Inventory.h"

#include <cstddef>
#include <cstdint>

namespace tavo {

class Notices;

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

/// False if there is an obstacle, and seldom otherwise.
inline bool isPlain(const Inventory& inventory, const Quantity& quantity)
{
    const ByteOrder order = inventory.byteOrderOf(quantity);
    const bool isUsualOrder = order <= ByteOrder::Intel;
    const bool is64Bits = quantity.type == DataType::UInt64 || quantity.type == DataType::Int64;
    const bool isUsualType = !is64Bits && quantity.type != DataType::Float16;
    std::uint64_t bits = 0;
    bool isUnusual = quantity.isPointer;
    for (const Pattern64* pattern :
         {&quantity.address, &quantity.addressExtension, &quantity.bitMask}) {
        bits |= pattern->bits;
        isUnusual |= pattern->isNegative | pattern->isBeyond64;
    }
    return isUsualOrder && isUsualType && !isUnusual && bits >> 32 == 0;
}

/// The obstacle of a quantity that may have one.
Obstacle findObstacle(const Inventory& inventory, const Quantity& quantity);

inline Obstacle obstacleOf(const Inventory& inventory, const Quantity& quantity)
{
    return isPlain(inventory, quantity) ? Obstacle::None : findObstacle(inventory, quantity);
}

/// A few words for people: "64-bit integer" and so on; "" for `None`.
const char* obstacleText(Obstacle obstacle);

/// Visits the quantities that a configuration holds, in their order.
template <class Visit> void forEachExpressible(const Inventory& inventory, Visit visit)
{
    inventory.forEachQuantity([&](const Quantity& quantity) {
        if (obstacleOf(inventory, quantity) == Obstacle::None)
            visit(quantity);
    });
}

/// How many quantities a configuration holds.
std::size_t expressibleCount(const Inventory& inventory);

/// Reports what a configuration doesn't say, or not exactly: quantities that are left out, arrays,
/// conversions that are no line, transports other than CAN, events of quantities, and numbers that
/// six decimals can't hold. Returns how many quantities a configuration holds.
std::size_t reportLosses(const Inventory& inventory, Notices& notices);

} // namespace tavo
