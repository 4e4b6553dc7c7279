#pragma once

#include "model/PhString.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tavo {

class PhObject;

/// Finds the first object of a name in a long list. It is made by the first look-up that needs it
/// and holds no count of anything. Where `PhHashTable` is an index that a list's user asks for,
/// with the latest of equal names and a fixed number of buckets, this one gives what a walk from
/// the head would give, and grows.
///
/// It stays right while objects are appended; anything else that happens to the list must drop it.
class PhNameIndex
{
public:
    /// True if an object that some index relies upon has changed its name since this one was made.
    bool isStale() const;
    /// Enters the object at the list's tail. One of the same name that is there already stays.
    void append(PhObject* object);
    /// The first object of this name, or null. `name` is not null.
    PhObject* find(const PhString& name) const;

private:
    struct Slot
    {
        std::size_t hash;
        PhObject* object = nullptr; ///< Null in a free slot.
    };

    std::size_t slotOf(const PhString& name, std::size_t hash) const;
    void grow();

    std::vector<Slot> slots_; ///< A power of two, at most half of them taken.
    std::size_t count_ = 0;
    std::uint64_t nameChanges_ = 0;
};

} // namespace tavo
