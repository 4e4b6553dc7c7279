#include "model/PhNameIndex.h"

#include "model/PhList.h"

#include <algorithm>
#include <bit>
#include <functional>
#include <string_view>

namespace tavo {

namespace {

constexpr std::size_t smallest = 64;

} // namespace

PhNameIndex::PhNameIndex() : nameChanges_(PhObject::indexedNameChanges()) {}

PhNameIndex::PhNameIndex(const PhListNode* first, std::size_t count) : PhNameIndex()
{
    objects_.reserve(count);
    grow(std::bit_ceil(std::max(2 * count + 1, smallest)));
    // The places of many names are fetched at a time, since the memory takes as long for one.
    constexpr std::size_t many = 16;
    while (first) {
        std::uint32_t hashes[many];
        const PhListNode* node = first;
        for (std::size_t i = 0; i < many && node; ++i, node = node->next()) {
            hashes[i] = hashOf(node->object()->name());
            prepare(hashes[i]);
        }
        for (std::size_t i = 0; first != node; first = first->next())
            append(first->object(), hashes[i++]);
    }
}

std::uint32_t PhNameIndex::hashOf(const PhString& name)
{
    return static_cast<std::uint32_t>(std::hash<std::string_view>()(name.view()));
}

/// The object of a slot that is taken.
PhObject* PhNameIndex::objectOf(const Slot& slot) const { return objects_[slot.number - 1]; }

void PhNameIndex::prepare([[maybe_unused]] std::uint32_t hash) const
{
#if defined(__GNUC__)
    if (!slots_.empty())
        __builtin_prefetch(&slots_[hash & (slots_.size() - 1)]);
#endif
}

bool PhNameIndex::isStale() const { return nameChanges_ != PhObject::indexedNameChanges(); }

void PhNameIndex::append(PhObject* object) { append(object, hashOf(object->name())); }

void PhNameIndex::append(PhObject* object, std::uint32_t hash)
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
    if (objects_.size() * 2 >= slots_.size())
        grow(std::max(slots_.size() * 2, smallest));
    Slot& slot = slots_[slotOf(object->name(), hash)];
    if (slot.number == 0) {
        objects_.push_back(object);
        slot = {hash, static_cast<std::uint32_t>(objects_.size())};
    }
    becomeOrderedIfSlow();
}

void PhNameIndex::becomeOrderedIfSlow()
{
    if (stepCount_ <= stepLimit())
        return;
    std::set<PhObject*, ByName> ordered;
    for (PhObject* object : objects_)
        ordered.insert(object);
    ordered_.swap(ordered);
    slots_ = {};
    objects_ = {};
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
        const Slot& slot = slots_[slotOf(name, hashOf(name))];
        PhObject* found = slot.number != 0 ? objectOf(slot) : nullptr;
        becomeOrderedIfSlow();
        return found;
    }
    const auto found = ordered_.find(name.view());
    return found == ordered_.end() ? nullptr : *found;
}

/// The slot of the object of this name, or the free slot where it would be.
std::size_t PhNameIndex::slotOf(const PhString& name, std::uint32_t hash)
{
    const std::size_t mask = slots_.size() - 1;
    std::size_t i = hash & mask;
    for (; slots_[i].number != 0 &&
           (slots_[i].hash != hash || !sameText(objectOf(slots_[i])->name(), name));
         i = (i + 1) & mask)
        ++stepCount_;
    return i;
}

void PhNameIndex::grow(std::size_t slotCount)
{
    Slots slots(slotCount);
    const std::size_t mask = slots.size() - 1;
    for (const Slot& slot : slots_) {
        if (slot.number == 0)
            continue;
        std::size_t i = slot.hash & mask;
        for (; slots[i].number != 0; i = (i + 1) & mask)
            ++stepCount_;
        slots[i] = slot;
    }
    slots_.swap(slots);
}

} // namespace tavo
