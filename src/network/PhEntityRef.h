#pragma once

#include "model/PhObject.h"

namespace tavo {

struct PhEntityRefPrivate;

/// A named set of three references. No A2L file makes one.
///
/// References may be null. A setter takes a count of its argument and releases what the field held
/// before.
class PhEntityRef : public PhObject
{
public:
    PhEntityRef();
    ~PhEntityRef() override;

    PhObject* primaryRef() const;
    void setPrimaryRef(PhObject* primaryRef);
    PhObject* secondaryRef() const;
    void setSecondaryRef(PhObject* secondaryRef);

    /// The reference that belongs to this one object: `duplicate` leaves it out.
    PhObject* localRef() const;
    void setLocalRef(PhObject* localRef);

    /// A fresh object of the same name with the same primary and secondary reference. The caller
    /// stores it or deletes it.
    PhEntityRef* duplicate() const;

private:
    std::unique_ptr<PhEntityRefPrivate> d;
};

} // namespace tavo
