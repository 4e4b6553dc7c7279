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

namespace {

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

const char* typeText(const PhTypeFields* type)
{
    if (!type)
        return "???";
    switch (type->baseType) {
    case PhBaseType::BtInteger:
        return integerText(type->bitCount, "int8", "int16", "int32");
    case PhBaseType::BtUInteger:
        return integerText(type->bitCount, "uint8", "uint16", "uint32");
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

const PhString* unitOf(const PhEntity& entity)
{
    const PhType* type = entity.peekType();
    if (type && type->unit())
        return &type->unit()->label();
    const PhTypeFields* fields = entity.typeFields();
    const PhConversion* conversion = fields ? fields->conversion.peek() : nullptr;
    return conversion ? conversion->unitLabel() : nullptr;
}

namespace {

std::optional<std::string_view> textOf(const PhString& text)
{
    return text.isNull() ? std::nullopt : std::optional(text.view());
}

void writeQuantity(ConfigurationStream& stream, const PhEntity& entity, std::int32_t index)
{
    QuantitySection section;
    section.name = textOf(entity.name());
    section.description = textOf(entity.longName());
    section.address = entity.peek(PhEntity::Address);
    section.addressExtension = entity.peek(PhEntity::AddressExtension);
    section.lowerLimit = entity.peek(PhEntity::LowerLimit);
    section.upperLimit = entity.peek(PhEntity::UpperLimit);
    if (const PhTypeFields* type = entity.typeFields()) {
        if (const PhString* unit = unitOf(entity))
            section.unit = textOf(*unit);
        if (const char* byteOrder = byteOrderText(type->endian))
            section.byteOrder = byteOrder;
        section.type = typeText(type);
        section.bitMask = entity.peek(PhEntity::BitMask);
        // A conversion that is known by name only has the factor 1 and the offset 0.
        const PhConversion* conversion = type->conversion.peek();
        section.hasFactor = conversion
                                ? conversion->getLinearFactors(&section.factor, &section.offset)
                                : static_cast<bool>(type->conversion);
    }
    putQuantity(stream, index, section);
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
        InterfaceSection section;
        section.name = textOf(commParam->name());
        section.protocol = protocolText(commParam->protocol());
        section.masterId = commParam->masterId();
        section.slaveId = commParam->slaveId();
        section.stationAddress = commParam->stationAddress();
        section.sourceCount = static_cast<std::int32_t>(countOf(commParam->rasters()));
        putInterface(stream, index++, section);
        writeSources(stream, commParam->rasters());
    }
}

void writeSources(ConfigurationStream& stream, const PhList* rasters)
{
    if (!rasters)
        return;
    daqSourceIndex = 0;
    for (const PhRaster* raster : each<PhRaster>(rasters))
        putSource(stream, {textOf(raster->name()), raster->rate(), raster->channel()});
}

void writeUnassignedSource(ConfigurationStream& stream, const PhList* entities)
{
    if (!entities)
        return;
    putUnassignedSource(stream, static_cast<std::int32_t>(countOf(entities)));
    std::int32_t index = 0;
    for (const PhEntity* entity : each<PhEntity>(entities))
        writeQuantity(stream, *entity, index++);
}

} // namespace tavo
