// Name resolution. A description may refer to a conversion ahead of its definition; the reader puts
// a placeholder there, which knows the name and nothing else. Once all is read, this pass replaces
// the placeholders that entities reach. It never fails: a name that isn't found leaves its
// placeholder in place, marked as reported.

#include "model/PhConversion.h"
#include "model/PhList.h"
#include "model/PhType.h"
#include "topology/PhEntity.h"
#include "topology/PhGroup.h"
#include "topology/PhRoot.h"

namespace tavo {

namespace {

/// What a reference leads to once it is resolved. `find` looks a name up and gives null for what
/// may not stand in the reference; `store` puts an object in the placeholder's place and so
/// destroys the placeholder. Null if there is nothing to go on with. A placeholder that is found by
/// its own name is reported and gone on from.
template <class Object, class Find, class Store>
Object* resolved(Object* held, PhRoot* root, const char* warning, Find find, Store store)
{
    if (!held || !held->isUnresolved() || held->isReported())
        return held;
    Object* found = held->name().length() > 0 ? find(held->name()) : nullptr;
    if (found && found != held) {
        store(found);
        return found;
    }
    held->setReported();
    if (root->logger())
        root->logger()->warning(warning, held->name().isNull() ? "" : held->name().cStr());
    return found;
}

constexpr const char* conversionUnresolved = "Conversion '%s' unresolved.\n";
constexpr const char* typeUnresolved = "Type '%s' unresolved.\n";

/// True if the conversions from `from` on lead to one that the walk from `start` has come by.
bool leadsBack(const PhConversion* from, const PhConversion* start, const PhConversionWalks& walks)
{
    for (; from; from = from->conversion()) {
        const auto walk = walks.find(from);
        if (walk != walks.end())
            return walk->second == start;
    }
    return false;
}

} // namespace

void PhRoot::resolve()
{
    conversionWalks().clear();
    for (PhGroup* group : each<PhGroup>(groups()))
        group->resolve(this);
    conversionWalks().clear();
}

void PhGroup::resolve(PhRoot* root)
{
    for (PhGroup* child : each<PhGroup>(groups()))
        child->resolve(root);
    for (PhEntity* entity : each<PhEntity>(entities()))
        entity->resolve(root, this);
}

void PhEntity::resolve(PhRoot* root, PhGroup* group)
{
    PhType* next = resolved(
        type(), root, typeUnresolved,
        [&](const PhString& name) { return group->resolveTypeByName(name); },
        [&](PhType* found) { setType(found); });
    if (next)
        next->resolve(root, group);
}

void PhType::resolve(PhRoot* root, PhGroup* group)
{
    PhConversion* next = resolved(
        conversion(), root, conversionUnresolved,
        [&](const PhString& name) { return group->resolveConversion(name); },
        [&](PhConversion* found) { setConversion(found); });
    if (next)
        next->resolve(root, group);
}

void PhConversion::resolve(PhRoot* root, PhGroup* group)
{
    PhConversionWalks& walks = root->conversionWalks();
    PhConversion* owner = this;
    // What hangs on a conversion is settled by the first walk that comes by, so that many entities
    // with one long chain of conversions behind them don't make a walk each.
    while (owner && owner->conversion() && walks.emplace(owner, this).second) {
        owner = resolved(
            owner->conversion(), root, conversionUnresolved,
            // A reference that would close a circle stays a placeholder: the conversions would keep
            // one another alive for good.
            [&](const PhString& name) {
                PhConversion* found = group->resolveConversion(name);
                return leadsBack(found, this, walks) ? nullptr : found;
            },
            [&](PhConversion* found) { owner->setConversion(found); });
    }
}

} // namespace tavo
