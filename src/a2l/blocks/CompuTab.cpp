// The three kinds of conversion tables: COMPU_TAB, COMPU_VTAB and COMPU_VTAB_RANGE.

#include "a2l/PhA2l.h"

#include "model/PhConversion.h"
#include "model/PhValue.h"
#include "model/decimal.h"
#include "model/ownership.h"
#include "topology/PhGroup.h"

namespace tavo {

namespace {

const char* progressLine(int keyword)
{
    switch (keyword) {
    case T_COMPU_TAB:
        return "  Parse COMPU_TAB '%s'\n";
    case T_COMPU_VTAB:
        return "  Parse COMPU_VTAB '%s'\n";
    default:
        return "  Parse COMPU_VTAB_RANGE '%s'\n";
    }
}

} // namespace

/// COMPU_TAB name longIdentifier { TAB_INTP | TAB_NOINTP } count { input output }
/// { DEFAULT_VALUE x } /end COMPU_TAB
int PhA2l::parseCompuTab(PhGroup* group) { return parseTable(group, T_COMPU_TAB); }

/// COMPU_VTAB name longIdentifier TAB_VERB count { input "text" } { DEFAULT_VALUE x }
/// /end COMPU_VTAB
int PhA2l::parseCompuVtab(PhGroup* group) { return parseTable(group, T_COMPU_VTAB); }

/// COMPU_VTAB_RANGE name longIdentifier count { minimum maximum "text" } { DEFAULT_VALUE x }
/// /end COMPU_VTAB_RANGE
int PhA2l::parseCompuVtabRange(PhGroup* group) { return parseTable(group, T_COMPU_VTAB_RANGE); }

/// What the three have in common; `keyword` tells which one it is. A table has one kind of
/// conversion whatever its type word says, and its default isn't kept.
int PhA2l::parseTable(PhGroup* group, int keyword)
{
    const PhHold<PhConversion> table(new PhConversion);
    table->setConversionType(PhConversionType::CtTable);
    table->setName(readText());
    table->setLongName(readText());
    progress(progressLine(keyword), token().text);
    if (keyword != T_COMPU_VTAB_RANGE)
        parseTableType(keyword);
    group->appendConversion(table.get());

    if (nextToken() != T_INTEGER) {
        error("Integer value (element count) expected");
        return T_ERROR;
    }
    for (std::int32_t count = token().integer; count > 0; --count)
        if (!readRow(*table, keyword))
            return T_ERROR;
    return parseOptions(keyword, [&](int code) {
        if (code != T_DEFAULT_VALUE)
            return unexpectedToken();
        dropFields(1);
        if (debug() && keyword != T_COMPU_TAB)
            log("T_DEFAULT_VALUE: '%.*s'\n", static_cast<int>(token().text.size()),
                token().text.data());
        return nextToken();
    });
}

/// The type word, of which nothing is kept but a warning if it is none of the table's.
void PhA2l::parseTableType(int keyword)
{
    const VocabularyScope words(lexer_, enumKeywords);
    const int code = nextToken();
    const bool known = keyword == T_COMPU_VTAB
                           ? code == enumWord::T_TAB_VERB
                           : code == enumWord::T_TAB_INTP || code == enumWord::T_TAB_NOINTP;
    if (!known)
        warnUnexpectedToken();
}

/// Reads one row of a table. False, with an error, if a value isn't of the kind that belongs there.
bool PhA2l::readRow(PhConversion& table, int keyword)
{
    PhValue lower;
    PhValue upper;
    PhValue result;
    std::string_view text;
    switch (keyword) {
    case T_COMPU_TAB:
        if (!readDouble(lower) || !readDouble(result))
            return false;
        table.appendRow(lower, lower, result);
        return true;
    case T_COMPU_VTAB:
        if (!readRounded(lower) || !readString(text))
            return false;
        table.appendRow(lower, lower, text);
        return true;
    default:
        if (!readDouble(lower) || !readDouble(upper) || !readString(text))
            return false;
        table.appendRow(lower, upper, text);
        return true;
    }
}

bool PhA2l::readDouble(PhValue& number)
{
    switch (nextToken()) {
    case T_INTEGER:
        number = static_cast<double>(token().integer);
        return true;
    case T_DOUBLE:
        number = token().real;
        return true;
    default:
        error("Double or integer value expected");
        return false;
    }
}

/// Reads a number as an integer: a floating-point one counts plus a half and then toward zero,
/// saturated, so that 2.5 gives 3 and -2.5 gives -2.
bool PhA2l::readRounded(PhValue& number)
{
    switch (nextToken()) {
    case T_INTEGER:
        number = token().integer;
        return true;
    case T_DOUBLE:
        number = truncated<std::int32_t>(token().real + 0.5);
        return true;
    default:
        error("Double or integer value expected");
        return false;
    }
}

/// The text is valid until the next token is read.
bool PhA2l::readString(std::string_view& text)
{
    if (nextToken() != T_STRING) {
        error("String value expected");
        return false;
    }
    text = token().text;
    return true;
}

} // namespace tavo
