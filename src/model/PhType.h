#pragma once

#include "model/PhObject.h"
#include "model/enumerations.h"

namespace tavo {

class PhConversion;
class PhGroup;
class PhRoot;
class PhUnit;
class PhValue;
struct PhTypePrivate;

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
    PhBaseType baseType() const;
    void setBaseType(PhBaseType baseType);

    /// Byte order in memory; `BigEndian` until set.
    PhEndian endian() const;
    void setEndian(PhEndian endian);

    /// Width of the stored value in bits: 8, 16, 32 or 64 for a MEASUREMENT.
    int bitCount() const;
    void setBitCount(int bitCount);

    /// BIT_MASK: picks the quantity's bits from the stored value.
    PhValue* bitMask() const;
    void setBitMask(PhValue* bitMask);

    /// The unit of the type itself. It wins over the one of the conversion.
    PhUnit* unit() const;
    void setUnit(PhUnit* unit);

    /// The way to the physical value. Until names are resolved it may be a placeholder that knows
    /// nothing but its name.
    PhConversion* conversion() const;
    void setConversion(PhConversion* conversion);

    /// Replaces a placeholder in `conversion` by the conversion of that name in `group` or above,
    /// and goes on along the reference. What isn't found is reported to the root's logger.
    void resolve(PhRoot* root, PhGroup* group);

private:
    std::unique_ptr<PhTypePrivate> d;
};

} // namespace tavo
