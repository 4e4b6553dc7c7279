#pragma once

#include "model/PhObject.h"

namespace tavo {

class PhType;
struct PhSignalPrivate;

/// A quantity in a frame. No A2L file makes one.
///
/// References may be null. A setter takes a count of its argument and releases what the field held
/// before.
class PhSignal : public PhObject
{
public:
    PhSignal();
    ~PhSignal() override;

    /// How the quantity is stored in the frame.
    PhType* type() const;
    void setType(PhType* type);

    /// Further references without a user.
    PhObject* auxRef1() const;
    PhObject* auxRef2() const;
    PhObject* auxRef3() const;
    void setAuxRef1(PhObject* object);
    void setAuxRef2(PhObject* object);
    void setAuxRef3(PhObject* object);

private:
    std::unique_ptr<PhSignalPrivate> d;
};

} // namespace tavo
