#include "inventoryOf.h"

#include "daq/writer.h"
#include "inventory/Inventory.h"
#include "model/PhConversion.h"
#include "model/PhList.h"
#include "model/PhType.h"
#include "model/PhUnit.h"
#include "model/PhValue.h"
#include "topology/PhCommParam.h"
#include "topology/PhEntity.h"
#include "topology/PhGroup.h"
#include "topology/PhRaster.h"

#include <string>

namespace tavo {

namespace {

std::string_view textOf(const PhString& text) { return text.isNull() ? "" : text.view(); }

Pattern64 patternOf(const PhValue* value)
{
    Pattern64 pattern;
    pattern.isGiven = value != nullptr;
    pattern.bits = value ? value->unsignedValue() : 0;
    return pattern;
}

Limit limitOf(const PhValue* value)
{
    if (!value)
        return {0.0, false, false};
    return {value->doubleValue(), value->isInteger()};
}

std::optional<std::int64_t> integerOf(const PhValue* value)
{
    return value ? std::optional<std::int64_t>(value->intValue()) : std::nullopt;
}

ByteOrder byteOrderOf(PhEndian endian)
{
    switch (endian) {
    case PhEndian::BigEndian:
        return ByteOrder::Motorola;
    case PhEndian::LittleEndian:
        return ByteOrder::Intel;
    default:
        return ByteOrder::None;
    }
}

DataType dataTypeOf(const PhTypeFields* type)
{
    const std::string_view text = typeText(type);
    for (DataType known = DataType::UByte; known <= DataType::Float64;
         known = static_cast<DataType>(static_cast<int>(known) + 1))
        if (text == dataTypeText(known))
            return known;
    return DataType::None;
}

MethodKind methodKindOf(PhConversionType type)
{
    switch (type) {
    case PhConversionType::CtInterpolation:
        return MethodKind::TabIntp;
    case PhConversionType::CtTable:
        return MethodKind::TabVerb;
    case PhConversionType::CtRational:
        return MethodKind::RatFunc;
    case PhConversionType::CtFormula:
        return MethodKind::Form;
    default:
        return MethodKind::Other;
    }
}

/// A code by which the raster's unit of time is a unit of its own.
std::int64_t unitCodeOf(const PhRaster& raster)
{
    switch (raster.timeUnit()) {
    case PhTimeUnit::Nanoseconds:
        return 0;
    case PhTimeUnit::Microseconds:
        return 3;
    case PhTimeUnit::Milliseconds:
        return 6;
    default: // Seconds stand for all that strict reading can't tell apart.
        return -1;
    }
}

void addInterface(Inventory& inventory, const PhCommParam& commParam)
{
    Interface& interface = inventory.interfaces.emplace_back();
    interface.protocol = commParam.protocol() == PhProtocol::CCP ? Protocol::Ccp : Protocol::Xcp;
    interface.masterId = integerOf(commParam.masterId());
    interface.slaveId = integerOf(commParam.slaveId());
    interface.stationAddress = integerOf(commParam.stationAddress());
    for (const PhRaster* raster : each<PhRaster>(commParam.rasters())) {
        Source source;
        source.protocol = Protocol::Xcp; // whose codes begin at a nanosecond
        source.name = textOf(raster->name());
        source.description = textOf(raster->longName());
        source.channel = integerOf(raster->channel()).value_or(0);
        source.cycle = integerOf(raster->rate()).value_or(0);
        source.unitCode = unitCodeOf(*raster);
        interface.sources.push_back(source);
    }
}

void addMethod(Inventory& inventory, std::uint32_t name, const PhConversion& conversion)
{
    auto& numbers = inventory.methodsByName;
    if (name >= numbers.size())
        numbers.resize(name + std::size_t{1}, noIndex);
    if (numbers[name] != noIndex || conversion.isUnresolved())
        return;
    numbers[name] = static_cast<std::uint32_t>(inventory.methods.size());
    Method& method = inventory.methods.emplace_back();
    method.name = inventory.methodNames.name(name);
    method.description = textOf(conversion.longName());
    method.kind = methodKindOf(conversion.conversionType());
    method.kindWord = methodKindWord(method.kind);
    const PhString* unit = conversion.unitLabel();
    method.hasUnit = unit && !unit->isNull();
    if (method.hasUnit)
        method.unit = textOf(*unit);
    method.line.isWritten = conversion.getLinearFactors(&method.line.factor, &method.line.offset);
    method.line.isExact = true; // The reader has warned of a conversion that is none.
}

void addMeasurement(Inventory& inventory, const PhEntity& entity)
{
    Quantity quantity;
    quantity.name = textOf(entity.name());
    quantity.description = textOf(entity.longName());
    quantity.address = patternOf(entity.address());
    quantity.addressExtension = patternOf(entity.addressExtension());
    quantity.lower = limitOf(entity.lowerLimit());
    quantity.upper = limitOf(entity.upperLimit());
    quantity.hasOwnByteOrder = true;
    if (const PhType* type = entity.type()) {
        quantity.type = dataTypeOf(&type->fields());
        quantity.byteOrder = byteOrderOf(type->endian());
        quantity.bitMask = patternOf(type->bitMask());
        const PhConversion* conversion = type->conversion();
        if (conversion &&
            !(conversion->isUnresolved() && conversion->name() == "NO_COMPU_METHOD")) {
            quantity.methodName = inventory.methodNames.number(textOf(conversion->name()));
            addMethod(inventory, quantity.methodName, *conversion);
        }
        const PhString* unit = unitOf(entity);
        quantity.hasUnit = unit && !unit->isNull();
        if (quantity.hasUnit)
            quantity.unit = textOf(*unit);
    }
    inventory.measurements.push_back(quantity);
}

} // namespace

void fillInventory(Inventory& inventory, const PhGroup* module)
{
    if (!module)
        return;
    for (const PhCommParam* commParam : each<PhCommParam>(module->commParams()))
        addInterface(inventory, *commParam);
    for (const PhEntity* entity : each<PhEntity>(module->entities()))
        addMeasurement(inventory, *entity);
}

} // namespace tavo
