#include "network/PhScheduleTableEntry.h"

#include "model/PhValue.h"
#include "model/ownership.h"
#include "network/PhFrame.h"

namespace tavo {

struct PhScheduleTableEntryPrivate : Pooled
{
    PhObject* auxRef = nullptr;
    PhValue* delay = nullptr;
    PhFrame* frame = nullptr;
};

PhScheduleTableEntry::PhScheduleTableEntry()
    : PhObject(PhClassScheduleTableEntry), d(new PhScheduleTableEntryPrivate)
{
}

PhScheduleTableEntry::~PhScheduleTableEntry()
{
    setAuxRef(nullptr);
    setDelay(nullptr);
    setFrame(nullptr);
}

PhValue* PhScheduleTableEntry::delay() const { return d->delay; }

void PhScheduleTableEntry::setDelay(PhValue* delay) { setRef(d->delay, delay); }

PhFrame* PhScheduleTableEntry::frame() const { return d->frame; }

void PhScheduleTableEntry::setFrame(PhFrame* frame) { setRef(d->frame, frame); }

PhObject* PhScheduleTableEntry::auxRef() const { return d->auxRef; }

void PhScheduleTableEntry::setAuxRef(PhObject* auxRef) { setRef(d->auxRef, auxRef); }

} // namespace tavo
