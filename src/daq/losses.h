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

// For each quantity of a description, and therefore worth no call.
inline Obstacle obstacleOf(const Inventory& inventory, const Quantity& quantity)
{
    if (quantity.isPointer)
        return Obstacle::Pointer;
    if (quantity.type == DataType::UInt64 || quantity.type == DataType::Int64)
        return Obstacle::Integer64;
    if (quantity.type == DataType::Float16)
        return Obstacle::Float16;
    const ByteOrder order = inventory.byteOrderOf(quantity);
    if (order == ByteOrder::MotorolaWordsLast || order == ByteOrder::IntelWordsFirst)
        return Obstacle::MixedByteOrder;
    if (!quantity.address.fits32())
        return Obstacle::Address;
    if (!quantity.addressExtension.fits32())
        return Obstacle::AddressExtension;
    return quantity.bitMask.fits32() ? Obstacle::None : Obstacle::BitMask;
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
