#include "topology/PhEntity.h"

#include "model/PhType.h"
#include "model/PhValue.h"
#include "model/ownership.h"

namespace tavo {

/// What no file gives an entity.
struct PhEntityExtras : Pooled
{
    PhObject* auxRef1 = nullptr;
    PhObject* auxRef2 = nullptr;
    PhObject* auxRef3 = nullptr;
    PhObject* auxRef4 = nullptr;
    std::unique_ptr<PhString> extraText; ///< The one text that isn't a slot of the base.
};

struct PhEntityPrivate : Pooled
{
    PhValue* address = nullptr;
    PhValue* addressExtension = nullptr;
    PhValue* lowerLimit = nullptr;
    PhValue* upperLimit = nullptr;
    PhType* type = nullptr;
    std::unique_ptr<PhEntityExtras> extras; ///< Null until one of them is set.

    PhObject* reference(PhObject* PhEntityExtras::*field) const
    {
        return extras ? extras.get()->*field : nullptr;
    }
    void setReference(PhObject* PhEntityExtras::*field, PhObject* object)
    {
        const PhHold<PhObject> hold(object);
        if (object || extras)
            setRef(madeExtras().*field, object);
    }
    PhEntityExtras& madeExtras()
    {
        if (!extras)
            extras = std::make_unique<PhEntityExtras>();
        return *extras;
    }
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

PhObject* PhEntity::auxRef1() const { return d->reference(&PhEntityExtras::auxRef1); }

void PhEntity::setAuxRef1(PhObject* object) { d->setReference(&PhEntityExtras::auxRef1, object); }

PhObject* PhEntity::auxRef2() const { return d->reference(&PhEntityExtras::auxRef2); }

void PhEntity::setAuxRef2(PhObject* object) { d->setReference(&PhEntityExtras::auxRef2, object); }

PhObject* PhEntity::auxRef3() const { return d->reference(&PhEntityExtras::auxRef3); }

void PhEntity::setAuxRef3(PhObject* object) { d->setReference(&PhEntityExtras::auxRef3, object); }

PhObject* PhEntity::auxRef4() const { return d->reference(&PhEntityExtras::auxRef4); }

void PhEntity::setAuxRef4(PhObject* object) { d->setReference(&PhEntityExtras::auxRef4, object); }

PhString* PhEntity::extraText() const { return d->extras ? d->extras->extraText.get() : nullptr; }

void PhEntity::setExtraText(PhString* extraText)
{
    if (extraText == this->extraText())
        return;
    std::unique_ptr<PhString> text(extraText);
    d->madeExtras().extraText = std::move(text);
}

} // namespace tavo
