#pragma once

#include "conversions.h"
#include "differences.h"

namespace tavo {

/// Sets of properties are bits, in the order of the properties of the kind of object.

/// The properties that differ.
std::uint32_t differingProperties(const Interface& before, const Interface& after);
std::uint32_t differingProperties(const Source& before, const Source& after);
std::uint32_t differingProperties(const Inventory& before, const Quantity& quantityBefore,
                                  const Inventory& after, const Quantity& quantityAfter,
                                  const Conversions& conversions);

/// Those of a quantity that say where it is.
extern const std::uint32_t placeProperties;

/// What the properties of the set were and are.
std::vector<PropertyChange> propertyChanges(std::uint32_t properties, const Interface& before,
                                            const Interface& after);
std::vector<PropertyChange> propertyChanges(std::uint32_t properties, const Source& before,
                                            const Source& after);
std::vector<PropertyChange> propertyChanges(std::uint32_t properties, const Inventory& before,
                                            const Quantity& quantityBefore, const Inventory& after,
                                            const Quantity& quantityAfter,
                                            std::size_t& comparedRows);

} // namespace tavo
