#include "network/PhSignalMapping.h"

#include "model/ownership.h"

namespace tavo {

struct PhSignalMappingPrivate : Pooled
{
    PhRef<PhObject> target;
    PhRef<PhObject> source;
};

PhSignalMapping::PhSignalMapping() : PhObject(PhClassSignalMapping), d(new PhSignalMappingPrivate)
{
}

PhSignalMapping::~PhSignalMapping() = default;

PhObject* PhSignalMapping::source() const { return d->source; }

void PhSignalMapping::setSource(PhObject* source) { d->source = source; }

PhObject* PhSignalMapping::target() const { return d->target; }

void PhSignalMapping::setTarget(PhObject* target) { d->target = target; }

} // namespace tavo
