#include "a2l/PhA2l.h"

namespace tavo {

/// BIT_OPERATION { LEFT_SHIFT n | RIGHT_SHIFT n | SIGN_EXTEND } /end BIT_OPERATION, of which
/// nothing is kept: a measurement has its BIT_MASK alone.
int PhA2l::parseBitOperation()
{
    return parseOptions(T_BIT_OPERATION, [&](int code) {
        switch (code) {
        case T_LEFT_SHIFT:
        case T_RIGHT_SHIFT:
            return afterFields(1);
        case T_SIGN_EXTEND:
            return nextToken();
        default:
            return unexpectedToken();
        }
    });
}

} // namespace tavo
