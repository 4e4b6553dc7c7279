#include "network/PhFrameMapping.h"

#include "network/PhSignalMapping.h"
#include "network/mapping.h"

namespace tavo {

struct PhFrameMappingPrivate : Pooled
{
    PhLazyList signalMappings;
    PhRef<PhObject> target;
    PhRef<PhObject> source;
};

PhFrameMapping::PhFrameMapping() : PhObject(PhClassFrameMapping), d(new PhFrameMappingPrivate) {}

PhFrameMapping::~PhFrameMapping() = default;

PhObject* PhFrameMapping::source() const { return d->source; }

void PhFrameMapping::setSource(PhObject* source) { d->source = source; }

PhObject* PhFrameMapping::target() const { return d->target; }

void PhFrameMapping::setTarget(PhObject* target) { d->target = target; }

PhList* PhFrameMapping::signalMappings() const { return d->signalMappings; }

void PhFrameMapping::appendSignalMapping(PhSignalMapping* signalMapping)
{
    d->signalMappings.append(signalMapping);
}

PhSignalMapping* PhFrameMapping::findOrCreateSignalMapping(PhObject* source, PhObject* target)
{
    return findOrCreateMapping<PhSignalMapping>(d->signalMappings, source, target);
}

} // namespace tavo
