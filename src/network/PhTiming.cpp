#include "network/PhTiming.h"

#include "model/PhValue.h"
#include "model/ownership.h"

namespace tavo {

struct PhTimingPrivate : Pooled
{
    std::int32_t timingType = 0;
    PhRef<PhValue> cycle;
    PhRef<PhValue> delay;
};

PhTiming::PhTiming() : PhObject(PhClassTiming), d(new PhTimingPrivate) {}

PhTiming::~PhTiming() = default;

std::int32_t PhTiming::timingType() const { return d->timingType; }

void PhTiming::setTimingType(std::int32_t timingType) { d->timingType = timingType; }

PhValue* PhTiming::delay() const { return d->delay; }

void PhTiming::setDelay(PhValue* delay) { d->delay = delay; }

PhValue* PhTiming::cycle() const { return d->cycle; }

void PhTiming::setCycle(PhValue* cycle) { d->cycle = cycle; }

} // namespace tavo
