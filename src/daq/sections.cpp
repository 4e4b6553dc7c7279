// The sections of a configuration. Hosts rely on every byte (docs/architecture.md).

#include "daq/sections.h"

#include "daq/ConfigurationStream.h"
#include "model/PhValue.h"

namespace tavo {

std::int32_t daqSourceIndex = 0;

namespace {

using PrintValue = void (*)(ConfigurationStream&, const PhValue&);

/// A line key=number.
void putNumberLine(ConfigurationStream& stream, std::string_view key, std::int32_t number)
{
    stream.put(key);
    stream.putDecimal(number);
    stream.put("\n");
}

/// A line key=value, unless the value is null.
void putValueLine(ConfigurationStream& stream, std::string_view key, const PhValue* value,
                  PrintValue print)
{
    if (!value)
        return;
    stream.put(key);
    print(stream, *value);
    stream.put("\n");
}

/// A line key="text", unless there is no text. The text goes out as it is.
void putTextLine(ConfigurationStream& stream, std::string_view key,
                 const std::optional<std::string_view>& text)
{
    if (!text)
        return;
    stream.put(key);
    stream.put("\"");
    stream.put(*text);
    stream.put("\"\n");
}

void putFixedLine(ConfigurationStream& stream, std::string_view key, double number)
{
    stream.put(key);
    stream.putFixed(number);
    stream.put("\n");
}

} // namespace

void putInterface(ConfigurationStream& stream, std::int32_t index, const InterfaceSection& section)
{
    stream.put("[DAQ_Measurement_");
    stream.putDecimal(index);
    stream.put("]\nEnabled=1\n");
    putTextLine(stream, "Name=", section.name);
    stream.put("Protocol=");
    stream.put(section.protocol);
    stream.put("\n");
    putValueLine(stream, "MasterId=", section.masterId, printHexValue);
    putValueLine(stream, "SlaveId=", section.slaveId, printHexValue);
    putValueLine(stream, "StationAddress=", section.stationAddress, printValue);
    putNumberLine(stream, "NumSources=", section.sourceCount + 1);
    stream.put("\n");
}

void putSource(ConfigurationStream& stream, const SourceSection& section)
{
    stream.put("[DAQ_Source_0_");
    stream.putDecimal(daqSourceIndex++);
    stream.put("]\nEnabled=1\n");
    putTextLine(stream, "Name=", section.name);
    putValueLine(stream, "TransmissionRate=", section.rate, printValue);
    putValueLine(stream, "EventChannelNo=", section.channel, printValue);
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
    stream.put("[DAQ_ProcessFactor_0_");
    stream.putDecimal(daqSourceIndex);
    stream.put("_");
    stream.putDecimal(index);
    stream.put("]\n");
    putTextLine(stream, "Name=", section.name);
    putTextLine(stream, "Desc=", section.description);
    stream.put(section.isEnabled ? "Enabled=1\n" : "Enabled=0\n");
    putTextLine(stream, "Unit=", section.unit);
    if (section.byteOrder) {
        stream.put("ByteOrder=");
        stream.put(section.byteOrder);
        stream.put("\n");
    }
    stream.put("Type=");
    stream.put(section.type);
    stream.put("\n");
    putValueLine(stream, "ECUAddress=", section.address, printHexValue);
    putValueLine(stream, "AddressExtension=", section.addressExtension, printHexValue);
    putValueLine(stream, "Min=", section.lowerLimit, printValue);
    putValueLine(stream, "Max=", section.upperLimit, printValue);
    putValueLine(stream, "BitMask=", section.bitMask, printHexValue);
    if (section.hasFactor) {
        putFixedLine(stream, "Offset=", section.offset);
        putFixedLine(stream, "Factor=", section.factor);
    }
    stream.put("\n");
}

namespace {

void print(ConfigurationStream& stream, const PhValue& value, bool hexadecimal)
{
    if (!value.isValid())
        stream.put("-INVALID-");
    else if (value.isPositiveInfinity())
        stream.put("+INF");
    else if (value.isNegativeInfinity())
        stream.put("-INF");
    else if (value.isDouble())
        stream.putFixed(value.doubleValue());
    else if (value.isInteger() && hexadecimal)
        stream.putHexadecimal(value.unsignedValue());
    else if (value.isInteger())
        stream.putDecimal(value.intValue());
    else if (value.isText()) {
        stream.put("'");
        stream.put(value.text().view());
        stream.put("'");
    }
}

} // namespace

void printValue(ConfigurationStream& stream, const PhValue& value) { print(stream, value, false); }

void printHexValue(ConfigurationStream& stream, const PhValue& value)
{
    print(stream, value, true);
}

} // namespace tavo
