#include "a2l/PhA2l.h"

#include "model/PhList.h"
#include "topology/PhCommParam.h"
#include "topology/PhGroup.h"

namespace tavo {

/// MOD_COMMON comment { BYTE_ORDER word | option x } /end MOD_COMMON
///
/// A BYTE_ORDER is the default of the types and comm params to come and goes to the module's comm
/// params that are there already. It holds beyond the module, until the next one.
int PhA2l::parseModCommon(PhGroup* group)
{
    dropFields(1);
    progress("  Parse MOD_COMMON '%s'\n", token().text);
    return parseOptions(T_MOD_COMMON, [&](int code) {
        switch (code) {
        case T_BYTE_ORDER:
            code = parseByteOrder(byteOrder_);
            for (PhCommParam* commParam : each<PhCommParam>(group->commParams()))
                commParam->setEndian(byteOrder_);
            return code;
        case T_ALIGNMENT_BYTE:
        case T_ALIGNMENT_WORD:
        case T_ALIGNMENT_LONG:
        case T_ALIGNMENT_FLOAT32_IEEE:
        case T_ALIGNMENT_FLOAT64_IEEE:
        case T_DATA_SIZE:
        case T_DEPOSIT:
        case T_S_REC_LAYOUT:
            return afterFields(1);
        default:
            return unexpectedToken();
        }
    });
}

} // namespace tavo
