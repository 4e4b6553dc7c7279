#pragma once

#include "model/PhObject.h"

#include <cstdint>

namespace tavo {

class PhValue;
struct PhRasterPrivate;

/// Unit of the rate of a `PhRaster`.
enum class PhTimeUnit : std::int32_t
{
    Undefined,
    Seconds,
    Milliseconds,
    Microseconds,
    Nanoseconds
};

/// One sampling source of a `PhCommParam`, from a RASTER of CCP or an EVENT of XCP.
///
/// References may be null, which means that there is no such property. A setter takes a count of
/// its argument and releases what the field held before.
class PhRaster : public PhObject
{
public:
    PhRaster();
    ~PhRaster() override;

    PhTimeUnit timeUnit() const;
    void setTimeUnit(PhTimeUnit timeUnit);

    /// Time from one sample to the next, an integer count of `timeUnit`.
    PhValue* rate() const;
    void setRate(PhValue* rate);

    /// Number of the event channel, an integer.
    PhValue* channel() const;
    void setChannel(PhValue* channel);

    /// A further reference without a user.
    PhObject* auxRef() const;
    void setAuxRef(PhObject* auxRef);

private:
    std::unique_ptr<PhRasterPrivate> d;
};

} // namespace tavo
