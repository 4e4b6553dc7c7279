#include "a2l/PhA2l.h"

namespace tavo {

/// FRAME name longIdentifier scalingUnit rate { FRAME_MEASUREMENT { identifier } | IF_DATA ... }
/// /end FRAME, of which nothing is kept.
int PhA2l::parseFrame()
{
    dropFields(1);
    progress("  Parse FRAME '%s'\n", token().text);
    dropFields(3);
    return parseOptions(T_FRAME, [&](int code) {
        switch (code) {
        case T_FRAME_MEASUREMENT:
            return afterRun(T_IDENTIFIER);
        case T_BEGIN:
            code = nextToken();
            if (code == T_IF_DATA)
                return parseIfData(nullptr);
            break;
        }
        return unexpectedToken();
    });
}

} // namespace tavo
