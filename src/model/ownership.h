#pragma once

#include "model/PhList.h"

#include <cstdint>

namespace tavo {

/// Holds one count of an object for the length of a scope. It carries a fresh object from its
/// making to its being stored: an object that nobody stored by then dies with the scope, on the way
/// of an exception too.
template <class Object> class PhHold
{
public:
    explicit PhHold(Object* object) : object_(object) { PhObject::link(object); }
    ~PhHold() { PhObject::unlink(object_); }
    PhHold(const PhHold&) = delete;
    PhHold& operator=(const PhHold&) = delete;

    Object* get() const { return object_; }
    Object* operator->() const { return object_; }
    Object& operator*() const { return *object_; }

private:
    Object* object_;
};

/// Stores `value`, which may be null, in a reference field that owns a count: the body of every
/// setter of such a field. Releasing a field is storing null in it.
template <class Object> void setRef(Object*& field, Object* value)
{
    // The new count comes first: `value` may be what the field holds, or be held by that alone.
    PhObject::link(value);
    Object* old = field;
    field = value;
    PhObject::unlink(old);
}

/// The list of a field, made if it is missing: the body of every create operation.
inline PhList* createList(PhList*& list)
{
    if (!list)
        list = new PhList;
    return list;
}

/// Appends to a list that is made at its first element: the body of every append operation.
inline void appendTo(PhList*& list, PhObject* object)
{
    const PhHold<PhObject> hold(object);
    createList(list)->append(object);
}

/// Removes the first object with this id from a list that may be missing: the body of every removal
/// by id.
inline void removeFrom(PhList* list, std::uint32_t id)
{
    if (list)
        list->removeById(id);
}

/// Clears and deletes a list that may be missing: what each destructor does with its lists.
inline void releaseList(PhList*& list)
{
    delete list;
    list = nullptr;
}

} // namespace tavo
