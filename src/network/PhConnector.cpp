#include "network/PhConnector.h"

#include "model/ownership.h"
#include "network/PhChannel.h"
#include "network/PhController.h"
#include "network/PhFrameTriggering.h"

namespace tavo {

struct PhConnectorPrivate : Pooled
{
    PhLazyList inputFrames;
    PhLazyList inputSignals;
    PhLazyList frameTriggerings;
    PhRef<PhChannel> channel;
    PhRef<PhController> controller;
};

PhConnector::PhConnector() : PhObject(PhClassConnector), d(new PhConnectorPrivate) {}

PhConnector::~PhConnector() = default;

PhChannel* PhConnector::channel() const { return d->channel; }

void PhConnector::setChannel(PhChannel* channel) { d->channel = channel; }

PhController* PhConnector::controller() const { return d->controller; }

void PhConnector::setController(PhController* controller) { d->controller = controller; }

PhList* PhConnector::frameTriggerings() const { return d->frameTriggerings; }

void PhConnector::appendFrameTriggering(PhFrameTriggering* frameTriggering)
{
    d->frameTriggerings.append(frameTriggering);
}

PhList* PhConnector::inputSignals() const { return d->inputSignals; }

void PhConnector::appendInputSignal(PhObject* inputSignal) { d->inputSignals.append(inputSignal); }

PhList* PhConnector::inputFrames() const { return d->inputFrames; }

void PhConnector::appendInputFrame(PhObject* inputFrame) { d->inputFrames.append(inputFrame); }

} // namespace tavo
