#include "topology/Resolver.h"

#include "model/PhConversion.h"
#include "model/PhList.h"
#include "model/PhType.h"
#include "topology/PhEntity.h"
#include "topology/PhGroup.h"
#include "topology/PhRoot.h"

namespace tavo {

void Resolver::resolve(const PhRoot& root)
{
    for (PhGroup* group : each<PhGroup>(root.groups()))
        resolve(*group);
}

void Resolver::resolve(const PhGroup& group)
{
    for (PhGroup* child : each<PhGroup>(group.groups()))
        resolve(*child);
    for (PhEntity* entity : each<PhEntity>(group.entities()))
        resolve(*entity, group);
}

/// What a reference leads to once it is resolved. `find` looks a name up and gives null for what
/// may not stand in the reference; `store` puts an object in the placeholder's place and so
/// destroys the placeholder. Null if there is nothing to go on with. A placeholder that is found by
/// its own name is reported and gone on from.
template <class Object, class Find, class Store>
Object* Resolver::resolved(Object* held, Find find, Store store)
{
    if (!held || !held->isUnresolved() || held->isReported())
        return held;
    Object* found = held->peekName().length() > 0 ? find(held->peekName()) : nullptr;
    if (found && found != held) {
        store(found);
        return found;
    }
    held->setReported();
    report_(*held, entity_);
    return found;
}

void Resolver::resolve(PhEntity& entity, const PhGroup& group)
{
    entity_ = &entity;
    PhType* next = resolved(
        entity.type(), [&](const PhString& name) { return group.resolveTypeByName(name); },
        [&](PhType* found) { entity.setType(found); });
    if (next)
        resolve(*next, group);
}

void Resolver::resolve(PhType& type, const PhGroup& group)
{
    PhConversion* next = resolved(
        type.conversion(), [&](const PhString& name) { return group.resolveConversion(name); },
        [&](PhConversion* found) { type.setConversion(found); });
    if (next)
        resolve(*next, group);
}

void Resolver::resolve(PhConversion& conversion, const PhGroup& group)
{
    PhConversion* owner = &conversion;
    // What hangs on a conversion is settled by the first walk that comes by, so that many entities
    // with one long chain of conversions after them don't make a walk each.
    while (owner && owner->conversion() && walks_.emplace(owner, &conversion).second) {
        owner = resolved(
            owner->conversion(),
            // A reference that would close a circle stays a placeholder: the conversions would keep
            // one another alive for good.
            [&](const PhString& name) {
                PhConversion* found = group.resolveConversion(name);
                return leadsBack(found, &conversion) ? nullptr : found;
            },
            [&](PhConversion* found) { owner->setConversion(found); });
    }
}

/// True if the conversions from `from` on lead to one that the walk from `start` has come by.
bool Resolver::leadsBack(const PhConversion* from, const PhConversion* start) const
{
    // A circle that the model's builder made is noticed by coming back to the mark, which moves
    // on at steps that double.
    const PhConversion* mark = nullptr;
    std::size_t steps = 0;
    for (std::size_t lap = 1; from && from != mark; from = from->conversion()) {
        const auto walk = walks_.find(from);
        if (walk != walks_.end())
            return walk->second == start;
        if (++steps == lap) {
            mark = from;
            lap *= 2;
            steps = 0;
        }
    }
    return false;
}

namespace {

/// Warns the root's logger, if there is one.
Resolver::Report warningsOf(const PhRoot* root)
{
    return [root](const PhObject& placeholder, const PhEntity*) {
        if (!root->logger())
            return;
        const bool isType = placeholder.classId() == PhClassType;
        const PhString& name = placeholder.peekName();
        root->logger()->warning(isType ? "Type '%s' unresolved.\n"
                                       : "Conversion '%s' unresolved.\n",
                                name.isNull() ? "" : name.cStr());
    };
}

} // namespace

void PhRoot::resolve() { Resolver(warningsOf(this)).resolve(*this); }

void PhGroup::resolve(PhRoot* root) { Resolver(warningsOf(root)).resolve(*this); }

void PhEntity::resolve(PhRoot* root, PhGroup* group)
{
    Resolver(warningsOf(root)).resolve(*this, *group);
}

void PhType::resolve(PhRoot* root, PhGroup* group)
{
    Resolver(warningsOf(root)).resolve(*this, *group);
}

void PhConversion::resolve(PhRoot* root, PhGroup* group)
{
    Resolver(warningsOf(root)).resolve(*this, *group);
}

} // namespace tavo
