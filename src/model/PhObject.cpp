#include "model/PhObject.h"

namespace tavo {

namespace {

/// The creation number of the next object. Never reset, so that ids stay unique in the process.
std::uint32_t nextId = 0;

} // namespace

constinit const PhObjectTexts PhObject::noTexts;
constinit const PhObjectRareTexts PhObject::noRareTexts;
std::uint64_t PhObject::indexedNameChanges_ = 0;

PhObject::PhObject(std::int32_t classId)
    : id_(nextId++), classId_(classId & 0x1FFFFF), isNameIndexed_(0), spare_(0)
{
}

PhObject::~PhObject() = default;

namespace {

/// Sets a text in a block that is made when the first text in it is.
template <class Texts>
void setTextIn(std::unique_ptr<Texts>& texts, PhString Texts::*slot, const PhString& text)
{
    if (!texts) {
        if (text.isNull())
            return;
        texts = std::make_unique<Texts>();
    }
    texts.get()->*slot = text;
}

} // namespace

void PhObject::setText(PhString PhObjectTexts::*slot, const PhString& text)
{
    setTextIn(texts_, slot, text);
}

void PhObject::setText(PhString PhObjectRareTexts::*slot, const PhString& text)
{
    if (!texts_ && !text.isNull())
        texts_ = std::make_unique<PhObjectTexts>();
    if (texts_)
        setTextIn(texts_->rare, slot, text);
}

} // namespace tavo
