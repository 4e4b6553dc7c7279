#include "a2l/PhA2l.h"

namespace tavo {

/// GROUP name longIdentifier { ROOT | /begin LIST { identifier } /end LIST | ANNOTATION ... }
/// /end GROUP, of which nothing is kept.
int PhA2l::parseGroup()
{
    dropFields(1);
    progress("  Parse GROUP '%s'\n", token().text);
    dropFields(1);
    return parseOptions(T_GROUP, [&](int code) {
        if (code == T_ROOT)
            return nextToken();
        if (code != T_BEGIN)
            return unexpectedToken();
        switch (code = nextToken()) {
        case T_REF_CHARACTERISTIC:
        case T_REF_MEASUREMENT:
        case T_FUNCTION_LIST:
        case T_SUB_GROUP:
            return parseNameList(code);
        case T_ANNOTATION:
            return parseAnnotation();
        default:
            return unexpectedToken();
        }
    });
}

} // namespace tavo
