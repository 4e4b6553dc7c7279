#pragma once

#include <cstddef>

namespace tavo {

class ConfigurationStream;
class Inventory;
struct Quantity;

/// Writes the configuration of an inventory: its interfaces and sources, and every quantity that a
/// configuration can express.
void writeInventory(ConfigurationStream& stream, const Inventory& inventory);
/// The same for those who know how many of the quantities that are: `expressibleCount`.
void writeInventory(ConfigurationStream& stream, const Inventory& inventory, std::size_t count);

} // namespace tavo
