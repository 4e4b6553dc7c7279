#include "network/PhScheduleTable.h"

#include "model/ownership.h"
#include "network/PhScheduleTableEntry.h"

namespace tavo {

struct PhScheduleTablePrivate : Pooled
{
    PhList* scheduleTableEntries = nullptr;
};

PhScheduleTable::PhScheduleTable() : PhObject(PhClassScheduleTable), d(new PhScheduleTablePrivate)
{
}

PhScheduleTable::~PhScheduleTable() { releaseList(d->scheduleTableEntries); }

PhList* PhScheduleTable::scheduleTableEntries() const { return d->scheduleTableEntries; }

void PhScheduleTable::appendScheduleTableEntry(PhScheduleTableEntry* scheduleTableEntry)
{
    appendTo(d->scheduleTableEntries, scheduleTableEntry);
}

std::uint32_t PhScheduleTable::size() const { return countOf(d->scheduleTableEntries); }

} // namespace tavo
