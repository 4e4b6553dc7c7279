#pragma once

#include "model/PhObject.h"

namespace tavo {

class PhChannel;
class PhConnector;
class PhConnectorMapping;
class PhController;
class PhFunction;
class PhList;
struct PhEcuPrivate;

/// A device on the network. No A2L file makes one.
///
/// Lists may be null; an append operation makes the list if it is missing, and takes a count.
class PhEcu : public PhObject
{
public:
    PhEcu();
    ~PhEcu() override;

    /// `PhFunction`.
    PhList* functions() const;
    void appendFunction(PhFunction* function);

    /// `PhConnector`.
    PhList* connectors() const;
    void appendConnector(PhConnector* connector);
    /// The first connector whose channel has the external id of `channel`; null if there is none.
    /// Two channels without an external id count as the same.
    PhConnector* findConnector(const PhChannel* channel) const;

    /// `PhController`.
    PhList* controllers() const;
    void appendController(PhController* controller);
    /// The controller with this external id in this ECU alone; null if there is none.
    PhController* resolveController(const PhString& externalId) const;

    /// `PhConnectorMapping`: the routes from connector to connector.
    PhList* connectorMappings() const;
    void appendConnectorMapping(PhConnectorMapping* connectorMapping);
    /// The mapping between these ends, by their external ids; appended if there is none. A null end
    /// matches nothing, so with one each call appends. Never null; the list owns the result.
    PhConnectorMapping* findOrCreateConnectorMapping(PhObject* source, PhObject* target);

private:
    std::unique_ptr<PhEcuPrivate> d;
};

} // namespace tavo
