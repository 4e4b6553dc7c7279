#pragma once

#include "model/PhLazyValues.h"
#include "model/PhObject.h"
#include "model/PhRare.h"
#include "model/PhType.h"
#include "model/ownership.h"

#include <memory>

namespace tavo {

class PhGroup;
class PhRoot;

/// One measurable quantity of an ECU, from a MEASUREMENT.
///
/// References may be null, which means that there is no such property. A setter takes a count of
/// its argument and releases what the field held before.
class PhEntity : public PhObject
{
public:
    PhEntity();
    ~PhEntity() override;

    /// The values of an entity.
    enum Value : std::uint8_t
    {
        Address,          ///< ECU_ADDRESS: where it stands in the ECU's memory, unsigned.
        AddressExtension, ///< ECU_ADDRESS_EXTENSION.
        LowerLimit,       ///< Smallest and largest physical value.
        UpperLimit,
        BitMask, ///< BIT_MASK, which belongs to the type.
    };

    /// A value that was given as a number becomes an object when it is first asked for, which can
    /// run out of memory. The mask is asked for at the type.
    PhValue* address() const { return values_.value(Address); }
    void setAddress(PhValue* address) { values_.set(Address, address); }
    PhValue* addressExtension() const { return values_.value(AddressExtension); }
    void setAddressExtension(PhValue* extension) { values_.set(AddressExtension, extension); }
    PhValue* lowerLimit() const { return values_.value(LowerLimit); }
    void setLowerLimit(PhValue* lowerLimit) { values_.set(LowerLimit, lowerLimit); }
    PhValue* upperLimit() const { return values_.value(UpperLimit); }
    void setUpperLimit(PhValue* upperLimit) { values_.set(UpperLimit, upperLimit); }

    /// Give a value as a number; the mask only as long as the type is no object.
    void setNumber(Value value, std::int32_t number) { values_.set(value, number); }
    void setNumber(Value value, double number) { values_.set(value, number); }
    /// The value for a look that makes no object.
    PhFieldContent peek(Value value) const
    {
        const PhType* type = value == BitMask ? peekType() : nullptr;
        return type ? type->peekBitMask() : values_.peek(value);
    }

    /// How the quantity is stored and becomes physical. Each MEASUREMENT has a type of its own. One
    /// that was given by its fields becomes an object when it is first asked for, which can run out
    /// of memory.
    PhType* type() const;
    void setType(PhType* type);
    /// The type, for a look that makes no object: null as long as there is none.
    PhType* peekType() const { return extras_ ? extras_->type.get() : nullptr; }

    /// The fields of the type, be it an object or not, until the next call of `type` or `setType`;
    /// null if there is no type.
    PhTypeFields* typeFields();
    const PhTypeFields* typeFields() const;
    /// Gives an entity without a type one that consists of its fields alone.
    PhTypeFields& makeTypeFields();

    /// Further references without a user.
    PhObject* auxRef1() const { return reference(&Extras::auxRef1); }
    void setAuxRef1(PhObject* auxRef1) { setReference(&Extras::auxRef1, auxRef1); }
    PhObject* auxRef2() const { return reference(&Extras::auxRef2); }
    void setAuxRef2(PhObject* auxRef2) { setReference(&Extras::auxRef2, auxRef2); }
    PhObject* auxRef3() const { return reference(&Extras::auxRef3); }
    void setAuxRef3(PhObject* auxRef3) { setReference(&Extras::auxRef3, auxRef3); }
    PhObject* auxRef4() const { return reference(&Extras::auxRef4); }
    void setAuxRef4(PhObject* auxRef4) { setReference(&Extras::auxRef4, auxRef4); }

    /// A free text; null if there is none. The setter takes ownership of a handle that was made
    /// with `new`, and deletes the one before.
    PhString* extraText() const { return extras_ ? extras_->extraText.get() : nullptr; }
    void setExtraText(PhString* extraText);

    /// Replaces a placeholder in `type` by the type of that name in `group` or above, and goes on
    /// along the reference. What isn't found is reported to the root's logger.
    void resolve(PhRoot* root, PhGroup* group);

private:
    /// What no file gives an entity, and the type once somebody has asked for it.
    struct Extras : Pooled
    {
        std::unique_ptr<PhString> extraText; ///< The one text that isn't a slot of the base.
        PhRef<PhObject> auxRef4;
        PhRef<PhObject> auxRef3;
        PhRef<PhType> type;
        PhRef<PhObject> auxRef2;
        PhRef<PhObject> auxRef1;
    };

    PhObject* reference(PhRef<PhObject> Extras::*field) const
    {
        return extras_ ? ((*extras_).*field).get() : nullptr;
    }
    void setReference(PhRef<PhObject> Extras::*field, PhObject* object);

    // Mutable for the type that a look makes.
    [[no_unique_address]] mutable PhLazyValues<5> values_;
    mutable bool hasTypeFields_ = false; ///< The type is no object yet: `typeFields_` is in use.
    mutable PhTypeFields typeFields_;
    mutable PhRare<Extras> extras_;
};

} // namespace tavo
