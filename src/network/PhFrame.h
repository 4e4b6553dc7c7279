#pragma once

#include "model/PhObject.h"
#include "model/enumerations.h"

namespace tavo {

struct PhFramePrivate;

/// The definition of one frame on a network. No A2L file makes one; the block FRAME is something
/// else.
///
/// References may be null. A setter takes a count of its argument and releases what the field held
/// before.
class PhFrame : public PhObject
{
public:
    PhFrame();
    ~PhFrame() override;

    PhFrameType frameType() const;
    void setFrameType(PhFrameType frameType);

    /// The frame's layout, an object of no particular class.
    PhObject* structure() const;
    void setStructure(PhObject* structure);

private:
    std::unique_ptr<PhFramePrivate> d;
};

} // namespace tavo
