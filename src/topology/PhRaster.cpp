#include "topology/PhRaster.h"

#include "model/PhValue.h"
#include "model/ownership.h"

namespace tavo {

struct PhRasterPrivate : Pooled
{
    PhTimeUnit timeUnit = PhTimeUnit::Undefined;
    PhValue* rate = nullptr;
    PhValue* channel = nullptr;
    PhObject* auxRef = nullptr;
};

PhRaster::PhRaster() : PhObject(PhClassRaster), d(new PhRasterPrivate) {}

PhRaster::~PhRaster()
{
    setRate(nullptr);
    setChannel(nullptr);
    setAuxRef(nullptr);
}

PhTimeUnit PhRaster::timeUnit() const { return d->timeUnit; }

void PhRaster::setTimeUnit(PhTimeUnit timeUnit) { d->timeUnit = timeUnit; }

PhValue* PhRaster::rate() const { return d->rate; }

void PhRaster::setRate(PhValue* rate) { setRef(d->rate, rate); }

PhValue* PhRaster::channel() const { return d->channel; }

void PhRaster::setChannel(PhValue* channel) { setRef(d->channel, channel); }

PhObject* PhRaster::auxRef() const { return d->auxRef; }

void PhRaster::setAuxRef(PhObject* auxRef) { setRef(d->auxRef, auxRef); }

} // namespace tavo
