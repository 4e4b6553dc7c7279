#include "network/PhFrameMapping.h"

#include "network/PhSignalMapping.h"
#include "network/mapping.h"

namespace tavo {

struct PhFrameMappingPrivate : Pooled
{
    PhObject* source = nullptr;
    PhObject* target = nullptr;
    PhList* signalMappings = nullptr;
};

PhFrameMapping::PhFrameMapping() : PhObject(PhClassFrameMapping), d(new PhFrameMappingPrivate) {}

PhFrameMapping::~PhFrameMapping()
{
    setSource(nullptr);
    setTarget(nullptr);
    releaseList(d->signalMappings);
}

PhObject* PhFrameMapping::source() const { return d->source; }

void PhFrameMapping::setSource(PhObject* source) { setRef(d->source, source); }

PhObject* PhFrameMapping::target() const { return d->target; }

void PhFrameMapping::setTarget(PhObject* target) { setRef(d->target, target); }

PhList* PhFrameMapping::signalMappings() const { return d->signalMappings; }

void PhFrameMapping::appendSignalMapping(PhSignalMapping* signalMapping)
{
    appendTo(d->signalMappings, signalMapping);
}

PhSignalMapping* PhFrameMapping::findOrCreateSignalMapping(PhObject* source, PhObject* target)
{
    return findOrCreateMapping<PhSignalMapping>(d->signalMappings, source, target);
}

} // namespace tavo
