#pragma once

#include "model/PhList.h"

#include <cstdint>
#include <memory>
#include <utility>

namespace tavo {

// How the classes of the model hold what they own. The fields of a record are released from the
// last to the first. That order can be seen by the objects that die, so it stays as it is: a record
// lists its fields in it, backwards.

/// A reference that owns a count of its object, or null. As a field it is what a setter assigns to.
/// On the stack it carries a fresh object from its making to its being stored: an object that
/// nobody stored by then dies with the scope, on the way of an exception too.
template <class Object> class PhRef
{
public:
    PhRef() = default;
    explicit PhRef(Object* object) : object_(object) { PhObject::link(object); }
    ~PhRef() { PhObject::unlink(object_); }
    PhRef(const PhRef&) = delete;
    PhRef& operator=(const PhRef&) = delete;

    PhRef& operator=(Object* object)
    {
        // The new count comes first: `object` may be what the field holds, or be held by that
        // alone.
        PhObject::link(object);
        PhObject::unlink(std::exchange(object_, object));
        return *this;
    }

    operator Object*() const { return object_; }
    Object* get() const { return object_; }
    Object* operator->() const { return object_; }
    Object& operator*() const { return *object_; }
    /// Gives the object away with its count.
    Object* release() { return std::exchange(object_, nullptr); }

private:
    Object* object_ = nullptr;
};

/// A list that comes to life with its first element.
class PhLazyList
{
public:
    /// Null as long as there is no list.
    operator PhList*() const { return list_.get(); }
    PhList* operator->() const { return list_.get(); }
    /// The list, made if it is missing.
    PhList* made()
    {
        if (!list_)
            list_ = std::make_unique<PhList>();
        return list_.get();
    }
    /// Puts a list in the place of one that is missing.
    void adopt(std::unique_ptr<PhList> list) { list_ = std::move(list); }
    void append(PhObject* object)
    {
        const PhRef<PhObject> hold(object);
        made()->append(object);
    }
    /// Takes the first object with this id out, if there is one.
    void remove(std::uint32_t id)
    {
        if (list_)
            list_->removeById(id);
    }

private:
    std::unique_ptr<PhList> list_;
};

} // namespace tavo
