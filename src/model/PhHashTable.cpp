#include "model/PhHashTable.h"

#include <algorithm>

namespace tavo {

PhHashTable::PhHashTable(std::uint32_t bucketCount) : buckets_(std::max(bucketCount, 111U)) {}

void PhHashTable::add(const PhString& key, PhObject* object)
{
    const std::uint32_t hash = key.hash();
    chainOf(hash).push_front({key, hash, object});
}

PhObject* PhHashTable::find(const PhString& key) const
{
    const std::uint32_t hash = key.hash();
    for (const PhHashEntry& entry : chainOf(hash))
        if (entry.hash == hash && sameText(entry.key, key))
            return entry.object;
    return nullptr;
}

void PhHashTable::remove(const PhString& key, PhObject* object)
{
    Chain& chain = chainOf(key.hash());
    auto before = chain.before_begin();
    for (auto entry = chain.begin(); entry != chain.end(); before = entry++)
        if (entry->object == object) {
            chain.erase_after(before);
            return;
        }
}

void PhHashTable::clear()
{
    for (Chain& chain : buckets_)
        chain.clear();
}

} // namespace tavo
