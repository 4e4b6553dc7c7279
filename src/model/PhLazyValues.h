#pragma once

#include "model/PhValue.h"

#include <cstddef>
#include <cstdint>

namespace tavo {

/// What a field for a value holds: a plain number, an object, or nothing.
struct PhFieldContent
{
    enum Kind : std::uint8_t
    {
        Nothing,
        Integer,
        Double,
        Object
    };
    union Content
    {
        std::int32_t integer; ///< Of an unsigned number, its bits.
        double real;
        PhValue* object; ///< Not null.
    };

    Kind kind;
    Content content;
};

/// The fields of an object that hold a `PhValue` each, or nothing. A number that a file gives
/// stands there as it is, in eight bytes and one for its kind, until somebody asks for the value:
/// hardly anybody does. From then on the field owns a count of the object.
template <std::size_t count> class PhLazyValues
{
public:
    PhLazyValues() = default;
    /// Gives the objects back, from the first field to the last.
    ~PhLazyValues()
    {
        for (std::size_t field = 0; field < count; ++field)
            clear(field);
    }
    PhLazyValues(const PhLazyValues&) = delete;
    PhLazyValues& operator=(const PhLazyValues&) = delete;

    /// A look that makes no object.
    PhFieldContent peek(std::size_t field) const { return {kinds_[field], contents_[field]}; }

    /// The value, made if there is a plain number, which can run out of memory; null for nothing.
    PhValue* value(std::size_t field) const
    {
        if (kinds_[field] != PhFieldContent::Object)
            make(field);
        return kinds_[field] == PhFieldContent::Object ? contents_[field].object : nullptr;
    }

    /// Each of them replaces what the field held. Null clears it.
    void set(std::size_t field, PhValue* value)
    {
        // The new count comes first: `value` may be what the field holds, or be held by that alone.
        PhObject::link(value);
        clear(field);
        if (value)
            put(field, PhFieldContent::Object, {.object = value});
    }
    void set(std::size_t field, std::int32_t number)
    {
        clear(field);
        put(field, PhFieldContent::Integer, {.integer = number});
    }
    void set(std::size_t field, double number)
    {
        clear(field);
        put(field, PhFieldContent::Double, {.real = number});
    }

    void clear(std::size_t field)
    {
        const bool wasObject = kinds_[field] == PhFieldContent::Object;
        kinds_[field] = PhFieldContent::Nothing;
        if (wasObject)
            PhObject::unlink(contents_[field].object);
    }

    /// Moves the content of a field of `other` here, in the place of what was held.
    template <std::size_t otherCount>
    void take(std::size_t field, PhLazyValues<otherCount>& other, std::size_t otherField)
    {
        const PhFieldContent taken = other.peek(otherField);
        clear(field);
        put(field, taken.kind, taken.content);
        other.forget(otherField);
    }

private:
    template <std::size_t otherCount> friend class PhLazyValues;

    void put(std::size_t field, PhFieldContent::Kind kind, PhFieldContent::Content content) const
    {
        contents_[field] = content;
        kinds_[field] = kind;
    }
    void forget(std::size_t field) { kinds_[field] = PhFieldContent::Nothing; }

    void make(std::size_t field) const
    {
        PhValue* value = nullptr;
        if (kinds_[field] == PhFieldContent::Integer)
            value = new PhValue(contents_[field].integer);
        else if (kinds_[field] == PhFieldContent::Double)
            value = new PhValue(contents_[field].real);
        else
            return;
        value->incRef();
        put(field, PhFieldContent::Object, {.object = value});
    }

    /// Mutable, since a look at a value makes it. The kinds stand last: what follows in the object
    /// takes the room that is left after them.
    mutable PhFieldContent::Content contents_[count] = {};
    mutable PhFieldContent::Kind kinds_[count] = {};
};

} // namespace tavo
