#include "network/PhConnectorMapping.h"

#include "network/PhFrameMapping.h"
#include "network/mapping.h"

namespace tavo {

struct PhConnectorMappingPrivate : Pooled
{
    PhLazyList frameMappings;
    PhRef<PhObject> target;
    PhRef<PhObject> source;
};

PhConnectorMapping::PhConnectorMapping()
    : PhObject(PhClassConnectorMapping), d(new PhConnectorMappingPrivate)
{
}

PhConnectorMapping::~PhConnectorMapping() = default;

PhObject* PhConnectorMapping::source() const { return d->source; }

void PhConnectorMapping::setSource(PhObject* source) { d->source = source; }

PhObject* PhConnectorMapping::target() const { return d->target; }

void PhConnectorMapping::setTarget(PhObject* target) { d->target = target; }

PhList* PhConnectorMapping::frameMappings() const { return d->frameMappings; }

void PhConnectorMapping::appendFrameMapping(PhFrameMapping* frameMapping)
{
    d->frameMappings.append(frameMapping);
}

PhFrameMapping* PhConnectorMapping::findOrCreateFrameMapping(PhObject* source, PhObject* target)
{
    return findOrCreateMapping<PhFrameMapping>(d->frameMappings, source, target);
}

} // namespace tavo
