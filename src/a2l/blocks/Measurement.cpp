#include "a2l/PhA2l.h"

#include "model/PhConversion.h"
#include "model/PhType.h"
#include "model/PhValue.h"
#include "model/ownership.h"
#include "topology/PhEntity.h"
#include "topology/PhGroup.h"

namespace tavo {

/// MEASUREMENT name longIdentifier dataType conversion resolution accuracy lowerLimit upperLimit
/// { option } /end MEASUREMENT
int PhA2l::parseMeasurement(PhGroup* group, PhTokenValue& value)
{
    const PhHold<PhEntity> entity(new PhEntity);
    entity->setName(readText(value));
    entity->setLongName(readText(value));
    group->appendEntity(entity.get());
    progress("  Parse MEASUREMENT '%s'\n", token_);

    auto* type = new PhType;
    entity->setType(type);
    type->setEndian(byteOrder_);
    if (parseDataType(type, value) == T_ERROR)
        return T_ERROR;
    type->setConversion(conversionByName(group, readText(value)));
    dropFields(2); // resolution and accuracy
    entity->setLowerLimit(readLimit(value, "lower"));
    entity->setUpperLimit(readLimit(value, "upper"));

    return parseOptions(value, T_MEASUREMENT, [&](int code) {
        return parseMeasurementOption(entity.get(), value, code);
    });
}

/// UBYTE | SBYTE | UWORD | SWORD | ULONG | SLONG | FLOAT32_IEEE | FLOAT64_IEEE
int PhA2l::parseDataType(PhType* type, PhTokenValue& value)
{
    const auto set = [&](PhBaseType baseType, int bitCount) {
        type->setBaseType(baseType);
        type->setBitCount(bitCount);
    };
    const VocabularyScope words(*this, enumKeywords);
    const int code = nextToken(value);
    switch (code) {
    case enumWord::T_UBYTE:
        set(PhBaseType::BtUInteger, 8);
        break;
    case enumWord::T_SBYTE:
        set(PhBaseType::BtInteger, 8);
        break;
    case enumWord::T_UWORD:
        set(PhBaseType::BtUInteger, 16);
        break;
    case enumWord::T_SWORD:
        set(PhBaseType::BtInteger, 16);
        break;
    case enumWord::T_ULONG:
        set(PhBaseType::BtUInteger, 32);
        break;
    case enumWord::T_SLONG:
        set(PhBaseType::BtInteger, 32);
        break;
    case enumWord::T_FLOAT32_IEEE:
        set(PhBaseType::BtIeee32, 32);
        break;
    case enumWord::T_FLOAT64_IEEE:
        set(PhBaseType::BtIeee64, 64);
        break;
    default:
        return unexpectedToken(value, code);
    }
    return code;
}

/// A limit keeps its kind, integer or double; anything else leaves it unset, with a warning.
PhValue* PhA2l::readLimit(PhTokenValue& value, const char* which)
{
    switch (nextToken(value)) {
    case T_INTEGER:
        return new PhValue(value.integer);
    case T_DOUBLE:
        return new PhValue(value.real);
    default:
        warning("Unexpected type for %s limit.", which);
        return nullptr;
    }
}

/// An address or its extension: a 32-bit pattern, or null, with a warning.
PhValue* PhA2l::readAddress(PhTokenValue& value)
{
    const int code = nextToken(value);
    if (code == T_INTEGER)
        return new PhValue(static_cast<unsigned>(value.integer));
    warnUnexpectedToken(value, code);
    return nullptr;
}

int PhA2l::parseMeasurementOption(PhEntity* entity, PhTokenValue& value, int code)
{
    switch (code) {
    case T_ECU_ADDRESS:
        // One that is no address leaves the one that was given before.
        if (PhValue* address = readAddress(value))
            entity->setAddress(address);
        return nextToken(value);
    case T_ECU_ADDRESS_EXTENSION:
        if (PhValue* extension = readAddress(value))
            entity->setAddressExtension(extension);
        return nextToken(value);
    case T_BIT_MASK:
        entity->type()->setBitMask(new PhValue(static_cast<unsigned>(readInteger(value))));
        return nextToken(value);
    case T_BYTE_ORDER: {
        PhEndian byteOrder = PhEndian::Undefined;
        code = parseByteOrder(value, byteOrder);
        entity->type()->setEndian(byteOrder);
        return code;
    }
    case T_READ_WRITE:
        return nextToken(value);
    case T_ARRAY_SIZE:
    case T_FORMAT:
    case T_ERROR_MASK:
    case T_DISPLAY_IDENTIFIER:
    case T_REF_MEMORY_SEGMENT:
        return afterFields(value, 1);
    case T_MAX_REFRESH:
        return afterFields(value, 2);
    case T_MATRIX_DIM:
        return afterFields(value, 3);
    case T_FUNCTION_LIST:
        return afterRun(value, T_IDENTIFIER);
    case T_BEGIN:
        return parseMeasurementBlock(entity, value);
    default:
        return unexpectedToken(value, code);
    }
}

/// The block behind a /begin in a MEASUREMENT.
int PhA2l::parseMeasurementBlock(PhEntity* entity, PhTokenValue& value)
{
    const int code = nextToken(value);
    switch (code) {
    case T_IF_DATA:
        return parseIfData(entity, value);
    case T_ANNOTATION:
        return parseAnnotation(value);
    case T_BIT_OPERATION:
        return parseBitOperation(value);
    case T_FUNCTION_LIST:
    case T_VIRTUAL:
        return parseNameList(value, code);
    default:
        return unexpectedToken(value, code);
    }
}

} // namespace tavo
