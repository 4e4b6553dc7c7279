#pragma once

#include "model/PhString.h"

#include <cstddef>
#include <cstdint>
#include <set>
#include <string_view>
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
    PhNameIndex();

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

    /// Orders objects by their names.
    struct ByName
    {
        using is_transparent = void;
        bool operator()(const PhObject* left, const PhObject* right) const;
        bool operator()(const PhObject* left, std::string_view right) const;
        bool operator()(std::string_view left, const PhObject* right) const;
    };

    std::size_t slotOf(const PhString& name, std::size_t hash) const;
    void grow();
    void becomeOrdered();

    std::vector<Slot> slots_; ///< A power of two, at most half of them taken.
    std::size_t count_ = 0;
    std::uint64_t nameChanges_; ///< When this index was made.
    /// Takes the place of the slots when many names share a place, as names made for that purpose
    /// do: else each look-up would walk over all of them.
    std::set<PhObject*, ByName> ordered_;
};

} // namespace tavo
