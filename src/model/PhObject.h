#pragma once

#include "model/Ph.h"
#include "model/PhRare.h"
#include "model/PhString.h"
#include "model/pool.h"

#include <cstdint>
#include <memory>

namespace tavo {

/// The run-time class numbers, as `PhObject::classId` gives them.
enum PhClassId : std::int32_t
{
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

/// What hardly any object has: the texts that no file gives one, and a class number that doesn't
/// fit into the object.
struct PhObjectRareParts : Pooled
{
    PhString externalId;
    PhString description;
    std::int32_t classId = 0;
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
    static void* operator new(std::size_t size) { return allocateBlock(size); }
    static void operator delete(void* block, std::size_t size) noexcept
    {
        releaseBlock(block, size);
    }

    /// The numbers of `PhClassId` and their like take no memory of their own; one below 0 or of
    /// more than 21 bits does.
    explicit PhObject(std::int32_t classId);
    virtual ~PhObject();
    PhObject(const PhObject&) = delete;
    PhObject& operator=(const PhObject&) = delete;

    /// The creation number: unique in the process and ascending in order of construction. Every
    /// object takes one, temporary and embedded values included.
    std::uint32_t id() const { return id_; }
    std::int32_t classId() const { return classId_ >= 0 ? classId_ : rare_->classId; }

    /// The texts themselves, not copies: a reference holds as long as the object and shows what is
    /// set later. Null at first. Of an A2L block, the identifier is the `name` and the long
    /// identifier the `longName`; the other two stay null, and to ask for one of them makes room
    /// for it, which can run out of memory.
    const PhString& name() const { return name_; }
    const PhString& longName() const { return longName_; }
    const PhString& description() const { return rare_.made().description; }
    const PhString& externalId() const { return rare_.made().externalId; }
    /// The same for a look that makes no room and never fails. The reference to a text that was
    /// never set doesn't show what is set later.
    // NOLINTNEXTLINE(clang-analyzer-core.uninitialized.UndefReturn)
    const PhString& peekExternalId() const { return rare_ ? rare_->externalId : noText; }

    void setName(const PhString& name)
    {
        indexedNameChanges_ += isNameIndexed_;
        name_ = name;
    }
    void setLongName(const PhString& longName) { longName_ = longName; }
    void setDescription(const PhString& text) { setText(&PhObjectRareParts::description, text); }
    void setExternalId(const PhString& text) { setText(&PhObjectRareParts::externalId, text); }

    int refCount() const { return count_; }
    void incRef() { ++count_; }
    /// Takes one count away, unless there is none. Returns what is left and never destroys.
    int decRef() { return count_ > 0 ? --count_ : 0; }

    /// Takes a count of `object`; nothing for null.
    static void link(PhObject* object)
    {
        if (object)
            object->incRef();
    }
    /// Gives a count of `object` back and destroys it if none is left. An object without a count
    /// is destroyed as well; nothing happens for null.
    static void unlink(PhObject* object)
    {
        if (object && object->decRef() == 0)
            delete object;
    }

    /// Stands in for an object of its class that is known by name only.
    bool isUnresolved() const { return isFlag(Unresolved); }
    void setUnresolved() { setFlag(Unresolved); }
    void clearUnresolved() { clearFlag(Unresolved); }

    /// An unresolved object that name resolution has given up on, so that it is reported once.
    bool isReported() const { return isFlag(Reported); }
    void setReported() { setFlag(Reported); }
    void clearReported() { clearFlag(Reported); }

    /// True if any bit of `mask` is set. The bits above the two named ones are free for use.
    bool isFlag(std::uint32_t mask) const { return (flags_ & mask) != 0; }
    void setFlag(std::uint32_t mask) { flags_ |= mask; }
    void clearFlag(std::uint32_t mask) { flags_ &= ~mask; }

    /// Counts the changes of names that an index of some list may rely upon, so that it can tell
    /// whether it is still right. `setNameIndexed` says that one relies on this object's name.
    static std::uint64_t indexedNameChanges() { return indexedNameChanges_; }
    void setNameIndexed() { isNameIndexed_ = 1; }

private:
    enum : std::uint32_t
    {
        Unresolved = 1,
        Reported = 2
    };

    void setText(PhString PhObjectRareParts::*slot, const PhString& text);

    static const PhString noText;
    static std::uint64_t indexedNameChanges_;

    std::uint32_t flags_ = 0;
    std::int32_t count_ = 0; ///< Counts held by lists and reference fields.
    std::uint32_t id_;
    std::int32_t classId_ : 22; ///< Below 0 if it stands among the rare parts.
    std::uint32_t isNameIndexed_ : 1;

protected:
    /// For a subclass to use as it likes, 0 at first: a field of its own would cost eight
    /// bytes. Mutable for what a subclass makes at the first look.
    mutable std::uint32_t spare_ : 9;

private:
    /// Mutable, since to ask for a text makes room for it.
    mutable PhRare<PhObjectRareParts> rare_;
    PhString name_;
    PhString longName_;
};

} // namespace tavo
