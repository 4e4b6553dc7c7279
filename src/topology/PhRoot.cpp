#include "topology/PhRoot.h"

#include "model/ownership.h"
#include "topology/PhGroup.h"
#include "topology/search.h"

namespace tavo {

struct PhRootPrivate : Pooled
{
    PhLogger* logger = nullptr; ///< Sink of the messages, not owned.
    PhLazyList groups;          ///< Top-level groups.
};

PhRoot::PhRoot() : PhObject(PhClassRoot), d(new PhRootPrivate) {}

PhRoot::~PhRoot() = default;

PhList* PhRoot::groups() const { return d->groups; }

void PhRoot::appendGroup(PhGroup* group) { d->groups.append(group); }

void PhRoot::removeGroup(std::uint32_t id) { d->groups.remove(id); }

PhGroup* PhRoot::findGroupByExternalId(const PhString& externalId) const
{
    return findGroup(d->groups, &PhObject::peekExternalId, externalId);
}

PhGroup* PhRoot::findGroupByName(const PhString& name) const
{
    return findGroup(d->groups, &PhObject::name, name);
}

PhLogger* PhRoot::logger() const { return d->logger; }

void PhRoot::setLogger(PhLogger* logger) { d->logger = logger; }

void PhRoot::log(const char* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    putMessage(d->logger, format, arguments);
    va_end(arguments);
}

} // namespace tavo
