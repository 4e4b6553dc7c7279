#include "a2l/PhA2l.h"

namespace tavo {

/// FRAME name longIdentifier scalingUnit rate { FRAME_MEASUREMENT { identifier } | IF_DATA ... }
/// /end FRAME, of which nothing is kept.
int PhA2l::parseFrame(PhTokenValue& value)
{
    dropFields(1);
    progress("  Parse FRAME '%s'\n", token_);
    dropFields(3);
    return parseOptions(value, T_FRAME, [&](int code) {
        switch (code) {
        case T_FRAME_MEASUREMENT:
            return afterRun(value, T_IDENTIFIER);
        case T_BEGIN:
            code = nextToken(value);
            if (code == T_IF_DATA)
                return parseIfData(nullptr, value);
            break;
        }
        return unexpectedToken(value, code);
    });
}

} // namespace tavo
