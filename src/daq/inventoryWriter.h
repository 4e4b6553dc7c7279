#pragma once

namespace tavo {

class ConfigurationStream;
class Inventory;
struct Quantity;

/// Writes the configuration of an inventory: its interfaces and sources, and every quantity that a
/// configuration can express.
void writeInventory(ConfigurationStream& stream, const Inventory& inventory);

} // namespace tavo
