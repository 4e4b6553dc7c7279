#include "model/PhSignal.h"

#include "model/PhType.h"
#include "model/ownership.h"

namespace tavo {

struct PhSignalPrivate : Pooled
{
    PhRef<PhObject> auxRef3;
    PhRef<PhObject> auxRef2;
    PhRef<PhObject> auxRef1;
    PhRef<PhType> type;
};

PhSignal::PhSignal() : PhObject(PhClassSignal), d(new PhSignalPrivate) {}

PhSignal::~PhSignal() = default;

PhType* PhSignal::type() const { return d->type; }

void PhSignal::setType(PhType* type) { d->type = type; }

PhObject* PhSignal::auxRef1() const { return d->auxRef1; }

PhObject* PhSignal::auxRef2() const { return d->auxRef2; }

PhObject* PhSignal::auxRef3() const { return d->auxRef3; }

void PhSignal::setAuxRef1(PhObject* object) { d->auxRef1 = object; }

void PhSignal::setAuxRef2(PhObject* object) { d->auxRef2 = object; }

void PhSignal::setAuxRef3(PhObject* object) { d->auxRef3 = object; }

} // namespace tavo
