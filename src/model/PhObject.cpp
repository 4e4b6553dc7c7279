#include "model/PhObject.h"

namespace tavo {

namespace {

/// The creation number of the next object. Never reset, so that ids stay unique in the process.
std::uint32_t nextId = 0;

constexpr std::int32_t highestNearClassId = 0x1FFFFF;

} // namespace

constinit const PhString PhObject::noText;
std::uint64_t PhObject::indexedNameChanges_ = 0;

PhObject::PhObject(std::int32_t classId)
    : id_(nextId++), classId_(classId & highestNearClassId), isNameIndexed_(0), spare_(0)
{
    if (classId < 0 || classId > highestNearClassId) {
        rare_.made().classId = classId;
        classId_ = -1;
    }
}

PhObject::~PhObject() = default;

void PhObject::setText(PhString PhObjectRareParts::*slot, const PhString& text)
{
    if (rare_ || !text.isNull())
        rare_.made().*slot = text;
}

} // namespace tavo
