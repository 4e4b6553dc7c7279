#include "a2l/PhA2l.h"

namespace tavo {

/// CHARACTERISTIC name longIdentifier type address deposit maxDiff conversion lowerLimit upperLimit
/// { option } /end CHARACTERISTIC
///
/// A configuration lists measured quantities only, so all of it is dropped.
int PhA2l::parseCharacteristic()
{
    dropFields(2);
    progress("  Parse CHARACTERISTIC '%s'\n", token().text);
    dropFields(7);
    return parseOptions(T_CHARACTERISTIC,
                        [&](int code) { return parseCharacteristicOption(code); });
}

int PhA2l::parseCharacteristicOption(int code)
{
    switch (code) {
    case T_READ_ONLY:
    case T_GUARD_RAILS:
        return nextToken();
    case T_FORMAT:
    case T_NUMBER:
    case T_DISPLAY_IDENTIFIER:
    case T_REF_MEMORY_SEGMENT:
    case T_ECU_ADDRESS_EXTENSION:
    case T_BIT_MASK:
    case T_COMPARISON_QUANTITY:
    case T_CALIBRATION_ACCESS:
        return afterFields(1);
    case T_BYTE_ORDER: {
        PhEndian dropped = PhEndian::Undefined;
        return parseByteOrder(dropped);
    }
    case T_EXTENDED_LIMITS:
    case T_MAX_REFRESH:
        return afterFields(2);
    case T_MATRIX_DIM:
        return afterFields(3);
    case T_FUNCTION_LIST:
    case T_MAP_LIST:
        return afterRun(T_IDENTIFIER);
    case T_BEGIN:
        return parseCharacteristicBlock();
    default:
        return unexpectedToken();
    }
}

/// The block after a /begin in a CHARACTERISTIC.
int PhA2l::parseCharacteristicBlock()
{
    const int code = nextToken();
    switch (code) {
    case T_IF_DATA:
        return parseIfData(nullptr);
    case T_AXIS_DESCR:
        return skipBlock(code);
    case T_ANNOTATION:
        return parseAnnotation();
    case T_DEPENDENT_CHARACTERISTIC:
    case T_VIRTUAL_CHARACTERISTIC:
        dropFields(1); // the formula
        return parseNameList(code);
    case T_FUNCTION_LIST:
        return parseNameList(code);
    default:
        return unexpectedToken();
    }
}

} // namespace tavo
