#pragma once

#include "model/PhString.h"

#include <cstdint>
#include <forward_list>
#include <vector>

namespace tavo {

class PhObject;

/// One object in the index, under the name that it had when it was entered.
struct PhHashEntry
{
    PhString key;
    std::uint32_t hash;
    PhObject* object; ///< Not counted: the list that is indexed holds the count.
};

/// Chained index from names to objects. The bucket count is fixed, so chains grow as it fills; of
/// equal keys, `find` returns the one that was added last.
class PhHashTable
{
public:
    /// Makes `bucketCount` buckets, but no fewer than 111.
    explicit PhHashTable(std::uint32_t bucketCount);

    std::uint32_t bucketCount() const { return static_cast<std::uint32_t>(buckets_.size()); }
    void add(const PhString& key, PhObject* object);
    /// The object, or null. A null key finds what was added under a null key.
    PhObject* find(const PhString& key) const;
    /// Takes the first entry of the key's bucket that holds `object` out, if there is one.
    void remove(const PhString& key, PhObject* object);
    /// Removes all entries; the buckets stay.
    void clear();

private:
    /// The entries of one bucket, the last one first.
    using Chain = std::forward_list<PhHashEntry>;

    const Chain& chainOf(std::uint32_t hash) const { return buckets_[hash % buckets_.size()]; }
    Chain& chainOf(std::uint32_t hash) { return buckets_[hash % buckets_.size()]; }

    std::vector<Chain> buckets_;
};

} // namespace tavo
