#pragma once

#include "model/ownership.h"

namespace tavo {

/// Whether both objects are there and have the same external id, which is what makes two objects of
/// a network the same one. Two objects without an external id count as the same.
inline bool sameExternalId(const PhObject* a, const PhObject* b)
{
    return a && b && sameText(a->peekExternalId(), b->peekExternalId());
}

/// The mapping from `source` to `target` in a list that is made at its first element: the body of
/// the find-or-create operation of each level of mappings.
///
/// Ends are compared by external id. A null end matches nothing, so with one a fresh mapping, that
/// has null at this end, is appended at each call. Never null; the list holds the only count.
template <class Mapping>
Mapping* findOrCreateMapping(PhLazyList& mappings, PhObject* source, PhObject* target)
{
    for (Mapping* known : each<Mapping>(mappings))
        if (sameExternalId(known->source(), source) && sameExternalId(known->target(), target))
            return known;

    auto* fresh = new Mapping;
    fresh->setSource(source);
    fresh->setTarget(target);
    mappings.append(fresh);
    return fresh;
}

} // namespace tavo
