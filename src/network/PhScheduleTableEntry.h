#pragma once

#include "model/PhObject.h"

namespace tavo {

class PhFrame;
class PhValue;
struct PhScheduleTableEntryPrivate;

/// One step of a schedule table. No A2L file makes one.
///
/// References may be null. A setter takes a count of its argument and releases what the field held
/// before.
class PhScheduleTableEntry : public PhObject
{
public:
    PhScheduleTableEntry();
    ~PhScheduleTableEntry() override;

    PhValue* delay() const;
    void setDelay(PhValue* delay);

    /// The frame that is sent.
    PhFrame* frame() const;
    void setFrame(PhFrame* frame);

    /// A further reference without a user.
    PhObject* auxRef() const;
    void setAuxRef(PhObject* auxRef);

private:
    std::unique_ptr<PhScheduleTableEntryPrivate> d;
};

} // namespace tavo
