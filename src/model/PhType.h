#pragma once

#include "model/PhLazyValues.h"
#include "model/PhObject.h"
#include "model/PhTypeFields.h"
#include "model/PhUnit.h"
#include "model/enumerations.h"
#include "model/ownership.h"

namespace tavo {

class PhConversion;
class PhGroup;
class PhRoot;

/// How a quantity is stored in the ECU's memory and how it becomes a physical value. Each
/// MEASUREMENT has a type of its own.
///
/// References may be null, which means that there is no such property. A setter takes a count of
/// its argument and releases what the field held before.
class PhType : public PhObject
{
public:
    PhType();
    ~PhType() override;

    /// What kind of number or text it is.
    PhBaseType baseType() const { return fields_.baseType; }
    void setBaseType(PhBaseType baseType) { fields_.baseType = baseType; }

    /// Byte order in memory; `BigEndian` until set.
    PhEndian endian() const { return fields_.endian; }
    void setEndian(PhEndian endian) { fields_.endian = endian; }

    /// Width of the stored value in bits: 8, 16, 32 or 64 for a MEASUREMENT.
    int bitCount() const { return fields_.bitCount; }
    void setBitCount(int bitCount) { fields_.bitCount = bitCount; }

    /// BIT_MASK: picks the quantity's bits from the stored value.
    PhValue* bitMask() const { return bitMask_.value(0); }
    void setBitMask(PhValue* bitMask) { bitMask_.set(0, bitMask); }

    /// The unit of the type itself. It wins over the one of the conversion.
    PhUnit* unit() const { return unit_; }
    void setUnit(PhUnit* unit) { unit_ = unit; }

    /// The way to the physical value. Until names are resolved it may be a placeholder that knows
    /// nothing but its name.
    PhConversion* conversion() const;
    void setConversion(PhConversion* conversion);

    /// The fields as they stand, for who makes no objects of them.
    PhTypeFields& fields() { return fields_; }
    const PhTypeFields& fields() const { return fields_; }
    PhFieldContent peekBitMask() const { return bitMask_.peek(0); }
    /// Moves the fields and a mask here, in the place of its own.
    template <std::size_t count>
    void take(PhTypeFields& fields, PhLazyValues<count>& values, std::size_t bitMask)
    {
        fields_.baseType = fields.baseType;
        fields_.endian = fields.endian;
        fields_.bitCount = fields.bitCount;
        fields_.conversion.take(fields.conversion);
        bitMask_.take(0, values, bitMask);
    }

    /// Replaces a placeholder in `conversion` by the conversion of that name in `group` or above,
    /// and goes on along the reference. What isn't found is reported to the root's logger.
    void resolve(PhRoot* root, PhGroup* group);

private:
    // The order of the fields is the one of their release, backwards.
    [[no_unique_address]] PhLazyValues<1> bitMask_;
    PhTypeFields fields_;
    PhRef<PhUnit> unit_;
};

} // namespace tavo
