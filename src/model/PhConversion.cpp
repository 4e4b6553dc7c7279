#include "model/PhConversion.h"

#include "model/PhRange.h"
#include "model/PhUnit.h"
#include "model/PhValue.h"
#include "model/ownership.h"

#include <utility>

namespace tavo {

struct PhConversionPrivate : Pooled
{
    PhConversionType conversionType = PhConversionType::CtUndefined;
    PhUnit* unit = nullptr;
    PhList* ranges = nullptr;
    PhList* numerator = nullptr;
    PhList* denominator = nullptr;
    PhConversion* conversion = nullptr;
};

namespace {

constexpr PhConversionPrivate nothing;

} // namespace

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

PhList* PhConversion::ranges() const { return kept().ranges; }

void PhConversion::appendRange(PhRange* range)
{
    const PhHold<PhRange> hold(range);
    appendTo(made().ranges, range);
}

PhList* PhConversion::numerator() const { return kept().numerator; }

PhList* PhConversion::denominator() const { return kept().denominator; }

PhList* PhConversion::createNumerator() { return createList(made().numerator); }

PhList* PhConversion::createDenominator() { return createList(made().denominator); }

void PhConversion::appendNumerator(const PhValue& coefficient)
{
    PhList*& list = made().numerator;
    appendTo(list, new PhValue(coefficient));
}

void PhConversion::appendDenominator(const PhValue& coefficient)
{
    PhList*& list = made().denominator;
    appendTo(list, new PhValue(coefficient));
}

namespace {

double numberOf(const PhObject* coefficient)
{
    return static_cast<const PhValue*>(coefficient)->doubleValue();
}

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
    if (countOf(kept().numerator) > 2 || countOf(kept().denominator) > 1)
        return false;
    *factor = countOf(kept().numerator) == 2 ? numberOf(kept().numerator->first()) : 1.0;
    *offset = countOf(kept().numerator) > 0 ? numberOf(kept().numerator->last()) : 0.0;
    if (hasNonZero(kept().denominator)) {
        const double divisor = numberOf(kept().denominator->first());
        *factor /= divisor;
        *offset /= divisor;
    }
    return true;
}

void PhConversion::convert(const PhValue& x, PhValue& y) const
{
    PhListCursor numerator(kept().numerator);
    PhListCursor denominator(kept().denominator);
    numerator.last();
    denominator.last();
    PhValue power(1);
    PhValue numeratorSum;
    PhValue denominatorSum;
    while (numerator.current() || denominator.current()) {
        addTerm(numeratorSum, power, numerator);
        addTerm(denominatorSum, power, denominator);
        power *= x;
    }
    y = numeratorSum;
    if (hasNonZero(kept().denominator))
        y /= denominatorSum;
}

} // namespace tavo
