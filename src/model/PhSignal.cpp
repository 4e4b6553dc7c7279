#include "model/PhSignal.h"

#include "model/PhType.h"
#include "model/ownership.h"

namespace tavo {

struct PhSignalPrivate : Pooled
{
    PhType* type = nullptr;
    PhObject* auxRef1 = nullptr;
    PhObject* auxRef2 = nullptr;
    PhObject* auxRef3 = nullptr;
};

PhSignal::PhSignal() : PhObject(PhClassSignal), d(new PhSignalPrivate) {}

PhSignal::~PhSignal()
{
    setType(nullptr);
    setAuxRef1(nullptr);
    setAuxRef2(nullptr);
    setAuxRef3(nullptr);
}

PhType* PhSignal::type() const { return d->type; }

void PhSignal::setType(PhType* type) { setRef(d->type, type); }

PhObject* PhSignal::auxRef1() const { return d->auxRef1; }

PhObject* PhSignal::auxRef2() const { return d->auxRef2; }

PhObject* PhSignal::auxRef3() const { return d->auxRef3; }

void PhSignal::setAuxRef1(PhObject* object) { setRef(d->auxRef1, object); }

void PhSignal::setAuxRef2(PhObject* object) { setRef(d->auxRef2, object); }

void PhSignal::setAuxRef3(PhObject* object) { setRef(d->auxRef3, object); }

} // namespace tavo
