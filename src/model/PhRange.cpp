#include "model/PhRange.h"

#include "model/PhConversion.h"
#include "model/PhValue.h"
#include "model/ownership.h"

namespace tavo {

struct PhRangePrivate : Pooled
{
    std::uint8_t lowerLimitFlag = 0;
    std::uint8_t upperLimitFlag = 0;
    PhValue lowerLimit;
    PhValue upperLimit;
    PhValue result;
    PhValue inverseValue;
    PhRef<PhObject> auxRef;
    PhRef<PhConversion> conversion;
};

PhRange::PhRange() : PhObject(PhClassRange), d(new PhRangePrivate) {}

PhRange::~PhRange() = default;

std::uint8_t PhRange::lowerLimitFlag() const { return d->lowerLimitFlag; }

std::uint8_t PhRange::upperLimitFlag() const { return d->upperLimitFlag; }

void PhRange::setLowerLimitFlag(std::uint8_t flag) { d->lowerLimitFlag = flag; }

void PhRange::setUpperLimitFlag(std::uint8_t flag) { d->upperLimitFlag = flag; }

const PhValue& PhRange::lowerLimit() const { return d->lowerLimit; }

const PhValue& PhRange::upperLimit() const { return d->upperLimit; }

void PhRange::setLowerLimit(const PhValue& limit) { d->lowerLimit = limit; }

void PhRange::setUpperLimit(const PhValue& limit) { d->upperLimit = limit; }

const PhValue& PhRange::result() const { return d->result; }

void PhRange::setResult(const PhValue& result) { d->result = result; }

const PhValue& PhRange::inverseValue() const { return d->inverseValue; }

void PhRange::setInverseValue(const PhValue& value) { d->inverseValue = value; }

PhObject* PhRange::auxRef() const { return d->auxRef; }

void PhRange::setAuxRef(PhObject* object) { d->auxRef = object; }

PhConversion* PhRange::conversion() const { return d->conversion; }

void PhRange::setConversion(PhConversion* conversion) { d->conversion = conversion; }

} // namespace tavo
