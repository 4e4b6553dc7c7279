#include "network/PhFrame.h"

#include "model/ownership.h"

namespace tavo {

struct PhFramePrivate : Pooled
{
    PhFrameType frameType = PhFrameType::Undefined;
    PhObject* structure = nullptr; ///< Layout.
};

PhFrame::PhFrame() : PhObject(PhClassFrame), d(new PhFramePrivate) {}

PhFrame::~PhFrame() { setStructure(nullptr); }

PhFrameType PhFrame::frameType() const { return d->frameType; }

void PhFrame::setFrameType(PhFrameType frameType) { d->frameType = frameType; }

PhObject* PhFrame::structure() const { return d->structure; }

void PhFrame::setStructure(PhObject* structure) { setRef(d->structure, structure); }

} // namespace tavo
