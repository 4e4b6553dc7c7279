#pragma once

#include "base/pages.h"
#include "model/PhString.h"

#include <cstddef>
#include <cstdint>
#include <set>
#include <string_view>
#include <vector>

namespace tavo {

class PhListNode;
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
    /// An index of a list of `count` objects from the node `first` on.
    PhNameIndex(const PhListNode* first, std::size_t count);

    /// True if an object that some index relies upon has changed its name since this one was made.
    bool isStale() const;
    /// Enters the object at the list's tail. One of the same name that is there already stays.
    void append(PhObject* object);
    /// The first object of this name, or null. `name` is not null. Should memory run out, which
    /// can happen once, all stays as it is.
    PhObject* find(const PhString& name);
    /// Begins to fetch the place of a name from the memory, for a `find` or `append` that comes
    /// soon. `name` is not null.
    void prepare(const PhString& name) const { prepare(hashOf(name)); }

    /// The calls of `append` and `find` so far, and the places that they looked at in vain.
    std::size_t callCount() const { return callCount_; }
    std::size_t stepCount() const { return stepCount_; }
    /// As many steps as are allowed before the index becomes an ordered one.
    std::size_t stepLimit() const { return 8 * callCount_ + 1000; }

private:
    /// Small, so that many of them stand in one page: what a look-up waits for is the memory.
    struct Slot
    {
        std::uint32_t hash;
        std::uint32_t number; ///< One more than the place of its object; 0 in a free slot.
    };
    using Slots = std::vector<Slot, PageAllocator<Slot>>;

    /// Orders objects by their names.
    struct ByName
    {
        using is_transparent = void;
        bool operator()(const PhObject* left, const PhObject* right) const;
        bool operator()(const PhObject* left, std::string_view right) const;
        bool operator()(std::string_view left, const PhObject* right) const;
    };

    static std::uint32_t hashOf(const PhString& name);
    void prepare(std::uint32_t hash) const;
    void append(PhObject* object, std::uint32_t hash);
    PhObject* objectOf(const Slot& slot) const;
    std::size_t slotOf(const PhString& name, std::uint32_t hash);
    void grow(std::size_t slotCount);
    void becomeOrderedIfSlow();

    Slots slots_;                    ///< A power of two, at most half of them taken.
    std::vector<PhObject*> objects_; ///< The first of each name, in the order of the list.
    std::uint64_t nameChanges_;      ///< When this index was made.
    std::size_t callCount_ = 0;
    std::size_t stepCount_ = 0;
    std::set<PhObject*, ByName> ordered_; ///< Takes the place of the slots once it isn't empty.
};

} // namespace tavo
