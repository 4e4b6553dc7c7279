#include "daq/inventoryWriter.h"

#include "daq/ConfigurationStream.h"
#include "daq/losses.h"
#include "daq/sections.h"
#include "inventory/Inventory.h"
#include "model/PhValue.h"

#include <optional>

namespace tavo {

namespace {

/// A value on the stack, or none.
class StackValue
{
public:
    explicit StackValue(const std::optional<std::int64_t>& number) : isGiven_(number.has_value())
    {
        setPattern(static_cast<std::uint64_t>(number.value_or(0)));
    }
    explicit StackValue(const Pattern64& pattern) : isGiven_(pattern.isGiven)
    {
        setPattern(pattern.bits);
    }
    explicit StackValue(const Limit& limit) : isGiven_(limit.isGiven)
    {
        if (limit.isInteger)
            value_.setValue(static_cast<std::int32_t>(limit.value));
        else
            value_.setValue(limit.value);
    }

    const PhValue* get() const { return isGiven_ ? &value_ : nullptr; }

private:
    /// The low 32 bits, for which a configuration has room.
    void setPattern(std::uint64_t bits)
    {
        value_.setValue(static_cast<std::int32_t>(static_cast<std::uint32_t>(bits)));
    }

    PhValue value_;
    bool isGiven_;
};

void writeInterface(ConfigurationStream& stream, const Interface& interface, std::int32_t index)
{
    const StackValue masterId(interface.masterId);
    const StackValue slaveId(interface.slaveId);
    const StackValue stationAddress(interface.stationAddress);
    const char* protocol = protocolText(interface.protocol);
    putInterface(stream, index,
                 {protocol, protocol, masterId.get(), slaveId.get(), stationAddress.get(),
                  static_cast<std::int32_t>(interface.sources.size())});
    // An interface without a source leaves the number of the next one alone.
    if (!interface.sources.empty())
        daqSourceIndex = 0;
    for (const Source& source : interface.sources) {
        const StackValue rate(std::optional(source.rate()));
        const StackValue channel(std::optional(source.channel));
        putSource(stream, {source.name, rate.get(), channel.get()});
    }
}

void writeQuantity(ConfigurationStream& stream, const Inventory& inventory,
                   const Quantity& quantity, std::int32_t index)
{
    const StackValue address(quantity.address);
    const StackValue extension(quantity.addressExtension);
    const StackValue lower(quantity.lower);
    const StackValue upper(quantity.upper);
    const StackValue mask(quantity.bitMask);
    const Method* method = inventory.methodOf(quantity);
    const Line line = method ? method->line : Line();
    QuantitySection section;
    section.name = quantity.name;
    section.description = quantity.description;
    section.unit = inventory.unitOf(quantity);
    section.byteOrder = byteOrderText(inventory.byteOrderOf(quantity));
    section.type = dataTypeText(quantity.type);
    section.address = address.get();
    section.addressExtension = extension.get();
    section.lowerLimit = lower.get();
    section.upperLimit = upper.get();
    section.bitMask = mask.get();
    section.isEnabled = quantity.isEnabled;
    section.hasFactor = line.isWritten;
    section.factor = line.factor;
    section.offset = line.offset;
    putQuantity(stream, index, section);
}

} // namespace

void writeInventory(ConfigurationStream& stream, const Inventory& inventory)
{
    std::int32_t index = 0;
    for (const Interface& interface : inventory.interfaces)
        writeInterface(stream, interface, index++);
    const std::size_t count = expressibleCount(inventory);
    if (count == 0)
        return;
    putUnassignedSource(stream, static_cast<std::int32_t>(count));
    index = 0;
    forEachExpressible(inventory, [&](const Quantity& quantity) {
        writeQuantity(stream, inventory, quantity, index++);
    });
}

} // namespace tavo
