#include "network/PhChannel.h"

#include "model/ownership.h"
#include "network/PhCluster.h"
#include "network/PhFrameTriggering.h"
#include "network/PhScheduleTable.h"

namespace tavo {

struct PhChannelPrivate : Pooled
{
    PhChannelType channelType = PhChannelType::Undefined;
    PhLazyList frameTriggerings;
    PhRef<PhScheduleTable> scheduleTable;
    PhRef<PhCluster> cluster;
};

PhChannel::PhChannel() : PhObject(PhClassChannel), d(new PhChannelPrivate) {}

PhChannel::~PhChannel() = default;

PhChannelType PhChannel::channelType() const { return d->channelType; }

void PhChannel::setChannelType(PhChannelType channelType) { d->channelType = channelType; }

PhCluster* PhChannel::cluster() const { return d->cluster; }

void PhChannel::setCluster(PhCluster* cluster) { d->cluster = cluster; }

PhScheduleTable* PhChannel::scheduleTable() const { return d->scheduleTable; }

void PhChannel::setScheduleTable(PhScheduleTable* scheduleTable)
{
    d->scheduleTable = scheduleTable;
}

PhList* PhChannel::frameTriggerings() const { return d->frameTriggerings; }

void PhChannel::appendFrameTriggering(PhFrameTriggering* frameTriggering)
{
    d->frameTriggerings.append(frameTriggering);
}

} // namespace tavo
