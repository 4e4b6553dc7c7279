#include "network/PhChannel.h"

#include "model/ownership.h"
#include "network/PhCluster.h"
#include "network/PhFrameTriggering.h"
#include "network/PhScheduleTable.h"

namespace tavo {

struct PhChannelPrivate : Pooled
{
    PhChannelType channelType = PhChannelType::Undefined;
    PhList* frameTriggerings = nullptr;
    PhCluster* cluster = nullptr;
    PhScheduleTable* scheduleTable = nullptr;
};

PhChannel::PhChannel() : PhObject(PhClassChannel), d(new PhChannelPrivate) {}

PhChannel::~PhChannel()
{
    setCluster(nullptr);
    setScheduleTable(nullptr);
    releaseList(d->frameTriggerings);
}

PhChannelType PhChannel::channelType() const { return d->channelType; }

void PhChannel::setChannelType(PhChannelType channelType) { d->channelType = channelType; }

PhCluster* PhChannel::cluster() const { return d->cluster; }

void PhChannel::setCluster(PhCluster* cluster) { setRef(d->cluster, cluster); }

PhScheduleTable* PhChannel::scheduleTable() const { return d->scheduleTable; }

void PhChannel::setScheduleTable(PhScheduleTable* scheduleTable)
{
    setRef(d->scheduleTable, scheduleTable);
}

PhList* PhChannel::frameTriggerings() const { return d->frameTriggerings; }

void PhChannel::appendFrameTriggering(PhFrameTriggering* frameTriggering)
{
    appendTo(d->frameTriggerings, frameTriggering);
}

} // namespace tavo
