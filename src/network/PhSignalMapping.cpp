#include "network/PhSignalMapping.h"

#include "model/ownership.h"

namespace tavo {

struct PhSignalMappingPrivate : Pooled
{
    PhObject* source = nullptr;
    PhObject* target = nullptr;
};

PhSignalMapping::PhSignalMapping() : PhObject(PhClassSignalMapping), d(new PhSignalMappingPrivate)
{
}

PhSignalMapping::~PhSignalMapping()
{
    setSource(nullptr);
    setTarget(nullptr);
}

PhObject* PhSignalMapping::source() const { return d->source; }

void PhSignalMapping::setSource(PhObject* source) { setRef(d->source, source); }

PhObject* PhSignalMapping::target() const { return d->target; }

void PhSignalMapping::setTarget(PhObject* target) { setRef(d->target, target); }

} // namespace tavo
