#pragma once

#include "model/PhObject.h"
#include "model/enumerations.h"

namespace tavo {

class PhValue;
struct PhMemoryPagePrivate;

/// One segment of an ECU's memory, from a MEMORY_SEGMENT.
///
/// References may be null, which means that there is no such property. A setter takes a count of
/// its argument and releases what the field held before.
class PhMemoryPage : public PhObject
{
public:
    PhMemoryPage();
    ~PhMemoryPage() override;

    PhMemoryType memoryType() const;
    void setMemoryType(PhMemoryType memoryType);

    PhLocation location() const;
    void setLocation(PhLocation location);

    /// What the segment holds; never `Parameters` in a description.
    PhPageType pageType() const;
    void setPageType(PhPageType pageType);

    /// Bytes in the segment, an unsigned value.
    PhValue* size() const;
    void setSize(PhValue* size);

    /// Start of the segment, an unsigned value.
    PhValue* address() const;
    void setAddress(PhValue* address);

private:
    std::unique_ptr<PhMemoryPagePrivate> d;
};

} // namespace tavo
