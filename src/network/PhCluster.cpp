#include "network/PhCluster.h"

#include "model/ownership.h"
#include "network/PhChannel.h"

namespace tavo {

struct PhClusterPrivate : Pooled
{
    std::int32_t clusterCode = 0;
    PhChannelType channelType = PhChannelType::Undefined;
    PhRef<PhObject> auxRef2;
    PhRef<PhObject> auxRef1;
    PhLazyList channels;
};

PhCluster::PhCluster() : PhObject(PhClassCluster), d(new PhClusterPrivate) {}

PhCluster::~PhCluster() = default;

std::int32_t PhCluster::clusterCode() const { return d->clusterCode; }

void PhCluster::setClusterCode(std::int32_t clusterCode) { d->clusterCode = clusterCode; }

PhChannelType PhCluster::channelType() const { return d->channelType; }

void PhCluster::setChannelType(PhChannelType channelType) { d->channelType = channelType; }

PhObject* PhCluster::auxRef1() const { return d->auxRef1; }

void PhCluster::setAuxRef1(PhObject* auxRef1) { d->auxRef1 = auxRef1; }

PhObject* PhCluster::auxRef2() const { return d->auxRef2; }

void PhCluster::setAuxRef2(PhObject* auxRef2) { d->auxRef2 = auxRef2; }

PhList* PhCluster::channels() const { return d->channels; }

void PhCluster::appendChannel(PhChannel* channel) { d->channels.append(channel); }

} // namespace tavo
