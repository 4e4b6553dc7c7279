#pragma once

#include "model/PhList.h"

namespace tavo {

class PhGroup;

/// First element of this name in a list that may be missing; null if there is none.
template <class Element> Element* findByName(const PhList* list, const PhString& name)
{
    return list ? static_cast<Element*>(list->findByName(name)) : nullptr;
}

/// The same by external id.
template <class Element> Element* findByExternalId(const PhList* list, const PhString& externalId)
{
    return list ? static_cast<Element*>(list->findByExternalId(externalId)) : nullptr;
}

/// Whether both objects are there and have the same external id, which is what makes two objects of
/// a network the same one. Two objects without an external id count as the same.
inline bool sameExternalId(const PhObject* a, const PhObject* b)
{
    return a && b && sameText(a->externalId(), b->externalId());
}

/// Searches a list of groups, which may be missing, and all groups below, depth first and each
/// group before its children. `text` is the text slot that has to match `wanted`. Null if none
/// does.
PhGroup* findGroup(const PhList* groups, const PhString& (PhObject::*text)() const,
                   const PhString& wanted);

} // namespace tavo
