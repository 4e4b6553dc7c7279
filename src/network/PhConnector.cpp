#include "network/PhConnector.h"

#include "model/ownership.h"
#include "network/PhChannel.h"
#include "network/PhController.h"
#include "network/PhFrameTriggering.h"

namespace tavo {

struct PhConnectorPrivate : Pooled
{
    PhChannel* channel = nullptr;
    PhController* controller = nullptr;
    PhList* frameTriggerings = nullptr;
    PhList* inputSignals = nullptr;
    PhList* inputFrames = nullptr;
};

PhConnector::PhConnector() : PhObject(PhClassConnector), d(new PhConnectorPrivate) {}

PhConnector::~PhConnector()
{
    setController(nullptr);
    setChannel(nullptr);
    releaseList(d->frameTriggerings);
    releaseList(d->inputSignals);
    releaseList(d->inputFrames);
}

PhChannel* PhConnector::channel() const { return d->channel; }

void PhConnector::setChannel(PhChannel* channel) { setRef(d->channel, channel); }

PhController* PhConnector::controller() const { return d->controller; }

void PhConnector::setController(PhController* controller) { setRef(d->controller, controller); }

PhList* PhConnector::frameTriggerings() const { return d->frameTriggerings; }

void PhConnector::appendFrameTriggering(PhFrameTriggering* frameTriggering)
{
    appendTo(d->frameTriggerings, frameTriggering);
}

PhList* PhConnector::inputSignals() const { return d->inputSignals; }

void PhConnector::appendInputSignal(PhObject* inputSignal)
{
    appendTo(d->inputSignals, inputSignal);
}

PhList* PhConnector::inputFrames() const { return d->inputFrames; }

void PhConnector::appendInputFrame(PhObject* inputFrame) { appendTo(d->inputFrames, inputFrame); }

} // namespace tavo
