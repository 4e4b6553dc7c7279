#pragma once

#include "model/PhObject.h"

namespace tavo {

class PhList;
class PhSignalMapping;
struct PhFrameMappingPrivate;

/// Says that one frame of a connector mapping is routed to another. It has no name: the external
/// ids of its ends tell it from others. No A2L file makes one.
///
/// References and lists may be null. A setter takes a count of its argument and releases what the
/// field held before; an append operation makes the list if it is missing.
class PhFrameMapping : public PhObject
{
public:
    PhFrameMapping();
    ~PhFrameMapping() override;

    /// The ends, objects of no particular class.
    PhObject* source() const;
    void setSource(PhObject* source);
    PhObject* target() const;
    void setTarget(PhObject* target);

    /// `PhSignalMapping`: the routes from signal to signal.
    PhList* signalMappings() const;
    void appendSignalMapping(PhSignalMapping* signalMapping);
    /// As `PhEcu::findOrCreateConnectorMapping`, on this level.
    PhSignalMapping* findOrCreateSignalMapping(PhObject* source, PhObject* target);

private:
    std::unique_ptr<PhFrameMappingPrivate> d;
};

} // namespace tavo
