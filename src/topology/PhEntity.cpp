#include "topology/PhEntity.h"

#include "model/PhRare.h"
#include "model/PhType.h"
#include "model/PhValue.h"
#include "model/ownership.h"

namespace tavo {

/// What no file gives an entity.
struct PhEntityExtras : Pooled
{
    std::unique_ptr<PhString> extraText; ///< The one text that isn't a slot of the base.
    PhRef<PhObject> auxRef4;
    PhRef<PhObject> auxRef3;
    PhRef<PhObject> auxRef2;
    PhRef<PhObject> auxRef1;
};

struct PhEntityPrivate : Pooled
{
    PhRef<PhValue> upperLimit;
    PhRef<PhValue> lowerLimit;
    PhRare<PhEntityExtras> extras;
    PhRef<PhType> type;
    PhRef<PhValue> addressExtension;
    PhRef<PhValue> address;

    PhObject* reference(PhRef<PhObject> PhEntityExtras::*field) const
    {
        return extras ? ((*extras).*field).get() : nullptr;
    }
    void setReference(PhRef<PhObject> PhEntityExtras::*field, PhObject* object)
    {
        const PhRef<PhObject> hold(object);
        if (object || extras)
            extras.made().*field = object;
    }
};

PhEntity::PhEntity() : PhObject(PhClassEntity), d(new PhEntityPrivate) {}

PhEntity::~PhEntity()
{
    // Two of the extras go before the type, which the order of the fields can't say.
    setAddress(nullptr);
    setAddressExtension(nullptr);
    setAuxRef1(nullptr);
    setAuxRef2(nullptr);
}

PhValue* PhEntity::address() const { return d->address; }

void PhEntity::setAddress(PhValue* address) { d->address = address; }

PhValue* PhEntity::addressExtension() const { return d->addressExtension; }

void PhEntity::setAddressExtension(PhValue* addressExtension)
{
    d->addressExtension = addressExtension;
}

PhValue* PhEntity::lowerLimit() const { return d->lowerLimit; }

void PhEntity::setLowerLimit(PhValue* lowerLimit) { d->lowerLimit = lowerLimit; }

PhValue* PhEntity::upperLimit() const { return d->upperLimit; }

void PhEntity::setUpperLimit(PhValue* upperLimit) { d->upperLimit = upperLimit; }

PhType* PhEntity::type() const { return d->type; }

void PhEntity::setType(PhType* type) { d->type = type; }

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
    d->extras.made().extraText = std::move(text);
}

} // namespace tavo
