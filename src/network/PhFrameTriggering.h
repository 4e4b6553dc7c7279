#pragma once

#include "model/PhObject.h"

namespace tavo {

class PhFrame;
class PhTiming;
class PhValue;
struct PhFrameTriggeringPrivate;

/// Binds a frame into its place on a channel. No A2L file makes one.
///
/// References may be null. A setter takes a count of its argument and releases what the field held
/// before.
class PhFrameTriggering : public PhObject
{
public:
    PhFrameTriggering();
    ~PhFrameTriggering() override;

    PhFrame* frame() const;
    void setFrame(PhFrame* frame);

    /// The frame's identifier on the bus.
    PhValue* identifier() const;
    void setIdentifier(PhValue* identifier);

    /// When the frame is sent. Triggerings may share a timing.
    PhTiming* timing() const;
    void setTiming(PhTiming* timing);

    /// Further references without a user.
    PhObject* auxRef1() const;
    void setAuxRef1(PhObject* auxRef1);
    PhObject* auxRef2() const;
    void setAuxRef2(PhObject* auxRef2);
    PhObject* auxRef3() const;
    void setAuxRef3(PhObject* auxRef3);

private:
    std::unique_ptr<PhFrameTriggeringPrivate> d;
};

} // namespace tavo
