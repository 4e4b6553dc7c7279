#pragma once

#include "model/PhObject.h"

namespace tavo {

class PhFrameMapping;
class PhList;
struct PhConnectorMappingPrivate;

/// Says that one connector of an ECU is routed to another. It has no name: the external ids of its
/// ends tell it from others. No A2L file makes one.
///
/// References and lists may be null. A setter takes a count of its argument and releases what the
/// field held before; an append operation makes the list if it is missing.
class PhConnectorMapping : public PhObject
{
public:
    PhConnectorMapping();
    ~PhConnectorMapping() override;

    /// The ends, objects of no particular class.
    PhObject* source() const;
    void setSource(PhObject* source);
    PhObject* target() const;
    void setTarget(PhObject* target);

    /// `PhFrameMapping`: the routes from frame to frame.
    PhList* frameMappings() const;
    void appendFrameMapping(PhFrameMapping* frameMapping);
    /// As `PhEcu::findOrCreateConnectorMapping`, on this level.
    PhFrameMapping* findOrCreateFrameMapping(PhObject* source, PhObject* target);

private:
    std::unique_ptr<PhConnectorMappingPrivate> d;
};

} // namespace tavo
