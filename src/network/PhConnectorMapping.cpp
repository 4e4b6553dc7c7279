#include "network/PhConnectorMapping.h"

#include "network/PhFrameMapping.h"
#include "network/mapping.h"

namespace tavo {

struct PhConnectorMappingPrivate : Pooled
{
    PhObject* source = nullptr;
    PhObject* target = nullptr;
    PhList* frameMappings = nullptr;
};

PhConnectorMapping::PhConnectorMapping()
    : PhObject(PhClassConnectorMapping), d(new PhConnectorMappingPrivate)
{
}

PhConnectorMapping::~PhConnectorMapping()
{
    setSource(nullptr);
    setTarget(nullptr);
    releaseList(d->frameMappings);
}

PhObject* PhConnectorMapping::source() const { return d->source; }

void PhConnectorMapping::setSource(PhObject* source) { setRef(d->source, source); }

PhObject* PhConnectorMapping::target() const { return d->target; }

void PhConnectorMapping::setTarget(PhObject* target) { setRef(d->target, target); }

PhList* PhConnectorMapping::frameMappings() const { return d->frameMappings; }

void PhConnectorMapping::appendFrameMapping(PhFrameMapping* frameMapping)
{
    appendTo(d->frameMappings, frameMapping);
}

PhFrameMapping* PhConnectorMapping::findOrCreateFrameMapping(PhObject* source, PhObject* target)
{
    return findOrCreateMapping<PhFrameMapping>(d->frameMappings, source, target);
}

} // namespace tavo
