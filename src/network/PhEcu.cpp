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
    PhList* functions = nullptr;
    PhList* connectors = nullptr;
    PhList* controllers = nullptr;
    PhList* connectorMappings = nullptr;
};

PhEcu::PhEcu() : PhObject(PhClassEcu), d(new PhEcuPrivate) {}

PhEcu::~PhEcu()
{
    releaseList(d->functions);
    releaseList(d->connectors);
    releaseList(d->controllers);
    releaseList(d->connectorMappings);
}

PhList* PhEcu::functions() const { return d->functions; }

void PhEcu::appendFunction(PhFunction* function) { appendTo(d->functions, function); }

PhList* PhEcu::connectors() const { return d->connectors; }

void PhEcu::appendConnector(PhConnector* connector) { appendTo(d->connectors, connector); }

PhConnector* PhEcu::findConnector(const PhChannel* channel) const
{
    for (PhConnector* connector : each<PhConnector>(d->connectors))
        if (sameExternalId(connector->channel(), channel))
            return connector;
    return nullptr;
}

PhList* PhEcu::controllers() const { return d->controllers; }

void PhEcu::appendController(PhController* controller) { appendTo(d->controllers, controller); }

PhController* PhEcu::resolveController(const PhString& externalId) const
{
    return findByExternalId<PhController>(d->controllers, externalId);
}

PhList* PhEcu::connectorMappings() const { return d->connectorMappings; }

void PhEcu::appendConnectorMapping(PhConnectorMapping* connectorMapping)
{
    appendTo(d->connectorMappings, connectorMapping);
}

PhConnectorMapping* PhEcu::findOrCreateConnectorMapping(PhObject* source, PhObject* target)
{
    return findOrCreateMapping<PhConnectorMapping>(d->connectorMappings, source, target);
}

} // namespace tavo
