#include "model/PhObject.h"

namespace tavo {

namespace {

/// The creation number of the next object. Never reset, so that ids stay unique in the process.
std::uint32_t nextId = 0;

} // namespace

constinit const PhObjectTexts PhObject::noTexts;
std::uint64_t PhObject::indexedNameChanges_ = 0;

PhObject::PhObject(std::int32_t classId)
    : id_(nextId++), classId_(classId & 0x3FFFFFFF), isNameIndexed_(0)
{
}

PhObject::~PhObject() = default;

void PhObject::setText(PhString PhObjectTexts::*slot, const PhString& text)
{
    if (!texts_) {
        if (text.isNull())
            return;
        texts_ = std::make_unique<PhObjectTexts>();
    }
    texts_.get()->*slot = text;
}

} // namespace tavo
