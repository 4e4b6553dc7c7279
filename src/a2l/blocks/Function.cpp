#include "a2l/PhA2l.h"

namespace tavo {

namespace {

/// The lists of names that a FUNCTION may hold, with a /begin and without.
bool isNameList(int code)
{
    switch (code) {
    case T_REF_CHARACTERISTIC:
    case T_DEF_CHARACTERISTIC:
    case T_IN_MEASUREMENT:
    case T_OUT_MEASUREMENT:
    case T_LOC_MEASUREMENT:
    case T_SUB_FUNCTION:
        return true;
    default:
        return false;
    }
}

} // namespace

/// FUNCTION name longIdentifier { FUNCTION_VERSION x | LIST { identifier } |
/// /begin LIST { identifier } /end LIST | ANNOTATION ... } /end FUNCTION, of which nothing is kept.
int PhA2l::parseFunction()
{
    dropFields(1);
    progress("  Parse FUNCTION '%s'\n", token().text);
    dropFields(1);
    return parseOptions(T_FUNCTION, [&](int code) {
        if (code == T_FUNCTION_VERSION)
            return afterFields(1);
        if (isNameList(code))
            return afterRun(T_IDENTIFIER);
        if (code == T_BEGIN)
            return parseFunctionBlock();
        return unexpectedToken();
    });
}

/// The block after a /begin in a FUNCTION.
int PhA2l::parseFunctionBlock()
{
    const int code = nextToken();
    if (isNameList(code))
        return parseOpenRun(T_IDENTIFIER, code);
    if (code == T_ANNOTATION)
        return parseAnnotation();
    return unexpectedToken();
}

} // namespace tavo
