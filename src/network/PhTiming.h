#pragma once

#include "model/PhObject.h"

namespace tavo {

class PhValue;
struct PhTimingPrivate;

/// When something is sent on a network. No A2L file makes one.
///
/// References may be null. A setter takes a count of its argument and releases what the field held
/// before.
class PhTiming : public PhObject
{
public:
    PhTiming();
    ~PhTiming() override;

    /// Kind of timing, a number without fixed meanings; 0 until set.
    std::int32_t timingType() const;
    void setTimingType(std::int32_t timingType);

    PhValue* delay() const;
    void setDelay(PhValue* delay);

    PhValue* cycle() const;
    void setCycle(PhValue* cycle);

private:
    std::unique_ptr<PhTimingPrivate> d;
};

} // namespace tavo
