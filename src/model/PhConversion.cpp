#include "model/PhConversion.h"

#include "model/PhPackedValues.h"
#include "model/PhRange.h"
#include "model/PhUnit.h"
#include "model/PhValue.h"
#include "model/ownership.h"

#include <cstring>
#include <memory>
#include <utility>

namespace tavo {

namespace {

/// What a packed value is to its conversion.
enum Mark
{
    LowerLimit,
    UpperLimit,
    BothLimits,
    Result,
    Numerator,
    Denominator
};

} // namespace

struct PhConversionPrivate : Pooled
{
    PhConversionType conversionType = PhConversionType::CtUndefined;
    bool hasPackedNumerator = false; ///< There is one, in `coefficients` as far as it has any.
    bool hasPackedDenominator = false;
    PhUnit* unit = nullptr;
    PhPackedValues rows; ///< All rows, as long as there is no list of them.
    PhList* ranges = nullptr;
    PhPackedValues coefficients; ///< All coefficients, as long as there is a list of none.
    PhList* numerator = nullptr;
    PhList* denominator = nullptr;
    PhConversion* conversion = nullptr;

    void packLimits(const PhValue& lower, const PhValue& upper);
    void unpackRows();
    void appendCoefficient(Mark mark, const PhValue& coefficient);
    void unpackCoefficients();
};

namespace {

constexpr PhConversionPrivate nothing;

bool areSame(const PhValue& a, const PhValue& b)
{
    const double left = a.doubleValue();
    const double right = b.doubleValue();
    return a.isInteger() == b.isInteger() && std::memcmp(&left, &right, sizeof left) == 0;
}

bool isPlainNumber(const PhValue& value)
{
    return PhPackedValues::canHold(value) && !value.isText();
}

} // namespace

void PhConversionPrivate::packLimits(const PhValue& lower, const PhValue& upper)
{
    const bool isPoint = areSame(lower, upper);
    rows.append(isPoint ? BothLimits : LowerLimit, lower);
    if (!isPoint)
        rows.append(UpperLimit, upper);
}

/// Makes the list of rows of what is packed, if anything is.
void PhConversionPrivate::unpackRows()
{
    if (rows.isEmpty())
        return;
    auto list = std::make_unique<PhList>();
    PhRange* row = nullptr;
    rows.forEach([&](const PhPackedValues::Item& item) {
        const int mark = item.mark();
        if (mark == LowerLimit || mark == BothLimits) {
            row = new PhRange;
            list->append(row);
            row->setLowerLimitFlag(1);
            row->setUpperLimitFlag(1);
            row->setLowerLimit(item.value());
        }
        if (mark == UpperLimit || mark == BothLimits)
            row->setUpperLimit(item.value());
        if (mark == Result)
            row->setResult(item.value());
        return true;
    });
    ranges = list.release();
    rows.clear();
}

void PhConversionPrivate::appendCoefficient(Mark mark, const PhValue& coefficient)
{
    const bool isUpper = mark == Numerator;
    if (!numerator && !denominator && isPlainNumber(coefficient)) {
        (isUpper ? hasPackedNumerator : hasPackedDenominator) = true;
        coefficients.append(mark, coefficient);
    } else {
        unpackCoefficients();
        appendTo(isUpper ? numerator : denominator, new PhValue(coefficient));
    }
}

/// Makes the lists of the coefficients that are packed, if there are such lists.
void PhConversionPrivate::unpackCoefficients()
{
    std::unique_ptr<PhList> upper(hasPackedNumerator ? new PhList : nullptr);
    std::unique_ptr<PhList> lower(hasPackedDenominator ? new PhList : nullptr);
    if (!upper && !lower)
        return;
    coefficients.forEach([&](const PhPackedValues::Item& item) {
        (item.mark() == Numerator ? upper : lower)->append(new PhValue(item.value()));
        return true;
    });
    numerator = upper.release();
    denominator = lower.release();
    hasPackedNumerator = hasPackedDenominator = false;
    coefficients.clear();
}

const PhConversionPrivate& PhConversion::kept() const { return d ? *d : nothing; }

PhConversionPrivate& PhConversion::made()
{
    if (!d)
        d = std::make_unique<PhConversionPrivate>();
    return *d;
}

PhConversion::PhConversion() : PhObject(PhClassConversion) {}

PhConversion::~PhConversion()
{
    if (!d)
        return;
    releaseList(d->ranges);
    releaseList(d->numerator);
    releaseList(d->denominator);
    // A file can chain any number of conversions. As far as this one holds the last count, the
    // chain is taken apart link by link: a conversion that refers to no other destroys only itself.
    PhConversion* held = std::exchange(d->conversion, nullptr);
    while (held && held->refCount() <= 1) {
        PhConversion* next = held->d ? std::exchange(held->d->conversion, nullptr) : nullptr;
        unlink(held);
        held = next;
    }
    unlink(held);
    setUnit(nullptr);
}

PhConversionType PhConversion::conversionType() const { return kept().conversionType; }

void PhConversion::setConversionType(PhConversionType conversionType)
{
    made().conversionType = conversionType;
}

PhUnit* PhConversion::unit() const { return kept().unit; }

void PhConversion::setUnit(PhUnit* unit)
{
    const PhHold<PhUnit> hold(unit);
    setRef(made().unit, unit);
}

PhConversion* PhConversion::conversion() const { return kept().conversion; }

void PhConversion::setConversion(PhConversion* conversion)
{
    const PhHold<PhConversion> hold(conversion);
    setRef(made().conversion, conversion);
}

PhList* PhConversion::ranges() const
{
    if (d)
        d->unpackRows();
    return kept().ranges;
}

void PhConversion::appendRange(PhRange* range)
{
    const PhHold<PhRange> hold(range);
    made().unpackRows();
    appendTo(d->ranges, range);
}

void PhConversion::appendRow(const PhValue& lower, const PhValue& upper, const PhValue& result)
{
    if (!made().ranges && isPlainNumber(lower) && isPlainNumber(upper) &&
        PhPackedValues::canHold(result)) {
        d->packLimits(lower, upper);
        d->rows.append(Result, result);
        return;
    }
    const PhHold<PhRange> row(new PhRange);
    row->setLowerLimitFlag(1);
    row->setUpperLimitFlag(1);
    row->setLowerLimit(lower);
    row->setUpperLimit(upper);
    row->setResult(result);
    appendRange(row.get());
}

void PhConversion::appendRow(const PhValue& lower, const PhValue& upper, std::string_view result)
{
    if (!made().ranges && isPlainNumber(lower) && isPlainNumber(upper)) {
        d->packLimits(lower, upper);
        d->rows.append(Result, result);
    } else {
        appendRow(lower, upper, PhValue(PhString(result)));
    }
}

PhList* PhConversion::numerator() const
{
    if (d)
        d->unpackCoefficients();
    return kept().numerator;
}

PhList* PhConversion::denominator() const
{
    if (d)
        d->unpackCoefficients();
    return kept().denominator;
}

PhList* PhConversion::createNumerator()
{
    made().unpackCoefficients();
    return createList(d->numerator);
}

PhList* PhConversion::createDenominator()
{
    made().unpackCoefficients();
    return createList(d->denominator);
}

void PhConversion::createCoefficients()
{
    if (made().numerator || d->denominator) {
        createList(d->numerator);
        createList(d->denominator);
    } else {
        d->hasPackedNumerator = d->hasPackedDenominator = true;
    }
}

void PhConversion::appendNumerator(const PhValue& coefficient)
{
    made().appendCoefficient(Numerator, coefficient);
}

void PhConversion::appendDenominator(const PhValue& coefficient)
{
    made().appendCoefficient(Denominator, coefficient);
}

namespace {

/// (a x + b) / d, as far as the coefficients come to that.
struct LinearFunction
{
    double numerator[2] = {};
    int numeratorCount = 0;
    int denominatorCount = 0;
    double divisor = 1.0;

    /// False for one coefficient more than there can be, from which on none need be added.
    bool add(int mark, double coefficient)
    {
        if (mark == Denominator) {
            if (coefficient != 0.0)
                divisor = coefficient;
            return ++denominatorCount <= 1;
        }
        if (numeratorCount < 2)
            numerator[numeratorCount] = coefficient;
        return ++numeratorCount <= 2;
    }
};

bool hasNonZero(const PhList* coefficients)
{
    for (const PhValue* coefficient : each<PhValue>(coefficients))
        if (coefficient->doubleValue() != 0.0)
            return true;
    return false;
}

/// Adds the term of the current coefficient to `sum` and steps to the next higher power.
void addTerm(PhValue& sum, const PhValue& power, PhListCursor& coefficients)
{
    if (const PhObject* coefficient = coefficients.current()) {
        PhValue term(power);
        term *= static_cast<const PhValue&>(*coefficient);
        sum += term;
        coefficients.prev();
    }
}

} // namespace

bool PhConversion::getLinearFactors(double* factor, double* offset) const
{
    LinearFunction function;
    bool isLinear = true;
    kept().coefficients.forEach([&](const PhPackedValues::Item& item) {
        return isLinear = function.add(item.mark(), item.doubleValue());
    });
    const auto addAll = [&](const PhList* list, Mark mark) {
        for (const PhValue* coefficient : each<PhValue>(list))
            if (!isLinear || !(isLinear = function.add(mark, coefficient->doubleValue())))
                return;
    };
    addAll(kept().numerator, Numerator);
    addAll(kept().denominator, Denominator);
    if (!isLinear)
        return false;
    const int count = function.numeratorCount;
    *factor = (count == 2 ? function.numerator[0] : 1.0) / function.divisor;
    *offset = (count > 0 ? function.numerator[count - 1] : 0.0) / function.divisor;
    return true;
}

void PhConversion::convert(const PhValue& x, PhValue& y) const
{
    PhListCursor above(numerator());
    PhListCursor below(denominator());
    above.last();
    below.last();
    PhValue power(1);
    PhValue numeratorSum;
    PhValue denominatorSum;
    while (above.current() || below.current()) {
        addTerm(numeratorSum, power, above);
        addTerm(denominatorSum, power, below);
        power *= x;
    }
    y = numeratorSum;
    if (hasNonZero(kept().denominator))
        y /= denominatorSum;
}

} // namespace tavo
