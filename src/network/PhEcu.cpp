#include "network/PhEcu.h"

#include "model/ownership.h"
#include "network/PhChannel.h"
#include "network/PhConnector.h"
#include "network/PhConnectorMapping.h"
#include "network/PhController.h"
#include "network/PhFunction.h"
#include "network/mapping.h"

namespace tavo {

struct PhEcuPrivate : Pooled
{
    PhLazyList connectorMappings;
    PhLazyList controllers;
    PhLazyList connectors;
    PhLazyList functions;
};

PhEcu::PhEcu() : PhObject(PhClassEcu), d(new PhEcuPrivate) {}

PhEcu::~PhEcu() = default;

PhList* PhEcu::functions() const { return d->functions; }

void PhEcu::appendFunction(PhFunction* function) { d->functions.append(function); }

PhList* PhEcu::connectors() const { return d->connectors; }

void PhEcu::appendConnector(PhConnector* connector) { d->connectors.append(connector); }

PhConnector* PhEcu::findConnector(const PhChannel* channel) const
{
    for (PhConnector* connector : each<PhConnector>(d->connectors))
        if (sameExternalId(connector->channel(), channel))
            return connector;
    return nullptr;
}

PhList* PhEcu::controllers() const { return d->controllers; }

void PhEcu::appendController(PhController* controller) { d->controllers.append(controller); }

PhController* PhEcu::resolveController(const PhString& externalId) const
{
    return findByExternalId<PhController>(d->controllers, externalId);
}

PhList* PhEcu::connectorMappings() const { return d->connectorMappings; }

void PhEcu::appendConnectorMapping(PhConnectorMapping* connectorMapping)
{
    d->connectorMappings.append(connectorMapping);
}

PhConnectorMapping* PhEcu::findOrCreateConnectorMapping(PhObject* source, PhObject* target)
{
    return findOrCreateMapping<PhConnectorMapping>(d->connectorMappings, source, target);
}

} // namespace tavo
