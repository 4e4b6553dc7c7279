#include "network/PhEntityRef.h"

#include "model/ownership.h"

namespace tavo {

struct PhEntityRefPrivate : Pooled
{
    PhRef<PhObject> localRef; ///< Not copied.
    PhRef<PhObject> primaryRef;
    PhRef<PhObject> secondaryRef;
};

PhEntityRef::PhEntityRef() : PhObject(PhClassEntityRef), d(new PhEntityRefPrivate) {}

PhEntityRef::~PhEntityRef() = default;

PhObject* PhEntityRef::primaryRef() const { return d->primaryRef; }

void PhEntityRef::setPrimaryRef(PhObject* primaryRef) { d->primaryRef = primaryRef; }

PhObject* PhEntityRef::secondaryRef() const { return d->secondaryRef; }

void PhEntityRef::setSecondaryRef(PhObject* secondaryRef) { d->secondaryRef = secondaryRef; }

PhObject* PhEntityRef::localRef() const { return d->localRef; }

void PhEntityRef::setLocalRef(PhObject* localRef) { d->localRef = localRef; }

PhEntityRef* PhEntityRef::duplicate() const
{
    auto copy = std::make_unique<PhEntityRef>();
    copy->setName(name());
    copy->setPrimaryRef(d->primaryRef);
    copy->setSecondaryRef(d->secondaryRef);
    return copy.release();
}

} // namespace tavo
