#pragma once

#include "differences.h"

namespace tavo {

/// Tells which conversions of two descriptions are the same, whatever their names and however they
/// are written: those that convert alike.
class Conversions
{
public:
    /// Looks at each method and table once. Both inventories outlive the object.
    Conversions(const Inventory& before, const Inventory& after);

    bool isSame(const Quantity& before, const Quantity& after) const
    {
        return numberOf(before_, beforeNumbers_, before) == numberOf(after_, afterNumbers_, after);
    }

private:
    using Numbers = std::vector<std::uint32_t>;

    static std::uint32_t numberOf(const Inventory& inventory, const Numbers& numbers,
                                  const Quantity& quantity);

    const Inventory& before_;
    const Inventory& after_;
    Numbers beforeNumbers_; ///< By the index of a method. 0 is that of no conversion at all.
    Numbers afterNumbers_;
};

/// Adds what differs of the conversions of two quantities. `comparedRows` counts the rows of the
/// tables that were compared; beyond ten million none is any more.
void addConversionChanges(std::vector<PropertyChange>& changes, const Inventory& before,
                          const Quantity& quantityBefore, const Inventory& after,
                          const Quantity& quantityAfter, std::size_t& comparedRows);

} // namespace tavo
