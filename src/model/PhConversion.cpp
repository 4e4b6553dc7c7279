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

PhConversion::PhConversion() : PhObject(PhClassConversion), d(new PhConversionPrivate) {}

PhConversion::~PhConversion()
{
    releaseList(d->ranges);
    releaseList(d->numerator);
    releaseList(d->denominator);
    // A file can chain any number of conversions. As far as this one holds the last count, the
    // chain is taken apart link by link: a conversion that refers to no other destroys only itself.
    PhConversion* held = std::exchange(d->conversion, nullptr);
    while (held && held->refCount() <= 1) {
        PhConversion* next = std::exchange(held->d->conversion, nullptr);
        unlink(held);
        held = next;
    }
    unlink(held);
    setUnit(nullptr);
}

PhConversionType PhConversion::conversionType() const { return d->conversionType; }

void PhConversion::setConversionType(PhConversionType conversionType)
{
    d->conversionType = conversionType;
}

PhUnit* PhConversion::unit() const { return d->unit; }

void PhConversion::setUnit(PhUnit* unit) { setRef(d->unit, unit); }

PhConversion* PhConversion::conversion() const { return d->conversion; }

void PhConversion::setConversion(PhConversion* conversion) { setRef(d->conversion, conversion); }

PhList* PhConversion::ranges() const { return d->ranges; }

void PhConversion::appendRange(PhRange* range) { appendTo(d->ranges, range); }

PhList* PhConversion::numerator() const { return d->numerator; }

PhList* PhConversion::denominator() const { return d->denominator; }

PhList* PhConversion::createNumerator() { return createList(d->numerator); }

PhList* PhConversion::createDenominator() { return createList(d->denominator); }

void PhConversion::appendNumerator(const PhValue& coefficient)
{
    appendTo(d->numerator, new PhValue(coefficient));
}

void PhConversion::appendDenominator(const PhValue& coefficient)
{
    appendTo(d->denominator, new PhValue(coefficient));
}

namespace {

std::uint32_t countOf(const PhList* list) { return list ? list->count() : 0; }

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
    if (countOf(d->numerator) > 2 || countOf(d->denominator) > 1)
        return false;
    *factor = countOf(d->numerator) == 2 ? numberOf(d->numerator->first()) : 1.0;
    *offset = countOf(d->numerator) > 0 ? numberOf(d->numerator->last()) : 0.0;
    if (hasNonZero(d->denominator)) {
        const double divisor = numberOf(d->denominator->first());
        *factor /= divisor;
        *offset /= divisor;
    }
    return true;
}

void PhConversion::convert(const PhValue& x, PhValue& y) const
{
    PhListCursor numerator(d->numerator);
    PhListCursor denominator(d->denominator);
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
    if (hasNonZero(d->denominator))
        y /= denominatorSum;
}

} // namespace tavo
