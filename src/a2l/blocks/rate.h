#pragma once

#include "topology/PhRaster.h"

#include <cstdint>

namespace tavo {

/// Gives a raster its time unit and rate from a code that counts decimal powers, three for each
/// unit, from `shortest` at 0 up: unit, ten and hundred units, the next unit and so on. A code
/// beyond the last one before a second, and a negative one, means seconds. The rate becomes a plain
/// count of the unit and wraps at 32 bits.
void setCodedRate(PhRaster* raster, std::int32_t code, PhTimeUnit shortest, std::int32_t rate);

} // namespace tavo
