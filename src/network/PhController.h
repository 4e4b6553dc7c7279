#pragma once

#include "model/PhObject.h"

namespace tavo {

class PhChannel;
struct PhControllerPrivate;

/// The bus interface of an ECU. No A2L file makes one.
///
/// References may be null. A setter takes a count of its argument and releases what the field held
/// before.
class PhController : public PhObject
{
public:
    PhController();
    ~PhController() override;

    PhChannel* channel() const;
    void setChannel(PhChannel* channel);

private:
    std::unique_ptr<PhControllerPrivate> d;
};

} // namespace tavo
