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
///
/// Whatever the names are, n calls take no more than about n log n steps. Names can be made so that
/// they share their places in a table, or fill a long row of neighbouring places. So the
/// steps beyond the first one are counted, and an index that takes too many becomes an ordered one.
class PhNameIndex
{
public:
    PhNameIndex();

    /// True if an object that some index relies upon has changed its name since this one was made.
    bool isStale() const;
    /// Enters the object at the list's tail. One of the same name that is there already stays.
    void append(PhObject* object);
    /// The first object of this name, or null. `name` is not null. Should memory run out, which
    /// can happen once, all stays as it is.
    PhObject* find(const PhString& name);

    /// The calls of `append` and `find` so far, and the places that they looked at in vain.
    std::size_t callCount() const { return callCount_; }
    std::size_t stepCount() const { return stepCount_; }
    /// As many steps as are allowed before the index becomes an ordered one.
    std::size_t stepLimit() const { return 8 * callCount_ + 1000; }

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

    std::size_t slotOf(const PhString& name, std::size_t hash);
    void grow();
    void becomeOrderedIfSlow();

    std::vector<Slot> slots_; ///< A power of two, at most half of them taken.
    std::size_t count_ = 0;
    std::uint64_t nameChanges_; ///< When this index was made.
    std::size_t callCount_ = 0;
    std::size_t stepCount_ = 0;
    std::set<PhObject*, ByName> ordered_; ///< Takes the place of the slots once it isn't empty.
};

} // namespace tavo
