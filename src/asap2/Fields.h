#pragma once

#include "asap2/Number.h"
#include "inventory/Inventory.h"

#include <string>
#include <vector>

namespace tavo {

/// A field of a block or of an option, after its kind was checked.
struct Field
{
    std::string_view text; ///< Of a word or a text; in the inventory, or in `storage`.
    std::string storage;
    std::uint64_t prepared = 0;  ///< Of the name of a method: `NameTable::prepare`.
    Number number;               ///< Of a number.
    std::vector<Number> further; ///< The numbers after it, if there may be more.
};

/// An address, an extension or a mask.
Pattern64 patternOf(const Number& number);
/// The number as a limit.
Limit limitOf(const Number& number);

} // namespace tavo
