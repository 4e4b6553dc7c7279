#include "a2l/PhA2l.h"

#include "model/PhConversion.h"
#include "model/PhValue.h"
#include "model/ownership.h"
#include "topology/PhGroup.h"

namespace tavo {

namespace {

PhConversionType conversionTypeOf(int code)
{
    switch (code) {
    case enumWord::T_TAB_INTP:
        return PhConversionType::CtInterpolation;
    case enumWord::T_TAB_NOINTP:
    case enumWord::T_TAB_VERB:
        return PhConversionType::CtTable;
    case enumWord::T_RAT_FUNC:
        return PhConversionType::CtRational;
    case enumWord::T_FORM:
        return PhConversionType::CtFormula;
    default:
        return PhConversionType::CtUndefined;
    }
}

} // namespace

/// COMPU_METHOD name longIdentifier conversionType format unit
/// { COEFFS a b c d e f | COMPU_TAB_REF name | FORMULA ... } /end COMPU_METHOD
int PhA2l::parseCompuMethod(PhGroup* group)
{
    const PhRef<PhConversion> conversion(new PhConversion);
    conversion->setName(readText());
    group->prepareConversion(conversion->name());
    conversion->setLongName(readText());
    progress("  Parse COMPU_METHOD '%s'\n", token().text);
    {
        const VocabularyScope words(lexer_, enumKeywords);
        conversion->setConversionType(readWord(conversionTypeOf));
    }
    dropFields(1); // the format
    conversion->setUnitLabel(sharedName(readText()));
    group->appendConversion(conversion.get());

    return parseOptions(T_COMPU_METHOD, [&](int code) {
        switch (code) {
        case T_COEFFS:
            parseCoeffs(conversion.get());
            return nextToken();
        case T_COMPU_TAB_REF:
            // Itself would be a circle.
            refer(conversion->conversionRef(), readReference(*group), *group, conversion.get());
            return nextToken();
        case T_BEGIN:
            code = nextToken();
            if (code == T_FORMULA)
                return parseFormula();
            break;
        }
        return unexpectedToken();
    });
}

/// a b c d e f, with which the file gives internal = (a p^2 + b p + c) / (d p^2 + e p + f) for the
/// physical value p. The conversion holds the inverse, as far as there is one to be had:
///
/// - a, d and e zero: physical = (f x - c) / b for the internal value x
/// - a, b and d zero: physical = (c - f x) / (e x)
///
/// A value that is no number counts as zero and is left out of the lists. Nothing clears them: a
/// second COEFFS adds to the first.
void PhA2l::parseCoeffs(PhConversion* conversion)
{
    const auto read = [&] {
        if (readNumber())
            return number();
        warnUnexpectedToken();
        return PhValue();
    };
    const PhValue a = read();
    const PhValue b = read();
    PhValue c = read();
    const PhValue d = read();
    const PhValue e = read();
    PhValue f = read();
    const auto zero = [](const PhValue& number) { return !number.isValid() || number.isZero(); };
    const auto above = [&](const PhValue& number) {
        if (number.isValid())
            conversion->appendNumerator(number);
    };
    const auto below = [&](const PhValue& number) {
        if (number.isValid())
            conversion->appendDenominator(number);
    };

    conversion->createCoefficients();
    if (zero(a) && zero(d) && zero(e)) {
        above(f);
        above(c.negate());
        below(b);
    } else if (zero(a) && zero(b) && zero(d)) {
        above(f.negate());
        above(c);
        below(e);
        below(PhValue(0));
    } else {
        warning("Unable to compute inverse function in conversion '%s'", conversion->name().cStr());
    }
}

/// FORMULA [ "formula" ] { FORMULA_INV "formula" } /end FORMULA, of which nothing is kept.
int PhA2l::parseFormula()
{
    int code = nextToken();
    if (code == T_STRING)
        code = nextToken();
    while (code == T_FORMULA_INV) {
        code = nextToken();
        if (code != T_STRING)
            return unexpectedToken();
        code = nextToken();
    }
    if (code != T_END)
        return unexpectedToken();
    return expectEnd(T_FORMULA);
}

} // namespace tavo
