#pragma once

#include "model/PhObject.h"

namespace tavo {

class PhList;
class PhScheduleTableEntry;
struct PhScheduleTablePrivate;

/// The order in which the frames of a channel are sent. No A2L file makes one.
///
/// Lists may be null; an append operation makes the list if it is missing, and takes a count.
class PhScheduleTable : public PhObject
{
public:
    PhScheduleTable();
    ~PhScheduleTable() override;

    /// `PhScheduleTableEntry`, in the order of sending.
    PhList* scheduleTableEntries() const;
    void appendScheduleTableEntry(PhScheduleTableEntry* scheduleTableEntry);
    /// Number of entries.
    std::uint32_t size() const;

private:
    std::unique_ptr<PhScheduleTablePrivate> d;
};

} // namespace tavo
