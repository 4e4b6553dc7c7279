#pragma once

namespace tavo {

/// Root of all model classes: no data, no operations, nothing virtual. `Ph` is short for physical,
/// which is what the quantities of a model are.
class Ph
{
};

} // namespace tavo
