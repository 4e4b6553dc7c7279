// The sections of a configuration. Hosts rely on every byte (docs/architecture.md).

#include "daq/writer.h"

#include "daq/ConfigurationStream.h"
#include "model/PhConversion.h"
#include "model/PhList.h"
#include "model/PhType.h"
#include "model/PhUnit.h"
#include "model/PhValue.h"
#include "topology/PhCommParam.h"
#include "topology/PhEntity.h"
#include "topology/PhGroup.h"
#include "topology/PhRaster.h"
#include "topology/PhRoot.h"

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

/// A line key="text", unless the text is null. The text goes out as it is.
void putTextLine(ConfigurationStream& stream, std::string_view key, const PhString& text)
{
    if (text.isNull())
        return;
    stream.put(key);
    stream.put("\"");
    stream.put(text.view());
    stream.put("\"\n");
}

void putFixedLine(ConfigurationStream& stream, std::string_view key, double number)
{
    stream.put(key);
    stream.putFixed(number);
    stream.put("\n");
}

const char* integerText(int bitCount, const char* upTo8, const char* upTo16, const char* above)
{
    if (bitCount <= 8)
        return upTo8;
    return bitCount <= 16 ? upTo16 : above;
}

} // namespace

const char* protocolText(PhProtocol protocol)
{
    switch (protocol) {
    case PhProtocol::Undefined:
        return "Undefined";
    case PhProtocol::KWP:
        return "KWP";
    case PhProtocol::CCP:
        return "CCP";
    case PhProtocol::XCP:
        return "XCP";
    }
    return "???";
}

const char* typeText(const PhType* type)
{
    if (!type)
        return "???";
    switch (type->baseType()) {
    case PhBaseType::BtInteger:
        return integerText(type->bitCount(), "int8", "int16", "int32");
    case PhBaseType::BtUInteger:
        return integerText(type->bitCount(), "uint8", "uint16", "uint32");
    case PhBaseType::BtIeee32:
        return "real32";
    case PhBaseType::BtIeee64:
        return "real64";
    case PhBaseType::BtStringAscii:
    case PhBaseType::BtStringUtf8:
    case PhBaseType::BtStringUnicode:
    case PhBaseType::BtBytefield:
        return "uint8";
    case PhBaseType::BtUndefined:
        break;
    }
    return "???";
}

const char* byteOrderText(PhEndian endian)
{
    switch (endian) {
    case PhEndian::BigEndian:
        return "Motorola";
    case PhEndian::LittleEndian:
        return "Intel";
    default:
        return nullptr;
    }
}

const PhUnit* unitOf(const PhType& type)
{
    if (!type.unit() && type.conversion())
        return type.conversion()->unit();
    return type.unit();
}

namespace {

void writeUnit(ConfigurationStream& stream, const PhType& type)
{
    if (const PhUnit* unit = unitOf(type))
        putTextLine(stream, "Unit=", unit->label());
}

void writeByteOrder(ConfigurationStream& stream, const PhType& type)
{
    const char* text = byteOrderText(type.endian());
    if (!text)
        return;
    stream.put("ByteOrder=");
    stream.put(text);
    stream.put("\n");
}

void writeFactors(ConfigurationStream& stream, const PhType& type)
{
    double factor = 0.0;
    double offset = 0.0;
    if (!type.conversion() || !type.conversion()->getLinearFactors(&factor, &offset))
        return;
    putFixedLine(stream, "Offset=", offset);
    putFixedLine(stream, "Factor=", factor);
}

void writeProcessFactor(ConfigurationStream& stream, const PhEntity& entity, std::int32_t index)
{
    const PhType* type = entity.type();
    stream.put("[DAQ_ProcessFactor_0_");
    stream.putDecimal(daqSourceIndex);
    stream.put("_");
    stream.putDecimal(index);
    stream.put("]\n");
    putTextLine(stream, "Name=", entity.peekName());
    putTextLine(stream, "Desc=", entity.peekLongName());
    stream.put("Enabled=0\n");
    if (type) {
        writeUnit(stream, *type);
        writeByteOrder(stream, *type);
    }
    stream.put("Type=");
    stream.put(typeText(type));
    stream.put("\n");
    putValueLine(stream, "ECUAddress=", entity.address(), printHexValue);
    putValueLine(stream, "AddressExtension=", entity.addressExtension(), printHexValue);
    putValueLine(stream, "Min=", entity.lowerLimit(), printValue);
    putValueLine(stream, "Max=", entity.upperLimit(), printValue);
    if (type) {
        putValueLine(stream, "BitMask=", type->bitMask(), printHexValue);
        writeFactors(stream, *type);
    }
    stream.put("\n");
}

} // namespace

int writeDaqFile(PhRoot* root, const char* path)
{
    ConfigurationStream stream;
    if (!stream.open(path))
        return -2;
    writeRoot(stream, root);
    stream.close(); // whether all of it could be written isn't told
    return 0;
}

void writeRoot(ConfigurationStream& stream, PhRoot* root)
{
    if (root->groups() && root->groups()->first())
        writeGroup(stream, static_cast<PhGroup*>(root->groups()->first()));
}

PhGroup* writtenGroup(PhGroup* group)
{
    while (group->groups() && group->groups()->first())
        group = static_cast<PhGroup*>(group->groups()->first());
    return group;
}

void writeGroup(ConfigurationStream& stream, PhGroup* group)
{
    group = writtenGroup(group);
    writeMeasurements(stream, group->commParams());
    writeUnassignedSource(stream, group->entities());
}

void writeMeasurements(ConfigurationStream& stream, const PhList* commParams)
{
    std::int32_t index = 0;
    for (const PhCommParam* commParam : each<PhCommParam>(commParams)) {
        stream.put("[DAQ_Measurement_");
        stream.putDecimal(index++);
        stream.put("]\nEnabled=1\n");
        putTextLine(stream, "Name=", commParam->peekName());
        stream.put("Protocol=");
        stream.put(protocolText(commParam->protocol()));
        stream.put("\n");
        putValueLine(stream, "MasterId=", commParam->masterId(), printHexValue);
        putValueLine(stream, "SlaveId=", commParam->slaveId(), printHexValue);
        putValueLine(stream, "StationAddress=", commParam->stationAddress(), printValue);
        // The rasters and the one source of all quantities.
        const auto rasterCount = static_cast<std::int32_t>(countOf(commParam->rasters()));
        putNumberLine(stream, "NumSources=", rasterCount + 1);
        stream.put("\n");
        writeSources(stream, commParam->rasters());
    }
}

void writeSources(ConfigurationStream& stream, const PhList* rasters)
{
    if (!rasters)
        return;
    daqSourceIndex = 0;
    for (const PhRaster* raster : each<PhRaster>(rasters)) {
        stream.put("[DAQ_Source_0_");
        stream.putDecimal(daqSourceIndex++);
        stream.put("]\nEnabled=1\n");
        putTextLine(stream, "Name=", raster->peekName());
        putValueLine(stream, "TransmissionRate=", raster->rate(), printValue);
        putValueLine(stream, "EventChannelNo=", raster->channel(), printValue);
        stream.put("\n");
    }
}

void writeUnassignedSource(ConfigurationStream& stream, const PhList* entities)
{
    if (!entities)
        return;
    stream.put("[DAQ_Source_0_");
    stream.putDecimal(daqSourceIndex);
    stream.put("]\nName=\"Unassigned\"\nEnabled=1\nUnassigned=1\n");
    putNumberLine(stream, "NumProcessFactors=", static_cast<std::int32_t>(countOf(entities)));
    stream.put("\n");
    std::int32_t index = 0;
    for (const PhEntity* entity : each<PhEntity>(entities))
        writeProcessFactor(stream, *entity, index++);
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
