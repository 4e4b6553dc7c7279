#include "model/PhStructure.h"

#include "model/PhParameter.h"
#include "model/PhRange.h"
#include "model/ownership.h"

namespace tavo {

struct PhStructurePrivate : Pooled
{
    std::int32_t value1 = 0;
    std::int32_t value2 = 0;
    PhRef<PhObject> auxRef3;
    PhLazyList parameters;
    PhLazyList ranges;
    PhRef<PhObject> auxRef2;
    PhRef<PhObject> auxRef1;
};

PhStructure::PhStructure() : PhObject(PhClassStructure), d(new PhStructurePrivate) {}

PhStructure::~PhStructure() = default;

std::int32_t PhStructure::value1() const { return d->value1; }

std::int32_t PhStructure::value2() const { return d->value2; }

void PhStructure::setValue1(std::int32_t value) { d->value1 = value; }

void PhStructure::setValue2(std::int32_t value) { d->value2 = value; }

PhList* PhStructure::ranges() const { return d->ranges; }

void PhStructure::appendRange(PhRange* range) { d->ranges.append(range); }

PhList* PhStructure::parameters() const { return d->parameters; }

void PhStructure::appendParameter(PhParameter* parameter) { d->parameters.append(parameter); }

PhObject* PhStructure::auxRef1() const { return d->auxRef1; }

PhObject* PhStructure::auxRef2() const { return d->auxRef2; }

PhObject* PhStructure::auxRef3() const { return d->auxRef3; }

void PhStructure::setAuxRef1(PhObject* object) { d->auxRef1 = object; }

void PhStructure::setAuxRef2(PhObject* object) { d->auxRef2 = object; }

void PhStructure::setAuxRef3(PhObject* object) { d->auxRef3 = object; }

} // namespace tavo
