#include "model/PhHashTable.h"

#include <algorithm>

namespace tavo {

PhHashTable::PhHashTable(std::uint32_t bucketCount) : buckets_(std::max(bucketCount, 111U)) {}

PhHashTable::~PhHashTable() { clear(); }

void PhHashTable::add(const PhString& key, PhObject* object)
{
    const std::uint32_t hash = key.hash();
    PhHashEntry*& head = bucketOf(hash);
    head = new PhHashEntry{key, hash, object, head};
}

PhObject* PhHashTable::find(const PhString& key) const
{
    const std::uint32_t hash = key.hash();
    for (const PhHashEntry* entry = bucketOf(hash); entry; entry = entry->next)
        if (entry->hash == hash && sameText(entry->key, key))
            return entry->object;
    return nullptr;
}

void PhHashTable::remove(const PhString& key, PhObject* object)
{
    PhHashEntry** link = &bucketOf(key.hash());
    while (*link && (*link)->object != object)
        link = &(*link)->next;
    if (PhHashEntry* entry = *link) {
        *link = entry->next;
        delete entry;
    }
}

void PhHashTable::clear()
{
    for (PhHashEntry*& head : buckets_)
        while (PhHashEntry* entry = head) {
            head = entry->next;
            delete entry;
        }
}

} // namespace tavo
