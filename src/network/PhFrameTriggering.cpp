#include "network/PhFrameTriggering.h"

#include "model/PhValue.h"
#include "model/ownership.h"
#include "network/PhFrame.h"
#include "network/PhTiming.h"

namespace tavo {

struct PhFrameTriggeringPrivate : Pooled
{
    PhFrame* frame = nullptr;
    PhValue* identifier = nullptr; ///< On the bus.
    PhObject* auxRef1 = nullptr;
    PhTiming* timing = nullptr;
    PhObject* auxRef2 = nullptr;
    PhObject* auxRef3 = nullptr;
};

PhFrameTriggering::PhFrameTriggering()
    : PhObject(PhClassFrameTriggering), d(new PhFrameTriggeringPrivate)
{
}

PhFrameTriggering::~PhFrameTriggering()
{
    setFrame(nullptr);
    setIdentifier(nullptr);
    setAuxRef1(nullptr);
    setTiming(nullptr);
    setAuxRef2(nullptr);
    setAuxRef3(nullptr);
}

PhFrame* PhFrameTriggering::frame() const { return d->frame; }

void PhFrameTriggering::setFrame(PhFrame* frame) { setRef(d->frame, frame); }

PhValue* PhFrameTriggering::identifier() const { return d->identifier; }

void PhFrameTriggering::setIdentifier(PhValue* identifier) { setRef(d->identifier, identifier); }

PhTiming* PhFrameTriggering::timing() const { return d->timing; }

void PhFrameTriggering::setTiming(PhTiming* timing) { setRef(d->timing, timing); }

PhObject* PhFrameTriggering::auxRef1() const { return d->auxRef1; }

void PhFrameTriggering::setAuxRef1(PhObject* auxRef1) { setRef(d->auxRef1, auxRef1); }

PhObject* PhFrameTriggering::auxRef2() const { return d->auxRef2; }

void PhFrameTriggering::setAuxRef2(PhObject* auxRef2) { setRef(d->auxRef2, auxRef2); }

PhObject* PhFrameTriggering::auxRef3() const { return d->auxRef3; }

void PhFrameTriggering::setAuxRef3(PhObject* auxRef3) { setRef(d->auxRef3, auxRef3); }

} // namespace tavo
