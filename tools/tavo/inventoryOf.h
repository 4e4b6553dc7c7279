#pragma once

namespace tavo {

class Inventory;
class PhGroup;

/// Fills an inventory with what the model of a strict reading says, so that everything that works
/// on inventories serves both dialects. The group may be null; it outlives the inventory.
void fillInventory(Inventory& inventory, const PhGroup* module);

} // namespace tavo
