#include "model/PhConversion.h"

#include "model/PhRange.h"
#include "model/PhUnit.h"
#include "model/PhValue.h"

#include <bit>
#include <cstdint>
#include <memory>
#include <utility>

namespace tavo {

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

void PhConversion::packLimits(const PhValue& lower, const PhValue& upper)
{
    const bool isPoint = areSame(lower, upper);
    rows_.append(isPoint ? BothLimits : LowerLimit, lower);
    if (!isPoint)
        rows_.append(UpperLimit, upper);
}

/// Makes the list of rows of what is packed, if anything is.
void PhConversion::unpackRows() const
{
    if (rows_.isEmpty())
        return;
    auto list = std::make_unique<PhList>();
    PhRange* row = nullptr;
    rows_.forEach([&](const PhPackedValues::Item& item) {
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
    lists_.made().ranges.adopt(std::move(list));
    rows_.clear();
}

/// True as long as all coefficients are packed.
bool PhConversion::packsCoefficients() const
{
    return !listOf(&Lists::numerator) && !listOf(&Lists::denominator);
}

void PhConversion::appendCoefficient(Mark mark, const PhValue& coefficient)
{
    const bool isUpper = mark == Numerator;
    if (packsCoefficients() && isPlainNumber(coefficient)) {
        (isUpper ? hasPackedNumerator_ : hasPackedDenominator_) = true;
        coefficients_.append(mark, coefficient);
    } else {
        unpackCoefficients();
        Lists& lists = lists_.made();
        (isUpper ? lists.numerator : lists.denominator).append(new PhValue(coefficient));
    }
}

/// Makes the lists of the coefficients that are packed, if there are such lists.
void PhConversion::unpackCoefficients() const
{
    std::unique_ptr<PhList> upper(hasPackedNumerator_ ? new PhList : nullptr);
    std::unique_ptr<PhList> lower(hasPackedDenominator_ ? new PhList : nullptr);
    if (!upper && !lower)
        return;
    coefficients_.forEach([&](const PhPackedValues::Item& item) {
        (item.mark() == Numerator ? upper : lower)->append(new PhValue(item.value()));
        return true;
    });
    lists_.made().numerator.adopt(std::move(upper));
    lists_->denominator.adopt(std::move(lower));
    hasPackedNumerator_ = hasPackedDenominator_ = false;
    coefficients_.clear();
}

PhConversion* PhConversionRef::conversion() const
{
    return made([](const PhString& name, bool wasReported) {
        auto placeholder = std::make_unique<PhConversion>();
        placeholder->setName(name);
        placeholder->setUnresolved();
        if (wasReported)
            placeholder->setReported();
        return placeholder.release();
    });
}

void PhConversion::Chain::takeApart()
{
    PhConversion* held = release();
    while (held && held->refCount() <= 1) {
        PhConversion* next = held->conversion_.release();
        PhObject::unlink(held);
        held = next;
    }
    PhObject::unlink(held);
}

PhConversion::PhConversion() : PhObject(PhClassConversion) {}

PhConversion::~PhConversion() = default;

PhUnit* PhConversion::unit() const
{
    return unit_.made([](const PhString& label, bool) {
        auto unit = std::make_unique<PhUnit>();
        unit->setLabel(label);
        return unit.release();
    });
}

void PhConversion::setUnit(PhUnit* unit) { unit_ = unit; }

const PhString* PhConversion::unitLabel() const
{
    return unit_.peek() ? &unit_.peek()->label() : unit_.text();
}

PhList* PhConversion::ranges() const
{
    unpackRows();
    return listOf(&Lists::ranges);
}

void PhConversion::appendRange(PhRange* range)
{
    const PhRef<PhRange> hold(range);
    unpackRows();
    lists_.made().ranges.append(range);
}

void PhConversion::appendRow(const PhValue& lower, const PhValue& upper, const PhValue& result)
{
    if (packsRows() && isPlainNumber(lower) && isPlainNumber(upper) &&
        PhPackedValues::canHold(result)) {
        packLimits(lower, upper);
        rows_.append(Result, result);
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
    if (packsRows() && isPlainNumber(lower) && isPlainNumber(upper)) {
        packLimits(lower, upper);
        rows_.append(Result, result);
    } else {
        appendRow(lower, upper, PhValue(PhString(result)));
    }
}

PhList* PhConversion::numerator() const
{
    unpackCoefficients();
    return listOf(&Lists::numerator);
}

PhList* PhConversion::denominator() const
{
    unpackCoefficients();
    return listOf(&Lists::denominator);
}

PhList* PhConversion::createNumerator()
{
    unpackCoefficients();
    return lists_.made().numerator.made();
}

PhList* PhConversion::createDenominator()
{
    unpackCoefficients();
    return lists_.made().denominator.made();
}

void PhConversion::createCoefficients()
{
    if (packsCoefficients()) {
        hasPackedNumerator_ = hasPackedDenominator_ = true;
    } else {
        lists_->numerator.made();
        lists_->denominator.made();
    }
}

void PhConversion::appendNumerator(const PhValue& coefficient)
{
    appendCoefficient(Numerator, coefficient);
}

void PhConversion::appendDenominator(const PhValue& coefficient)
{
    appendCoefficient(Denominator, coefficient);
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
    bool add(bool isBelow, double coefficient)
    {
        if (isBelow) {
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
    const auto addAll = [&](const PhList* list, bool areBelow) {
        for (const PhValue* coefficient : each<PhValue>(list))
            if (!isLinear || !(isLinear = function.add(areBelow, coefficient->doubleValue())))
                return;
    };
    coefficients_.forEach([&](const PhPackedValues::Item& item) {
        return isLinear = function.add(item.mark() == Denominator, item.doubleValue());
    });
    addAll(listOf(&Lists::numerator), false);
    addAll(listOf(&Lists::denominator), true);
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
