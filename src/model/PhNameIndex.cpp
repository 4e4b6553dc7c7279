#include "model/PhNameIndex.h"

#include "model/PhObject.h"

#include <functional>
#include <string_view>

namespace tavo {

namespace {

std::size_t hashOf(const PhString& name) { return std::hash<std::string_view>()(name.view()); }

} // namespace

PhNameIndex::PhNameIndex() : nameChanges_(PhObject::indexedNameChanges()) {}

bool PhNameIndex::isStale() const { return nameChanges_ != PhObject::indexedNameChanges(); }

void PhNameIndex::append(PhObject* object)
{
    // One without a name counts too: it may get one.
    object->setNameIndexed();
    if (object->name().isNull())
        return;
    ++callCount_;
    if (!ordered_.empty()) {
        ordered_.insert(object);
        return;
    }
    if (count_ * 2 >= slots_.size())
        grow();
    const std::size_t hash = hashOf(object->name());
    Slot& slot = slots_[slotOf(object->name(), hash)];
    if (!slot.object) {
        slot = {hash, object};
        ++count_;
    }
    becomeOrderedIfSlow();
}

void PhNameIndex::becomeOrderedIfSlow()
{
    if (stepCount_ <= stepLimit())
        return;
    std::set<PhObject*, ByName> ordered;
    for (const Slot& slot : slots_)
        if (slot.object)
            ordered.insert(slot.object);
    ordered_.swap(ordered);
    slots_ = {};
}

bool PhNameIndex::ByName::operator()(const PhObject* left, const PhObject* right) const
{
    return left->name().view() < right->name().view();
}

bool PhNameIndex::ByName::operator()(const PhObject* left, std::string_view right) const
{
    return left->name().view() < right;
}

bool PhNameIndex::ByName::operator()(std::string_view left, const PhObject* right) const
{
    return left < right->name().view();
}

PhObject* PhNameIndex::find(const PhString& name)
{
    ++callCount_;
    if (ordered_.empty() && !slots_.empty()) {
        PhObject* found = slots_[slotOf(name, hashOf(name))].object;
        becomeOrderedIfSlow();
        return found;
    }
    const auto found = ordered_.find(name.view());
    return found == ordered_.end() ? nullptr : *found;
}

/// The slot of the object of this name, or the free slot where it would be.
std::size_t PhNameIndex::slotOf(const PhString& name, std::size_t hash)
{
    const std::size_t mask = slots_.size() - 1;
    std::size_t i = hash & mask;
    for (;
         slots_[i].object && (slots_[i].hash != hash || !sameText(slots_[i].object->name(), name));
         i = (i + 1) & mask)
        ++stepCount_;
    return i;
}

void PhNameIndex::grow()
{
    constexpr std::size_t smallest = 64;
    std::vector<Slot> slots(slots_.empty() ? smallest : slots_.size() * 2);
    const std::size_t mask = slots.size() - 1;
    for (const Slot& slot : slots_) {
        if (!slot.object)
            continue;
        std::size_t i = slot.hash & mask;
        for (; slots[i].object; i = (i + 1) & mask)
            ++stepCount_;
        slots[i] = slot;
    }
    slots_.swap(slots);
}

} // namespace tavo
