#include "summary.h"

#include "daq/losses.h"
#include "inventory/Inventory.h"

namespace tavo {

std::string grouped(std::uint64_t number)
{
    std::string digits = std::to_string(number);
    for (std::size_t place = digits.size(); place > 3;)
        digits.insert(place -= 3, 1, ',');
    return digits;
}

std::string counted(std::uint64_t count, const char* noun)
{
    return grouped(count) + " " + noun + (count == 1 ? "" : "s");
}

std::string summaryOf(const Inventory& inventory)
{
    std::uint64_t sources = 0;
    for (const Interface& interface : inventory.interfaces)
        sources += interface.sources.size();
    const std::size_t written = expressibleCount(inventory);
    const std::size_t leftOut = inventory.quantityCount() - written;
    return counted(inventory.interfaces.size(), "interface") + ", " + counted(sources, "source") +
           ", " + counted(written, "measurement") +
           (leftOut > 0 ? "; left out " + grouped(leftOut) : "");
}

} // namespace tavo
