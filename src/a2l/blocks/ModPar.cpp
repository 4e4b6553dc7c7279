#include "a2l/PhA2l.h"

namespace tavo {

/// MOD_PAR comment { option x | SYSTEM_CONSTANT name x | MEMORY_SEGMENT ... |
/// CALIBRATION_METHOD ... } /end MOD_PAR
int PhA2l::parseModPar(PhGroup* group)
{
    dropFields(1);
    progress("  Parse MOD_PAR '%s'\n", token().text);
    return parseOptions(T_MOD_PAR, [&](int code) {
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
            return afterFields(1);
        case T_SYSTEM_CONSTANT:
            return afterFields(2);
        case T_BEGIN:
            code = nextToken();
            if (code == T_MEMORY_SEGMENT)
                return parseMemorySegment(group);
            if (code == T_CALIBRATION_METHOD)
                return skipBlock(code);
            // Any other word counts as if it stood alone; even an /end closes the block.
            return code;
        default:
            return unexpectedToken();
        }
    });
}

} // namespace tavo
