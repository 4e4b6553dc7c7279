#include "a2l/PhA2l.h"

namespace tavo {

/// MOD_PAR comment { option x | SYSTEM_CONSTANT name x | MEMORY_SEGMENT ... |
/// CALIBRATION_METHOD ... } /end MOD_PAR
int PhA2l::parseModPar(PhGroup* group, PhTokenValue& value)
{
    dropFields(1);
    progress("  Parse MOD_PAR '%s'\n", token_);
    return parseOptions(value, T_MOD_PAR, [&](int code) {
        switch (code) {
        case T_VERSION:
        case T_ADDR_EPK:
        case T_EPK:
        case T_SUPPLIER:
        case T_CUSTOMER:
        case T_CUSTOMER_NO:
        case T_USER:
        case T_PHONE_NO:
        case T_ECU:
        case T_CPU_TYPE:
        case T_ECU_CALIBRATION_OFFSET:
        case T_NO_OF_INTERFACES:
            return afterFields(value, 1);
        case T_SYSTEM_CONSTANT:
            return afterFields(value, 2);
        case T_BEGIN:
            code = nextToken(value);
            if (code == T_MEMORY_SEGMENT)
                return parseMemorySegment(group, value);
            if (code == T_CALIBRATION_METHOD)
                return skipBlock(value, code);
            // Any other word counts as if it stood alone; even an /end closes the block.
            return code;
        default:
            return unexpectedToken(value, code);
        }
    });
}

} // namespace tavo
