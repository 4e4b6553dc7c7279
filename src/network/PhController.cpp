#include "network/PhController.h"

#include "model/ownership.h"
#include "network/PhChannel.h"

namespace tavo {

struct PhControllerPrivate : Pooled
{
    PhChannel* channel = nullptr;
};

PhController::PhController() : PhObject(PhClassController), d(new PhControllerPrivate) {}

PhController::~PhController() { setChannel(nullptr); }

PhChannel* PhController::channel() const { return d->channel; }

void PhController::setChannel(PhChannel* channel) { setRef(d->channel, channel); }

} // namespace tavo
