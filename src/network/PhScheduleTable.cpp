#include "network/PhScheduleTable.h"

#include "model/ownership.h"
#include "network/PhScheduleTableEntry.h"

namespace tavo {

struct PhScheduleTablePrivate : Pooled
{
    PhLazyList scheduleTableEntries;
};

PhScheduleTable::PhScheduleTable() : PhObject(PhClassScheduleTable), d(new PhScheduleTablePrivate)
{
}

PhScheduleTable::~PhScheduleTable() = default;

PhList* PhScheduleTable::scheduleTableEntries() const { return d->scheduleTableEntries; }

void PhScheduleTable::appendScheduleTableEntry(PhScheduleTableEntry* scheduleTableEntry)
{
    d->scheduleTableEntries.append(scheduleTableEntry);
}

std::uint32_t PhScheduleTable::size() const { return countOf(d->scheduleTableEntries); }

} // namespace tavo
