#pragma once

#include "model/PhObject.h"

namespace tavo {

struct PhSignalMappingPrivate;

/// Says that one signal of a frame mapping is routed to another. It has no name: the external ids
/// of its ends tell it from others. No A2L file makes one.
///
/// References may be null. A setter takes a count of its argument and releases what the field held
/// before.
class PhSignalMapping : public PhObject
{
public:
    PhSignalMapping();
    ~PhSignalMapping() override;

    /// The ends, objects of no particular class.
    PhObject* source() const;
    void setSource(PhObject* source);
    PhObject* target() const;
    void setTarget(PhObject* target);

private:
    std::unique_ptr<PhSignalMappingPrivate> d;
};

} // namespace tavo
