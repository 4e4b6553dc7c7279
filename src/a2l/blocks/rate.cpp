#include "a2l/blocks/rate.h"

#include "model/PhValue.h"

namespace tavo {

void setCodedRate(PhRaster* raster, std::int32_t code, PhTimeUnit shortest, std::int32_t rate)
{
    // The units are numbered from the second down, so each step of three powers is one less.
    const auto steps =
        static_cast<std::int32_t>(shortest) - static_cast<std::int32_t>(PhTimeUnit::Seconds);
    auto unit = PhTimeUnit::Seconds;
    std::uint32_t factor = 1;
    if (code >= 0 && code < 3 * steps) {
        constexpr std::uint32_t factors[] = {1, 10, 100};
        factor = factors[code % 3];
        unit = static_cast<PhTimeUnit>(static_cast<std::int32_t>(shortest) - code / 3);
    }
    raster->setTimeUnit(unit);
    raster->setRate(
        new PhValue(static_cast<std::int32_t>(static_cast<std::uint32_t>(rate) * factor)));
}

} // namespace tavo
