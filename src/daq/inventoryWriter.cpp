#include "daq/inventoryWriter.h"

#include "daq/ConfigurationStream.h"
#include "daq/losses.h"
#include "daq/sections.h"
#include "inventory/Inventory.h"

#include <optional>

namespace tavo {

namespace {

/// The low 32 bits, for which a configuration has room.
LineValue lineOf(std::uint64_t bits)
{
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(bits));
}

LineValue lineOf(const std::optional<std::int64_t>& number)
{
    return number ? lineOf(static_cast<std::uint64_t>(*number)) : LineValue();
}

LineValue lineOf(const Pattern64& pattern)
{
    return pattern.isGiven ? lineOf(pattern.bits) : LineValue();
}

LineValue lineOf(const Limit& limit)
{
    if (!limit.isGiven)
        return {};
    if (limit.isInteger)
        return static_cast<std::int32_t>(limit.value);
    return limit.value;
}

void writeInterface(ConfigurationStream& stream, const Interface& interface, std::int32_t index)
{
    const char* protocol = protocolText(interface.protocol);
    putInterface(stream, index,
                 {protocol, protocol, lineOf(interface.masterId), lineOf(interface.slaveId),
                  lineOf(interface.stationAddress),
                  static_cast<std::int32_t>(interface.sources.size())});
    // An interface without a source leaves the number of the next one alone.
    if (!interface.sources.empty())
        daqSourceIndex = 0;
    for (const Source& source : interface.sources)
        putSource(stream, {source.name, lineOf(std::optional(source.rate())),
                           lineOf(std::optional(source.channel))});
}

void writeQuantity(ConfigurationStream& stream, const Inventory& inventory,
                   const Quantity& quantity, std::int32_t index)
{
    const Method* method = inventory.methodOf(quantity);
    const Line line = method ? method->line : Line();
    QuantitySection section;
    section.name = quantity.name;
    section.description = quantity.description;
    section.unit = inventory.unitOf(quantity);
    if (const char* byteOrder = byteOrderText(inventory.byteOrderOf(quantity)))
        section.byteOrder = byteOrder;
    section.type = dataTypeText(quantity.type);
    section.address = lineOf(quantity.address);
    section.addressExtension = lineOf(quantity.addressExtension);
    section.lowerLimit = lineOf(quantity.lower);
    section.upperLimit = lineOf(quantity.upper);
    section.bitMask = lineOf(quantity.bitMask);
    section.isEnabled = quantity.isEnabled;
    section.hasFactor = line.isWritten;
    section.factor = line.factor;
    section.offset = line.offset;
    putQuantity(stream, index, section);
}

} // namespace

void writeInventory(ConfigurationStream& stream, const Inventory& inventory)
{
    writeInventory(stream, inventory, expressibleCount(inventory));
}

void writeInventory(ConfigurationStream& stream, const Inventory& inventory, std::size_t count)
{
    std::int32_t index = 0;
    for (const Interface& interface : inventory.interfaces)
        writeInterface(stream, interface, index++);
    if (count == 0)
        return;
    putUnassignedSource(stream, static_cast<std::int32_t>(count));
    index = 0;
    forEachExpressible(inventory, [&](const Quantity& quantity) {
        writeQuantity(stream, inventory, quantity, index++);
    });
}

} // namespace tavo
