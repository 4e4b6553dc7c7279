#include "a2l/PhA2l.h"

namespace tavo {

/// GROUP name longIdentifier { ROOT | /begin LIST { identifier } /end LIST | ANNOTATION ... }
/// /end GROUP, of which nothing is kept.
int PhA2l::parseGroup(PhTokenValue& value)
{
    dropFields(1);
    progress("  Parse GROUP '%s'\n", token_);
    dropFields(1);
    return parseOptions(value, T_GROUP, [&](int code) {
        if (code == T_ROOT)
            return nextToken(value);
        if (code != T_BEGIN)
            return unexpectedToken(value, code);
        switch (code = nextToken(value)) {
        case T_REF_CHARACTERISTIC:
        case T_REF_MEASUREMENT:
        case T_FUNCTION_LIST:
        case T_SUB_GROUP:
            return parseNameList(value, code);
        case T_ANNOTATION:
            return parseAnnotation(value);
        default:
            return unexpectedToken(value, code);
        }
    });
}

} // namespace tavo
