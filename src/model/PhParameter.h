#pragma once

#include "model/PhObject.h"
#include "model/enumerations.h"

namespace tavo {

class PhType;
struct PhParameterPrivate;

/// A quantity in the message of a service. No A2L file makes one.
///
/// References may be null. A setter takes a count of its argument and releases what the field held
/// before.
class PhParameter : public PhObject
{
public:
    PhParameter();
    ~PhParameter() override;

    /// What the quantity means to the service.
    PhServiceParameterType serviceParameterType() const;
    void setServiceParameterType(PhServiceParameterType serviceParameterType);

    /// How the quantity is stored in the message.
    PhType* type() const;
    void setType(PhType* type);

    /// Further references without a user.
    PhObject* auxRef1() const;
    PhObject* auxRef2() const;
    PhObject* auxRef3() const;
    PhObject* auxRef4() const;
    PhObject* auxRef5() const;
    PhObject* auxRef6() const;
    PhObject* auxRef7() const;
    void setAuxRef1(PhObject* object);
    void setAuxRef2(PhObject* object);
    void setAuxRef3(PhObject* object);
    void setAuxRef4(PhObject* object);
    void setAuxRef5(PhObject* object);
    void setAuxRef6(PhObject* object);
    void setAuxRef7(PhObject* object);

private:
    std::unique_ptr<PhParameterPrivate> d;
};

} // namespace tavo
