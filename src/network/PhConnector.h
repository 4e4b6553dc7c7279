#pragma once

#include "model/PhObject.h"

namespace tavo {

class PhChannel;
class PhController;
class PhFrameTriggering;
class PhList;
struct PhConnectorPrivate;

/// Ties an ECU to one channel through one controller. No A2L file makes one.
///
/// References and lists may be null. A setter takes a count of its argument and releases what the
/// field held before; an append operation makes the list if it is missing.
class PhConnector : public PhObject
{
public:
    PhConnector();
    ~PhConnector() override;

    /// The channel that the connector attaches to, by which its ECU finds it.
    PhChannel* channel() const;
    void setChannel(PhChannel* channel);

    PhController* controller() const;
    void setController(PhController* controller);

    /// `PhFrameTriggering`.
    PhList* frameTriggerings() const;
    void appendFrameTriggering(PhFrameTriggering* frameTriggering);

    /// Objects of no particular class.
    PhList* inputSignals() const;
    void appendInputSignal(PhObject* inputSignal);
    PhList* inputFrames() const;
    void appendInputFrame(PhObject* inputFrame);

private:
    std::unique_ptr<PhConnectorPrivate> d;
};

} // namespace tavo
