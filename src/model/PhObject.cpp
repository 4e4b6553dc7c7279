#include "model/PhObject.h"

namespace tavo {

namespace {

/// The creation number of the next object. Never reset, so that ids stay unique in the process.
std::uint32_t nextId = 0;

} // namespace

struct PhObjectPrivate
{
    std::uint32_t flags = 0;
    std::int32_t count = 0; ///< Counts held by lists and reference fields.
    std::uint32_t id;       ///< Creation number.
    PhString externalId;
    PhString name;
    PhString longName;
    PhString description;
    std::int32_t classId;
};

PhObject::PhObject(std::int32_t classId) : d(new PhObjectPrivate)
{
    d->id = nextId++;
    d->classId = classId;
}

PhObject::~PhObject() = default;

std::uint32_t PhObject::id() const { return d->id; }

std::int32_t PhObject::classId() const { return d->classId; }

const PhString& PhObject::name() const { return d->name; }

const PhString& PhObject::longName() const { return d->longName; }

const PhString& PhObject::description() const { return d->description; }

const PhString& PhObject::externalId() const { return d->externalId; }

void PhObject::setName(const PhString& name) { d->name = name; }

void PhObject::setLongName(const PhString& longName) { d->longName = longName; }

void PhObject::setDescription(const PhString& description) { d->description = description; }

void PhObject::setExternalId(const PhString& externalId) { d->externalId = externalId; }

int PhObject::refCount() const { return d->count; }

void PhObject::incRef() { ++d->count; }

int PhObject::decRef()
{
    if (d->count > 0)
        --d->count;
    return d->count;
}

void PhObject::link(PhObject* object)
{
    if (object)
        object->incRef();
}

void PhObject::unlink(PhObject* object)
{
    if (object && object->decRef() == 0)
        delete object;
}

bool PhObject::isFlag(std::uint32_t mask) const { return (d->flags & mask) != 0; }

void PhObject::setFlag(std::uint32_t mask) { d->flags |= mask; }

void PhObject::clearFlag(std::uint32_t mask) { d->flags &= ~mask; }

} // namespace tavo
