#pragma once

namespace tavo {

/// Root of all model classes: no data, no operations, nothing virtual.
class Ph
{
};

} // namespace tavo
