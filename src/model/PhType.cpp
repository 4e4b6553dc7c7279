#include "model/PhType.h"

#include "model/PhConversion.h"
#include "model/PhUnit.h"
#include "model/PhValue.h"
#include "model/ownership.h"

namespace tavo {

struct PhTypePrivate : Pooled
{
    PhBaseType baseType = PhBaseType::BtUndefined;
    PhEndian endian = PhEndian::BigEndian;
    int bitCount = 0; ///< Width of the stored value.
    PhRef<PhValue> bitMask;
    PhRef<PhConversion> conversion;
    PhRef<PhUnit> unit;
};

PhType::PhType() : PhObject(PhClassType), d(new PhTypePrivate) {}

PhType::~PhType() = default;

PhBaseType PhType::baseType() const { return d->baseType; }

void PhType::setBaseType(PhBaseType baseType) { d->baseType = baseType; }

PhEndian PhType::endian() const { return d->endian; }

void PhType::setEndian(PhEndian endian) { d->endian = endian; }

int PhType::bitCount() const { return d->bitCount; }

void PhType::setBitCount(int bitCount) { d->bitCount = bitCount; }

PhValue* PhType::bitMask() const { return d->bitMask; }

void PhType::setBitMask(PhValue* bitMask) { d->bitMask = bitMask; }

PhUnit* PhType::unit() const { return d->unit; }

void PhType::setUnit(PhUnit* unit) { d->unit = unit; }

PhConversion* PhType::conversion() const { return d->conversion; }

void PhType::setConversion(PhConversion* conversion) { d->conversion = conversion; }

} // namespace tavo
