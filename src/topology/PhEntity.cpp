#include "topology/PhEntity.h"

#include "model/PhType.h"
#include "model/PhValue.h"
#include "model/ownership.h"

namespace tavo {

struct PhEntityPrivate : Pooled
{
    PhValue* address = nullptr;
    PhValue* addressExtension = nullptr;
    PhObject* auxRef1 = nullptr;
    PhObject* auxRef2 = nullptr;
    PhValue* lowerLimit = nullptr;
    PhValue* upperLimit = nullptr;
    PhType* type = nullptr;
    PhObject* auxRef3 = nullptr;
    PhObject* auxRef4 = nullptr;
    std::unique_ptr<PhString> extraText; ///< The one text that isn't a slot of the base.
};

PhEntity::PhEntity() : PhObject(PhClassEntity), d(new PhEntityPrivate) {}

PhEntity::~PhEntity()
{
    setAddress(nullptr);
    setAddressExtension(nullptr);
    setAuxRef1(nullptr);
    setAuxRef2(nullptr);
    setType(nullptr);
    setAuxRef3(nullptr);
    setAuxRef4(nullptr);
    setLowerLimit(nullptr);
    setUpperLimit(nullptr);
}

PhValue* PhEntity::address() const { return d->address; }

void PhEntity::setAddress(PhValue* address) { setRef(d->address, address); }

PhValue* PhEntity::addressExtension() const { return d->addressExtension; }

void PhEntity::setAddressExtension(PhValue* addressExtension)
{
    setRef(d->addressExtension, addressExtension);
}

PhValue* PhEntity::lowerLimit() const { return d->lowerLimit; }

void PhEntity::setLowerLimit(PhValue* lowerLimit) { setRef(d->lowerLimit, lowerLimit); }

PhValue* PhEntity::upperLimit() const { return d->upperLimit; }

void PhEntity::setUpperLimit(PhValue* upperLimit) { setRef(d->upperLimit, upperLimit); }

PhType* PhEntity::type() const { return d->type; }

void PhEntity::setType(PhType* type) { setRef(d->type, type); }

PhObject* PhEntity::auxRef1() const { return d->auxRef1; }

void PhEntity::setAuxRef1(PhObject* auxRef1) { setRef(d->auxRef1, auxRef1); }

PhObject* PhEntity::auxRef2() const { return d->auxRef2; }

void PhEntity::setAuxRef2(PhObject* auxRef2) { setRef(d->auxRef2, auxRef2); }

PhObject* PhEntity::auxRef3() const { return d->auxRef3; }

void PhEntity::setAuxRef3(PhObject* auxRef3) { setRef(d->auxRef3, auxRef3); }

PhObject* PhEntity::auxRef4() const { return d->auxRef4; }

void PhEntity::setAuxRef4(PhObject* auxRef4) { setRef(d->auxRef4, auxRef4); }

PhString* PhEntity::extraText() const { return d->extraText.get(); }

void PhEntity::setExtraText(PhString* extraText)
{
    if (extraText != d->extraText.get())
        d->extraText.reset(extraText);
}

} // namespace tavo
