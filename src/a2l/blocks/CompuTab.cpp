// The three kinds of conversion tables: COMPU_TAB, COMPU_VTAB and COMPU_VTAB_RANGE.

#include "a2l/PhA2l.h"

#include "model/PhConversion.h"
#include "model/PhValue.h"
#include "model/decimal.h"
#include "model/ownership.h"
#include "topology/PhGroup.h"

#include <algorithm>
#include <initializer_list>

namespace tavo {

/// What the three kinds differ in.
struct PhA2l::TableKind
{
    int keyword;
    const char* progressLine;
    std::initializer_list<int> typeWords; ///< Without any, there is no such field.
    bool isRounded;                       ///< The input is an integer, not a double.
    bool isRange;                         ///< The input is two numbers.
    bool isVerbal;                        ///< The output is a text, not a number.
};

/// COMPU_TAB name longIdentifier { TAB_INTP | TAB_NOINTP } count { input output }
/// { DEFAULT_VALUE x } /end COMPU_TAB
int PhA2l::parseCompuTab(PhGroup* group)
{
    return parseTable(group, {.keyword = T_COMPU_TAB,
                              .progressLine = "  Parse COMPU_TAB '%s'\n",
                              .typeWords = {enumWord::T_TAB_INTP, enumWord::T_TAB_NOINTP},
                              .isRounded = false,
                              .isRange = false,
                              .isVerbal = false});
}

/// COMPU_VTAB name longIdentifier TAB_VERB count { input "text" } { DEFAULT_VALUE x }
/// /end COMPU_VTAB
int PhA2l::parseCompuVtab(PhGroup* group)
{
    return parseTable(group, {.keyword = T_COMPU_VTAB,
                              .progressLine = "  Parse COMPU_VTAB '%s'\n",
                              .typeWords = {enumWord::T_TAB_VERB},
                              .isRounded = true,
                              .isRange = false,
                              .isVerbal = true});
}

/// COMPU_VTAB_RANGE name longIdentifier count { minimum maximum "text" } { DEFAULT_VALUE x }
/// /end COMPU_VTAB_RANGE
int PhA2l::parseCompuVtabRange(PhGroup* group)
{
    return parseTable(group, {.keyword = T_COMPU_VTAB_RANGE,
                              .progressLine = "  Parse COMPU_VTAB_RANGE '%s'\n",
                              .typeWords = {},
                              .isRounded = false,
                              .isRange = true,
                              .isVerbal = true});
}

/// What the three have in common. A table has one kind of conversion whatever its type word says,
/// and its default isn't kept.
int PhA2l::parseTable(PhGroup* group, const TableKind& kind)
{
    const PhRef<PhConversion> table(new PhConversion);
    table->setConversionType(PhConversionType::CtTable);
    table->setName(readText());
    group->prepareConversion(table->name());
    table->setLongName(readText());
    progress(kind.progressLine, token().text);
    if (kind.typeWords.size() > 0)
        parseTableType(kind);
    group->appendConversion(table.get());

    if (nextToken() != T_INTEGER) {
        error("Integer value (element count) expected");
        return T_ERROR;
    }
    for (std::int32_t count = token().integer; count > 0; --count)
        if (!parseTableRow(*table, kind))
            return T_ERROR;
    return parseOptions(kind.keyword, [&](int code) {
        if (code != T_DEFAULT_VALUE)
            return unexpectedToken();
        dropFields(1);
        if (debug() && kind.isVerbal)
            log("T_DEFAULT_VALUE: '%.*s'\n", static_cast<int>(token().text.size()),
                token().text.data());
        return nextToken();
    });
}

/// The type word, of which nothing is kept but a warning if it is none of the table's.
void PhA2l::parseTableType(const TableKind& kind)
{
    const VocabularyScope words(lexer_, enumKeywords);
    const int code = nextToken();
    if (std::ranges::find(kind.typeWords, code) == kind.typeWords.end())
        warnUnexpectedToken();
}

/// input [ upper ] ( output | "text" ). False, with an error, if a value isn't of the kind that
/// belongs there.
bool PhA2l::parseTableRow(PhConversion& table, const TableKind& kind)
{
    PhValue lower;
    PhValue upper;
    if (!readTableNumber(lower, kind.isRounded) ||
        (kind.isRange && !readTableNumber(upper, kind.isRounded)))
        return false;
    const PhValue& last = kind.isRange ? upper : lower;
    if (!kind.isVerbal) {
        PhValue output;
        if (!readTableNumber(output, false))
            return false;
        table.appendRow(lower, last, output);
        return true;
    }
    if (nextToken() != T_STRING) {
        error("String value expected");
        return false;
    }
    table.appendRow(lower, last, token().text);
    return true;
}

/// Reads a number as a double, or rounded to an integer: plus a half and then toward zero,
/// saturated, so that 2.5 gives 3 and -2.5 gives -2.
bool PhA2l::readTableNumber(PhValue& result, bool isRounded)
{
    if (!readNumber()) {
        error("Double or integer value expected");
        return false;
    }
    const bool isInteger = token().code == T_INTEGER;
    if (!isRounded)
        result = isInteger ? token().integer : token().real;
    else
        result = isInteger ? token().integer : truncated<std::int32_t>(token().real + 0.5);
    return true;
}

} // namespace tavo
