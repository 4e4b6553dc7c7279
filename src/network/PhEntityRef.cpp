#include "network/PhEntityRef.h"

#include "model/ownership.h"

namespace tavo {

struct PhEntityRefPrivate : Pooled
{
    PhObject* primaryRef = nullptr;
    PhObject* secondaryRef = nullptr;
    PhObject* localRef = nullptr; ///< Not copied.
};

PhEntityRef::PhEntityRef() : PhObject(PhClassEntityRef), d(new PhEntityRefPrivate) {}

PhEntityRef::~PhEntityRef()
{
    setSecondaryRef(nullptr);
    setPrimaryRef(nullptr);
    setLocalRef(nullptr);
}

PhObject* PhEntityRef::primaryRef() const { return d->primaryRef; }

void PhEntityRef::setPrimaryRef(PhObject* primaryRef) { setRef(d->primaryRef, primaryRef); }

PhObject* PhEntityRef::secondaryRef() const { return d->secondaryRef; }

void PhEntityRef::setSecondaryRef(PhObject* secondaryRef) { setRef(d->secondaryRef, secondaryRef); }

PhObject* PhEntityRef::localRef() const { return d->localRef; }

void PhEntityRef::setLocalRef(PhObject* localRef) { setRef(d->localRef, localRef); }

PhEntityRef* PhEntityRef::duplicate() const
{
    auto copy = std::make_unique<PhEntityRef>();
    copy->setName(peekName());
    copy->setPrimaryRef(d->primaryRef);
    copy->setSecondaryRef(d->secondaryRef);
    return copy.release();
}

} // namespace tavo
