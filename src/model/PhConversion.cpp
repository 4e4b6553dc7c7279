#include "model/PhConversion.h"

#include "model/PhPackedValues.h"
#include "model/PhRange.h"
#include "model/PhUnit.h"
#include "model/PhValue.h"
#include "model/ownership.h"

#include <bit>
#include <cstdint>
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
    /// A file can chain any number of conversions. As far as this reference holds the last count,
    /// the chain is taken apart link by link: a conversion that refers to no other destroys only
    /// itself.
    class Chain : public PhRef<PhConversion>
    {
    public:
        using PhRef::operator=;
        ~Chain()
        {
            PhConversion* held = release();
            while (held && held->refCount() <= 1) {
                PhConversion* next = held->d ? held->d->conversion.release() : nullptr;
                PhObject::unlink(held);
                held = next;
            }
            PhObject::unlink(held);
        }
    };

    PhConversionType conversionType = PhConversionType::CtUndefined;
    bool hasPackedNumerator = false; ///< There is one, in `coefficients` as far as it has any.
    bool hasPackedDenominator = false;
    PhPackedValues rows;         ///< All rows, as long as there is no list of them.
    PhPackedValues coefficients; ///< All coefficients, as long as there is a list of none.
    PhRef<PhUnit> unit;
    Chain conversion;
    PhLazyList denominator;
    PhLazyList numerator;
    PhLazyList ranges;

    void packLimits(const PhValue& lower, const PhValue& upper);
    void unpackRows();
    void appendCoefficient(Mark mark, const PhValue& coefficient);
    void unpackCoefficients();
};

namespace {

bool areSame(const PhValue& a, const PhValue& b)
{
    // The bits, because a negative zero is another number here.
    const auto bits = [](const PhValue& value) {
        return std::bit_cast<std::uint64_t>(value.doubleValue());
    };
    return a.isInteger() == b.isInteger() && bits(a) == bits(b);
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
    ranges.adopt(std::move(list));
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
        (isUpper ? numerator : denominator).append(new PhValue(coefficient));
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
    numerator.adopt(std::move(upper));
    denominator.adopt(std::move(lower));
    hasPackedNumerator = hasPackedDenominator = false;
    coefficients.clear();
}

PhConversion::PhConversion() : PhObject(PhClassConversion) {}

PhConversion::~PhConversion() = default;

PhConversionType PhConversion::conversionType() const
{
    return d ? d->conversionType : PhConversionType::CtUndefined;
}

void PhConversion::setConversionType(PhConversionType conversionType)
{
    d.made().conversionType = conversionType;
}

PhUnit* PhConversion::unit() const { return d ? d->unit.get() : nullptr; }

void PhConversion::setUnit(PhUnit* unit)
{
    const PhRef<PhUnit> hold(unit);
    d.made().unit = unit;
}

PhConversion* PhConversion::conversion() const { return d ? d->conversion.get() : nullptr; }

void PhConversion::setConversion(PhConversion* conversion)
{
    const PhRef<PhConversion> hold(conversion);
    d.made().conversion = conversion;
}

PhList* PhConversion::ranges() const
{
    if (!d)
        return nullptr;
    d->unpackRows();
    return d->ranges;
}

void PhConversion::appendRange(PhRange* range)
{
    const PhRef<PhRange> hold(range);
    d.made().unpackRows();
    d->ranges.append(range);
}

void PhConversion::appendRow(const PhValue& lower, const PhValue& upper, const PhValue& result)
{
    if (!d.made().ranges && isPlainNumber(lower) && isPlainNumber(upper) &&
        PhPackedValues::canHold(result)) {
        d->packLimits(lower, upper);
        d->rows.append(Result, result);
        return;
    }
    const PhRef<PhRange> row(new PhRange);
    row->setLowerLimitFlag(1);
    row->setUpperLimitFlag(1);
    row->setLowerLimit(lower);
    row->setUpperLimit(upper);
    row->setResult(result);
    appendRange(row.get());
}

void PhConversion::appendRow(const PhValue& lower, const PhValue& upper, std::string_view result)
{
    if (!d.made().ranges && isPlainNumber(lower) && isPlainNumber(upper)) {
        d->packLimits(lower, upper);
        d->rows.append(Result, result);
    } else {
        appendRow(lower, upper, PhValue(PhString(result)));
    }
}

PhList* PhConversion::numerator() const
{
    if (!d)
        return nullptr;
    d->unpackCoefficients();
    return d->numerator;
}

PhList* PhConversion::denominator() const
{
    if (!d)
        return nullptr;
    d->unpackCoefficients();
    return d->denominator;
}

PhList* PhConversion::createNumerator()
{
    d.made().unpackCoefficients();
    return d->numerator.made();
}

PhList* PhConversion::createDenominator()
{
    d.made().unpackCoefficients();
    return d->denominator.made();
}

void PhConversion::createCoefficients()
{
    if (d.made().numerator || d->denominator) {
        d->numerator.made();
        d->denominator.made();
    } else {
        d->hasPackedNumerator = d->hasPackedDenominator = true;
    }
}

void PhConversion::appendNumerator(const PhValue& coefficient)
{
    d.made().appendCoefficient(Numerator, coefficient);
}

void PhConversion::appendDenominator(const PhValue& coefficient)
{
    d.made().appendCoefficient(Denominator, coefficient);
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
    const auto addAll = [&](const PhList* list, Mark mark) {
        for (const PhValue* coefficient : each<PhValue>(list))
            if (!isLinear || !(isLinear = function.add(mark, coefficient->doubleValue())))
                return;
    };
    if (d) {
        d->coefficients.forEach([&](const PhPackedValues::Item& item) {
            return isLinear = function.add(item.mark(), item.doubleValue());
        });
        addAll(d->numerator, Numerator);
        addAll(d->denominator, Denominator);
    }
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
    if (hasNonZero(denominator()))
        y /= denominatorSum;
}

} // namespace tavo
