#pragma once

#include "asap2/Types.h"
#include "base/Notices.h"

#include <deque>

namespace tavo {

/// Takes the instances apart: each leaf becomes a quantity of the inventory. Throws a `Fault` for
/// an instance of a structure that contains itself, and for more leaves than a description can
/// have.
void expandInstances(const std::deque<Instance>& instances, const TypeTable& types,
                     Inventory& inventory, Notices& notices);

} // namespace tavo
