#include "topology/Resolver.h"

#include "model/PhConversion.h"
#include "model/PhList.h"
#include "model/PhType.h"
#include "topology/PhEntity.h"
#include "topology/PhGroup.h"
#include "topology/PhRoot.h"

#include <type_traits>

namespace tavo {

void Resolver::resolve(const PhRoot& root)
{
    for (PhGroup* group : each<PhGroup>(root.groups()))
        resolve(*group);
}

namespace {

void prepare(const PhEntity& entity, const PhGroup& group)
{
    const PhTypeFields* type = entity.typeFields();
    if (const PhString* name = type ? type->conversion.text() : nullptr)
        group.prepareConversion(*name);
}

} // namespace

void Resolver::resolve(const PhGroup& group)
{
    for (PhGroup* child : each<PhGroup>(group.groups()))
        resolve(*child);
    // The names that will be looked up are prepared some entities earlier.
    constexpr int ahead = 8;
    const PhList* entities = group.entities();
    const PhListNode* next = entities ? entities->entryAt(ahead) : nullptr;
    for (PhEntity* entity : each<PhEntity>(entities)) {
        if (next) {
            prepare(static_cast<const PhEntity&>(*next->object()), group);
            next = next->next();
        }
        resolve(*entity, group);
    }
}

namespace {

bool isOpen(const PhObject& object) { return object.isUnresolved() && !object.isReported(); }

/// A name without characters is nobody's.
template <class Object>
Object* lookUp(const PhGroup& group, Object* (PhGroup::*find)(const PhString&) const,
               const PhString& name)
{
    return name.length() > 0 ? (group.*find)(name) : nullptr;
}

} // namespace

/// What a reference to `held`, an object or null, leads to once it is resolved. `find` looks a name
/// up and returns null for what may not stand in the reference; `store` puts an object in the
/// placeholder's place and so destroys the placeholder. Null if there is nothing to go on with. A
/// placeholder that is found by its own name is reported and gone on from.
template <class Object, class Find, class Store>
Object* Resolver::resolved(Object* held, bool isOfConversion, Find find, Store store)
{
    if (!held || !isOpen(*held))
        return held;
    Object* found = find(held->name());
    if (found && found != held) {
        store(found);
        return found;
    }
    held->setReported();
    report_({held->name(), std::is_same_v<Object, PhType>, isOfConversion, entity_});
    return found;
}

/// The same for a reference that may be a name alone.
template <class Find>
PhConversion* Resolver::resolved(PhConversionRef& reference, bool isOfConversion, Find find)
{
    const PhString* name = reference.text();
    if (!name)
        return resolved(reference.peek(), isOfConversion, find,
                        [&](PhConversion* found) { reference = found; });
    if (reference.isMarked())
        return nullptr;
    PhConversion* found = find(*name);
    if (found) {
        reference = found;
    } else {
        reference.mark();
        report_({*name, false, isOfConversion, entity_});
    }
    return found;
}

void Resolver::resolve(PhEntity& entity, const PhGroup& group)
{
    entity_ = &entity;
    PhTypeFields* fields = nullptr;
    if (PhType* held = entity.peekType()) {
        PhType* next = resolved(
            held, false,
            [&](const PhString& name) { return lookUp(group, &PhGroup::resolveTypeByName, name); },
            [&](PhType* found) { entity.setType(found); });
        fields = next ? &next->fields() : nullptr;
    } else {
        fields = entity.typeFields();
    }
    if (fields)
        resolve(*fields, group);
}

void Resolver::resolve(PhType& type, const PhGroup& group) { resolve(type.fields(), group); }

void Resolver::resolve(PhTypeFields& type, const PhGroup& group)
{
    PhConversion* next = resolved(type.conversion, false, [&](const PhString& name) {
        return lookUp(group, &PhGroup::resolveConversion, name);
    });
    if (next)
        resolve(*next, group);
}

void Resolver::resolve(PhConversion& conversion, const PhGroup& group)
{
    PhConversion* owner = &conversion;
    // What hangs on a conversion is settled by the first walk that comes by, so that many entities
    // with one long chain of conversions after them don't make a walk each.
    while (owner && owner->conversionRef() && walks_.emplace(owner, &conversion).second) {
        // A reference that would close a circle stays a placeholder: the conversions would keep one
        // another alive for good.
        owner = resolved(owner->conversionRef(), true, [&](const PhString& name) {
            PhConversion* found = lookUp(group, &PhGroup::resolveConversion, name);
            return leadsBack(found, &conversion) ? nullptr : found;
        });
    }
}

/// True if the conversions from `from` on lead to one that the walk from `start` has come by.
bool Resolver::leadsBack(const PhConversion* from, const PhConversion* start) const
{
    // A circle that the model's builder made is noticed by coming back to the mark, which moves
    // on at steps that double.
    const PhConversion* mark = nullptr;
    std::size_t steps = 0;
    for (std::size_t lap = 1; from && from != mark; from = from->conversionRef().peek()) {
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
    return [root](const Resolver::Unresolved& reference) {
        if (root->logger())
            root->logger()->warning(reference.isType ? "Type '%s' unresolved.\n"
                                                     : "Conversion '%s' unresolved.\n",
                                    reference.name.isNull() ? "" : reference.name.cStr());
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
