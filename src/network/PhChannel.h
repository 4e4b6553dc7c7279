#pragma once

#include "model/PhObject.h"
#include "model/enumerations.h"

namespace tavo {

class PhCluster;
class PhFrameTriggering;
class PhList;
class PhScheduleTable;
struct PhChannelPrivate;

/// One channel of a cluster, with the frame triggerings that it carries. No A2L file makes one.
///
/// References and lists may be null. A setter takes a count of its argument and releases what the
/// field held before; an append operation makes the list if it is missing.
class PhChannel : public PhObject
{
public:
    PhChannel();
    ~PhChannel() override;

    /// Kind of bus.
    PhChannelType channelType() const;
    void setChannelType(PhChannelType channelType);

    /// The cluster that the channel belongs to. Setting it doesn't append the channel there.
    PhCluster* cluster() const;
    void setCluster(PhCluster* cluster);

    PhScheduleTable* scheduleTable() const;
    void setScheduleTable(PhScheduleTable* scheduleTable);

    /// `PhFrameTriggering`.
    PhList* frameTriggerings() const;
    void appendFrameTriggering(PhFrameTriggering* frameTriggering);

private:
    std::unique_ptr<PhChannelPrivate> d;
};

} // namespace tavo
