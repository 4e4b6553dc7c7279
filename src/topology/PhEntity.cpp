#include "topology/PhEntity.h"

#include "model/PhConversion.h"

#include <utility>

namespace tavo {

PhEntity::PhEntity() : PhObject(PhClassEntity) {}

PhEntity::~PhEntity()
{
    // Two of the values go before the type, which the order of the fields can't say.
    values_.clear(Address);
    values_.clear(AddressExtension);
}

PhType* PhEntity::type() const
{
    if (hasTypeFields_) {
        auto type = std::make_unique<PhType>();
        extras_.made().type = type.get();
        type.release()->take(typeFields_, values_, BitMask);
        hasTypeFields_ = false;
    }
    return peekType();
}

void PhEntity::setType(PhType* type)
{
    const PhRef<PhType> hold(type);
    if (type || extras_)
        extras_.made().type = type;
    if (std::exchange(hasTypeFields_, false)) {
        typeFields_.conversion.clear();
        values_.clear(BitMask);
    }
}

const PhTypeFields* PhEntity::typeFields() const
{
    if (hasTypeFields_)
        return &typeFields_;
    const PhType* type = peekType();
    return type ? &type->fields() : nullptr;
}

PhTypeFields* PhEntity::typeFields()
{
    return const_cast<PhTypeFields*>(std::as_const(*this).typeFields());
}

PhTypeFields& PhEntity::makeTypeFields()
{
    hasTypeFields_ = true;
    return typeFields_;
}

void PhEntity::setReference(PhRef<PhObject> Extras::*field, PhObject* object)
{
    const PhRef<PhObject> hold(object);
    if (object || extras_)
        extras_.made().*field = object;
}

void PhEntity::setExtraText(PhString* extraText)
{
    if (extraText == this->extraText())
        return;
    std::unique_ptr<PhString> text(extraText);
    extras_.made().extraText = std::move(text);
}

} // namespace tavo
