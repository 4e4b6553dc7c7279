#include "a2l/PhA2l.h"

#include "model/PhConversion.h"
#include "model/ownership.h"
#include "topology/PhEntity.h"
#include "topology/PhGroup.h"

namespace tavo {

/// MEASUREMENT name longIdentifier dataType conversion resolution accuracy lowerLimit upperLimit
/// { option } /end MEASUREMENT
int PhA2l::parseMeasurement(PhGroup* group)
{
    const PhRef<PhEntity> entity(new PhEntity);
    entity->setName(readText());
    entity->setLongName(readText());
    group->appendEntity(entity.get());
    progress("  Parse MEASUREMENT '%s'\n", token().text);

    PhTypeFields& type = entity->makeTypeFields();
    type.endian = byteOrder_;
    if (parseDataType(type) == T_ERROR)
        return T_ERROR;
    const PhString& method = readReference(*group);
    dropFields(2); // resolution and accuracy
    readLimit(*entity, false);
    readLimit(*entity, true);
    refer(entity->typeFields()->conversion, method, *group,
          nullptr); // a warning may have moved them

    return parseOptions(T_MEASUREMENT,
                        [&](int code) { return parseMeasurementOption(entity.get(), code); });
}

/// UBYTE | SBYTE | UWORD | SWORD | ULONG | SLONG | FLOAT32_IEEE | FLOAT64_IEEE
int PhA2l::parseDataType(PhTypeFields& type)
{
    const auto set = [&](PhBaseType baseType, int bitCount) {
        type.baseType = baseType;
        type.bitCount = bitCount;
    };
    const VocabularyScope words(lexer_, enumKeywords);
    const int code = nextToken();
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
        return unexpectedToken();
    }
    return code;
}

/// A limit keeps its kind, integer or double; anything else leaves it unset, with a warning.
void PhA2l::readLimit(PhEntity& entity, bool isUpper)
{
    const PhEntity::Value limit = isUpper ? PhEntity::UpperLimit : PhEntity::LowerLimit;
    if (!readNumber())
        warning("Unexpected type for %s limit.", isUpper ? "upper" : "lower");
    else if (token().code == T_INTEGER)
        entity.setNumber(limit, token().integer);
    else
        entity.setNumber(limit, token().real);
}

/// An address or its extension: a 32-bit pattern. One that is no address leaves the one that was
/// given before, with a warning.
void PhA2l::readAddress(PhEntity& entity, bool isExtension)
{
    if (nextToken() == T_INTEGER)
        entity.setNumber(isExtension ? PhEntity::AddressExtension : PhEntity::Address,
                         token().integer);
    else
        warnUnexpectedToken();
}

int PhA2l::parseMeasurementOption(PhEntity* entity, int code)
{
    switch (code) {
    case T_ECU_ADDRESS:
        readAddress(*entity, false);
        return nextToken();
    case T_ECU_ADDRESS_EXTENSION:
        readAddress(*entity, true);
        return nextToken();
    case T_BIT_MASK:
        entity->setNumber(PhEntity::BitMask, readInteger());
        return nextToken();
    case T_BYTE_ORDER: {
        PhEndian byteOrder = PhEndian::Undefined;
        code = parseByteOrder(byteOrder);
        entity->typeFields()->endian = byteOrder;
        return code;
    }
    case T_READ_WRITE:
        return nextToken();
    case T_ARRAY_SIZE:
    case T_FORMAT:
    case T_ERROR_MASK:
    case T_DISPLAY_IDENTIFIER:
    case T_REF_MEMORY_SEGMENT:
        return afterFields(1);
    case T_MAX_REFRESH:
        return afterFields(2);
    case T_MATRIX_DIM:
        return afterFields(3);
    case T_FUNCTION_LIST:
        return afterRun(T_IDENTIFIER);
    case T_BEGIN:
        return parseMeasurementBlock(entity);
    default:
        return unexpectedToken();
    }
}

/// The block after a /begin in a MEASUREMENT.
int PhA2l::parseMeasurementBlock(PhEntity* entity)
{
    const int code = nextToken();
    switch (code) {
    case T_IF_DATA:
        return parseIfData(entity);
    case T_ANNOTATION:
        return parseAnnotation();
    case T_BIT_OPERATION:
        return parseBitOperation();
    case T_FUNCTION_LIST:
    case T_VIRTUAL:
        return parseNameList(code);
    default:
        return unexpectedToken();
    }
}

} // namespace tavo
