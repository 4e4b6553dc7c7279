#include "a2l/PhA2l.h"

namespace tavo {

/// CHARACTERISTIC name longIdentifier type address deposit maxDiff conversion lowerLimit upperLimit
/// { option } /end CHARACTERISTIC
///
/// A configuration lists measured quantities only, so all of it is dropped.
int PhA2l::parseCharacteristic(PhTokenValue& value)
{
    dropFields(2);
    progress("  Parse CHARACTERISTIC '%s'\n", token_);
    dropFields(7);
    return parseOptions(value, T_CHARACTERISTIC,
                        [&](int code) { return parseCharacteristicOption(value, code); });
}

int PhA2l::parseCharacteristicOption(PhTokenValue& value, int code)
{
    switch (code) {
    case T_READ_ONLY:
    case T_GUARD_RAILS:
        return nextToken(value);
    case T_FORMAT:
    case T_NUMBER:
    case T_DISPLAY_IDENTIFIER:
    case T_REF_MEMORY_SEGMENT:
    case T_ECU_ADDRESS_EXTENSION:
    case T_BIT_MASK:
    case T_COMPARISON_QUANTITY:
    case T_CALIBRATION_ACCESS:
        return afterFields(value, 1);
    case T_BYTE_ORDER: {
        PhEndian dropped = PhEndian::Undefined;
        return parseByteOrder(value, dropped);
    }
    case T_EXTENDED_LIMITS:
    case T_MAX_REFRESH:
        return afterFields(value, 2);
    case T_MATRIX_DIM:
        return afterFields(value, 3);
    case T_FUNCTION_LIST:
    case T_MAP_LIST:
        return afterRun(value, T_IDENTIFIER);
    case T_BEGIN:
        return parseCharacteristicBlock(value);
    default:
        return unexpectedToken(value, code);
    }
}

/// The block behind a /begin in a CHARACTERISTIC.
int PhA2l::parseCharacteristicBlock(PhTokenValue& value)
{
    const int code = nextToken(value);
    switch (code) {
    case T_IF_DATA:
        return parseIfData(nullptr, value);
    case T_AXIS_DESCR:
        return skipBlock(value, code);
    case T_ANNOTATION:
        return parseAnnotation(value);
    case T_DEPENDENT_CHARACTERISTIC:
    case T_VIRTUAL_CHARACTERISTIC:
        dropFields(1); // the formula
        return parseNameList(value, code);
    case T_FUNCTION_LIST:
        return parseNameList(value, code);
    default:
        return unexpectedToken(value, code);
    }
}

} // namespace tavo
