#include "network/PhScheduleTableEntry.h"

#include "model/PhValue.h"
#include "model/ownership.h"
#include "network/PhFrame.h"

namespace tavo {

struct PhScheduleTableEntryPrivate : Pooled
{
    PhRef<PhFrame> frame;
    PhRef<PhValue> delay;
    PhRef<PhObject> auxRef;
};

PhScheduleTableEntry::PhScheduleTableEntry()
    : PhObject(PhClassScheduleTableEntry), d(new PhScheduleTableEntryPrivate)
{
}

PhScheduleTableEntry::~PhScheduleTableEntry() = default;

PhValue* PhScheduleTableEntry::delay() const { return d->delay; }

void PhScheduleTableEntry::setDelay(PhValue* delay) { d->delay = delay; }

PhFrame* PhScheduleTableEntry::frame() const { return d->frame; }

void PhScheduleTableEntry::setFrame(PhFrame* frame) { d->frame = frame; }

PhObject* PhScheduleTableEntry::auxRef() const { return d->auxRef; }

void PhScheduleTableEntry::setAuxRef(PhObject* auxRef) { d->auxRef = auxRef; }

} // namespace tavo
