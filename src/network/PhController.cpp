#include "network/PhController.h"

#include "model/ownership.h"
#include "network/PhChannel.h"

namespace tavo {

struct PhControllerPrivate : Pooled
{
    PhRef<PhChannel> channel;
};

PhController::PhController() : PhObject(PhClassController), d(new PhControllerPrivate) {}

PhController::~PhController() = default;

PhChannel* PhController::channel() const { return d->channel; }

void PhController::setChannel(PhChannel* channel) { d->channel = channel; }

} // namespace tavo
