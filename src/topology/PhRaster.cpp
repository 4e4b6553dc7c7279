#include "topology/PhRaster.h"

#include "model/PhValue.h"
#include "model/ownership.h"

namespace tavo {

struct PhRasterPrivate : Pooled
{
    PhTimeUnit timeUnit = PhTimeUnit::Undefined;
    PhRef<PhObject> auxRef;
    PhRef<PhValue> channel;
    PhRef<PhValue> rate;
};

PhRaster::PhRaster() : PhObject(PhClassRaster), d(new PhRasterPrivate) {}

PhRaster::~PhRaster() = default;

PhTimeUnit PhRaster::timeUnit() const { return d->timeUnit; }

void PhRaster::setTimeUnit(PhTimeUnit timeUnit) { d->timeUnit = timeUnit; }

PhValue* PhRaster::rate() const { return d->rate; }

void PhRaster::setRate(PhValue* rate) { d->rate = rate; }

PhValue* PhRaster::channel() const { return d->channel; }

void PhRaster::setChannel(PhValue* channel) { d->channel = channel; }

PhObject* PhRaster::auxRef() const { return d->auxRef; }

void PhRaster::setAuxRef(PhObject* auxRef) { d->auxRef = auxRef; }

} // namespace tavo
