#include "network/PhFrameTriggering.h"

#include "model/PhValue.h"
#include "model/ownership.h"
#include "network/PhFrame.h"
#include "network/PhTiming.h"

namespace tavo {

struct PhFrameTriggeringPrivate : Pooled
{
    PhRef<PhObject> auxRef3;
    PhRef<PhObject> auxRef2;
    PhRef<PhTiming> timing;
    PhRef<PhObject> auxRef1;
    PhRef<PhValue> identifier; ///< On the bus.
    PhRef<PhFrame> frame;
};

PhFrameTriggering::PhFrameTriggering()
    : PhObject(PhClassFrameTriggering), d(new PhFrameTriggeringPrivate)
{
}

PhFrameTriggering::~PhFrameTriggering() = default;

PhFrame* PhFrameTriggering::frame() const { return d->frame; }

void PhFrameTriggering::setFrame(PhFrame* frame) { d->frame = frame; }

PhValue* PhFrameTriggering::identifier() const { return d->identifier; }

void PhFrameTriggering::setIdentifier(PhValue* identifier) { d->identifier = identifier; }

PhTiming* PhFrameTriggering::timing() const { return d->timing; }

void PhFrameTriggering::setTiming(PhTiming* timing) { d->timing = timing; }

PhObject* PhFrameTriggering::auxRef1() const { return d->auxRef1; }

void PhFrameTriggering::setAuxRef1(PhObject* auxRef1) { d->auxRef1 = auxRef1; }

PhObject* PhFrameTriggering::auxRef2() const { return d->auxRef2; }

void PhFrameTriggering::setAuxRef2(PhObject* auxRef2) { d->auxRef2 = auxRef2; }

PhObject* PhFrameTriggering::auxRef3() const { return d->auxRef3; }

void PhFrameTriggering::setAuxRef3(PhObject* auxRef3) { d->auxRef3 = auxRef3; }

} // namespace tavo
