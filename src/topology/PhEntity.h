#pragma once

#include "model/PhObject.h"

namespace tavo {

class PhGroup;
class PhRoot;
class PhType;
class PhValue;
struct PhEntityPrivate;

/// One measurable quantity of an ECU, from a MEASUREMENT.
///
/// References may be null, which means that there is no such property. A setter takes a count of
/// its argument and releases what the field held before.
class PhEntity : public PhObject
{
public:
    PhEntity();
    ~PhEntity() override;

    /// ECU_ADDRESS: where the quantity stands in the ECU's memory, an unsigned value.
    PhValue* address() const;
    void setAddress(PhValue* address);

    /// ECU_ADDRESS_EXTENSION.
    PhValue* addressExtension() const;
    void setAddressExtension(PhValue* addressExtension);

    /// Smallest and largest physical value.
    PhValue* lowerLimit() const;
    void setLowerLimit(PhValue* lowerLimit);
    PhValue* upperLimit() const;
    void setUpperLimit(PhValue* upperLimit);

    /// How the quantity is stored and becomes physical. Each MEASUREMENT has a type of its own.
    PhType* type() const;
    void setType(PhType* type);

    /// Further references without a user.
    PhObject* auxRef1() const;
    void setAuxRef1(PhObject* auxRef1);
    PhObject* auxRef2() const;
    void setAuxRef2(PhObject* auxRef2);
    PhObject* auxRef3() const;
    void setAuxRef3(PhObject* auxRef3);
    PhObject* auxRef4() const;
    void setAuxRef4(PhObject* auxRef4);

    /// A free text; null if there is none. The setter takes ownership of a handle that was made
    /// with `new`, and deletes the one before.
    PhString* extraText() const;
    void setExtraText(PhString* extraText);

    /// Replaces a placeholder in `type` by the type of that name in `group` or above, and goes on
    /// along the reference. What isn't found is reported to the root's logger.
    void resolve(PhRoot* root, PhGroup* group);

private:
    std::unique_ptr<PhEntityPrivate> d;
};

} // namespace tavo
