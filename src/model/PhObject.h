#pragma once

#include "model/Ph.h"
#include "model/PhString.h"

#include <cstdint>
#include <memory>

namespace tavo {

struct PhObjectPrivate;

/// The run-time class numbers, as `PhObject::classId` gives them.
enum PhClassId : std::int32_t {
    PhClassMemoryPage = 1,
    PhClassCommParam = 2,
    PhClassUnit = 3,
    PhClassType = 4,
    PhClassSignal = 5,
    PhClassStructure = 6,
    PhClassEntity = 7,
    PhClassEntityRef = 8,
    PhClassConversion = 9,
    PhClassValue = 10,
    PhClassRaster = 11,
    PhClassRange = 12,
    PhClassParameter = 13,
    PhClassService = 14,
    PhClassGroup = 15,
    PhClassRoot = 16,
    PhClassFrame = 17,
    PhClassFrameTriggering = 18,
    PhClassChannel = 19,
    PhClassCluster = 20,
    PhClassConnector = 21,
    PhClassController = 22,
    PhClassFunction = 23,
    PhClassEcu = 24,
    PhClassTiming = 25,
    PhClassConnectorMapping = 26,
    PhClassFrameMapping = 27,
    PhClassSignalMapping = 28,
    PhClassScheduleTable = 29,
    PhClassScheduleTableEntry = 30,
};

/// Base of every model object: a class number, a creation number, four texts, marker flags and a
/// manual reference count.
///
/// A new object has the count 0 and comes to life by being stored: each list and each reference
/// field that holds it owns one count, and the last release destroys it. An object on the stack or
/// embedded in another one is never counted. Nothing here is safe for use from two threads.
class PhObject : public Ph
{
public:
    explicit PhObject(std::int32_t classId);
    virtual ~PhObject();
    PhObject(const PhObject&) = delete;
    PhObject& operator=(const PhObject&) = delete;

    /// The creation number: unique in the process and ascending in order of construction. Every
    /// object takes one, temporary and embedded values included.
    std::uint32_t id() const;
    std::int32_t classId() const;

    /// The text slots themselves, not copies; null until set. Of an A2L block, the identifier is
    /// the `name` and the long identifier the `longName`; the other two stay null.
    const PhString& name() const;
    const PhString& longName() const;
    const PhString& description() const;
    const PhString& externalId() const;
    void setName(const PhString& name);
    void setLongName(const PhString& longName);
    void setDescription(const PhString& description);
    void setExternalId(const PhString& externalId);

    int refCount() const;
    void incRef();
    /// Takes one count away, unless there is none. Returns what is left and never destroys.
    int decRef();

    /// Takes a count of `object`; nothing for null.
    static void link(PhObject* object);
    /// Gives a count of `object` back and destroys it if none is left. An object without a count
    /// is destroyed as well; nothing happens for null.
    static void unlink(PhObject* object);

    /// Stands in for an object of its class that is known by name only.
    bool isUnresolved() const { return isFlag(Unresolved); }
    void setUnresolved() { setFlag(Unresolved); }
    void clearUnresolved() { clearFlag(Unresolved); }

    /// An unresolved object that name resolution has given up on, so that it is reported once.
    bool isReported() const { return isFlag(Reported); }
    void setReported() { setFlag(Reported); }
    void clearReported() { clearFlag(Reported); }

    /// True if any bit of `mask` is set. The bits above the two named ones are free for use.
    bool isFlag(std::uint32_t mask) const;
    void setFlag(std::uint32_t mask);
    void clearFlag(std::uint32_t mask);

private:
    enum : std::uint32_t { Unresolved = 1, Reported = 2 };

    std::unique_ptr<PhObjectPrivate> d;
};

} // namespace tavo
