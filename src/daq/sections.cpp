// The sections of a configuration. Hosts rely on every byte (docs/architecture.md).

#include "daq/sections.h"

#include "daq/ConfigurationStream.h"
#include "model/PhValue.h"
#include "model/decimal.h"

namespace tavo {

std::int32_t daqSourceIndex = 0;

LineValue::LineValue(const PhValue* value)
{
    if (!value)
        return;
    if (value->isInteger()) {
        kind_ = Integer;
        integer_ = value->intValue();
    } else if (value->isDouble()) {
        kind_ = Real;
        real_ = value->doubleValue();
    } else {
        kind_ = Other;
        other_ = value;
    }
}

namespace {

// What follows puts lines into a stream, or into the room for a section that the stream has. It is
// inlined, so that the place in the room stays in a register, and `name` is an array, so that it is
// copied in a size that the compiler knows.

/// The key of a line, of which the compiler knows the size.
template <std::size_t size> constexpr std::string_view key(const char (&text)[size])
{
    return {text, size - 1};
}

template <class Target, std::size_t size>
[[gnu::always_inline]] inline void putNumberLine(Target& target, const char (&name)[size],
                                                 std::int32_t number)
{
    target.put(key(name));
    target.putDecimal(number);
    target.put("\n");
}

/// `name` ends with the quote before the text.
template <class Target, std::size_t size>
[[gnu::always_inline]] inline void putTextLine(Target& target, const char (&name)[size],
                                               const std::optional<std::string_view>& text)
{
    if (!text)
        return;
    target.put(key(name));
    target.put(*text);
    target.put("\"\n");
}

template <class Target, std::size_t size>
[[gnu::always_inline]] inline void putFixedLine(Target& target, const char (&name)[size],
                                                double number)
{
    target.put(key(name));
    target.putFixed(number);
    target.put("\n");
}

void putOther(ConfigurationStream& stream, const PhValue& value)
{
    if (value.isPositiveInfinity()) {
        stream.put("+INF");
    } else if (value.isNegativeInfinity()) {
        stream.put("-INF");
    } else if (value.isText()) {
        stream.put("'");
        stream.put(value.text().view());
        stream.put("'");
    } else if (!value.isValid()) {
        stream.put("-INVALID-");
    }
}

/// A section with such a value is never put into a room.
void putOther(SectionRoom&, const PhValue&) {}

template <class Target>
[[gnu::always_inline]] inline void putValue(Target& target, const LineValue& value,
                                            bool isHexadecimal)
{
    switch (value.kind()) {
    case LineValue::Integer:
        if (isHexadecimal)
            target.putHexadecimal(static_cast<std::uint32_t>(value.integer()));
        else
            target.putDecimal(value.integer());
        break;
    case LineValue::Real:
        target.putFixed(value.real());
        break;
    case LineValue::Other:
        putOther(target, value.other());
        break;
    case LineValue::Nothing:
        break;
    }
}

template <class Target, std::size_t size>
[[gnu::always_inline]] inline void putValueLine(Target& target, const char (&name)[size],
                                                const LineValue& value, bool isHexadecimal = false)
{
    if (value.kind() == LineValue::Nothing)
        return;
    target.put(key(name));
    putValue(target, value, isHexadecimal);
    target.put("\n");
}

template <class Target, std::size_t size>
[[gnu::always_inline]] inline void putHexadecimalLine(Target& target, const char (&name)[size],
                                                      const LineValue& value)
{
    putValueLine(target, name, value, true);
}

template <class Target>
void putQuantityTo(Target& target, std::int32_t index, const QuantitySection& section)
{
    target.put("[DAQ_ProcessFactor_0_");
    target.putDecimal(daqSourceIndex);
    target.put("_");
    target.putDecimal(index);
    target.put("]\n");
    putTextLine(target, "Name=\"", section.name);
    putTextLine(target, "Desc=\"", section.description);
    target.put(section.isEnabled ? "Enabled=1\n" : "Enabled=0\n");
    putTextLine(target, "Unit=\"", section.unit);
    if (!section.byteOrder.empty()) {
        target.put("ByteOrder=");
        target.put(section.byteOrder);
        target.put("\n");
    }
    target.put("Type=");
    target.put(section.type);
    target.put("\n");
    putHexadecimalLine(target, "ECUAddress=", section.address);
    putHexadecimalLine(target, "AddressExtension=", section.addressExtension);
    putValueLine(target, "Min=", section.lowerLimit);
    putValueLine(target, "Max=", section.upperLimit);
    putHexadecimalLine(target, "BitMask=", section.bitMask);
    if (section.hasFactor) {
        putFixedLine(target, "Offset=", section.offset);
        putFixedLine(target, "Factor=", section.factor);
    }
    target.put("\n");
}

} // namespace

void putInterface(ConfigurationStream& stream, std::int32_t index, const InterfaceSection& section)
{
    stream.put("[DAQ_Measurement_");
    stream.putDecimal(index);
    stream.put("]\nEnabled=1\n");
    putTextLine(stream, "Name=\"", section.name);
    stream.put("Protocol=");
    stream.put(section.protocol);
    stream.put("\n");
    putHexadecimalLine(stream, "MasterId=", section.masterId);
    putHexadecimalLine(stream, "SlaveId=", section.slaveId);
    putValueLine(stream, "StationAddress=", section.stationAddress);
    putNumberLine(stream, "NumSources=", section.sourceCount + 1);
    stream.put("\n");
}

void putSource(ConfigurationStream& stream, const SourceSection& section)
{
    stream.put("[DAQ_Source_0_");
    stream.putDecimal(daqSourceIndex++);
    stream.put("]\nEnabled=1\n");
    putTextLine(stream, "Name=\"", section.name);
    putValueLine(stream, "TransmissionRate=", section.rate);
    putValueLine(stream, "EventChannelNo=", section.channel);
    stream.put("\n");
}

void putUnassignedSource(ConfigurationStream& stream, std::int32_t quantityCount)
{
    stream.put("[DAQ_Source_0_");
    stream.putDecimal(daqSourceIndex);
    stream.put("]\nName=\"Unassigned\"\nEnabled=1\nUnassigned=1\n");
    putNumberLine(stream, "NumProcessFactors=", quantityCount);
    stream.put("\n");
}

void putQuantity(ConfigurationStream& stream, std::int32_t index, const QuantitySection& section)
{
    // A section without its texts: the keys take 250 characters, and each of the four numbers with
    // decimals at most `FixedText::longest`.
    constexpr std::size_t mostOfRest = 512 + 4 * FixedText::longest;
    std::size_t size = mostOfRest + section.byteOrder.size() + section.type.size();
    for (const auto& text : {section.name, section.description, section.unit})
        size += text ? text->size() : 0;
    bool isSimple = size <= SectionRoom::largest;
    for (const LineValue* value : {&section.address, &section.addressExtension, &section.lowerLimit,
                                   &section.upperLimit, &section.bitMask})
        isSimple &= value->kind() != LineValue::Other;
    if (!isSimple)
        return putQuantityTo(stream, index, section);
    SectionRoom room(stream, size);
    putQuantityTo(room, index, section);
}

void printValue(ConfigurationStream& stream, const PhValue& value)
{
    putValue(stream, LineValue(&value), false);
}

void printHexValue(ConfigurationStream& stream, const PhValue& value)
{
    putValue(stream, LineValue(&value), true);
}

} // namespace tavo
