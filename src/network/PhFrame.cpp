#include "network/PhFrame.h"

#include "model/ownership.h"

namespace tavo {

struct PhFramePrivate : Pooled
{
    PhFrameType frameType = PhFrameType::Undefined;
    PhRef<PhObject> structure; ///< Layout.
};

PhFrame::PhFrame() : PhObject(PhClassFrame), d(new PhFramePrivate) {}

PhFrame::~PhFrame() = default;

PhFrameType PhFrame::frameType() const { return d->frameType; }

void PhFrame::setFrameType(PhFrameType frameType) { d->frameType = frameType; }

PhObject* PhFrame::structure() const { return d->structure; }

void PhFrame::setStructure(PhObject* structure) { d->structure = structure; }

} // namespace tavo
