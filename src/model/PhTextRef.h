#pragma once

#include "model/PhObject.h"

#include <cstdint>
#include <memory>
#include <utility>

namespace tavo {

/// A reference to an object of which a file says no more than a text: the name of a conversion, the
/// label of a unit. It holds the text until somebody asks for the object, and from then on a count
/// of that.
template <class Object> class PhTextRef
{
public:
    PhTextRef() : object_(nullptr) {}
    ~PhTextRef() { clear(); }
    PhTextRef(const PhTextRef&) = delete;
    PhTextRef& operator=(const PhTextRef&) = delete;

    /// False if there is neither an object nor a text.
    explicit operator bool() const { return kind_ != Nothing; }
    /// The object; null as long as there is none.
    Object* peek() const { return kind_ == Counted ? static_cast<Object*>(object_) : nullptr; }
    /// The text; null if there is none or an object has taken its place.
    const PhString* text() const { return isText() ? &text_ : nullptr; }
    /// A mark of the text, which goes with it.
    bool isMarked() const { return kind_ == MarkedText; }
    void mark() { kind_ = MarkedText; }

    /// The object, which `make(text, isMarked)` makes of a text; null if there is neither.
    template <class Make> Object* made(Make make) const
    {
        if (isText()) {
            Object* object = make(text_, isMarked());
            object->incRef();
            text_.~PhString();
            hold(object);
        }
        return peek();
    }

    /// Replace what was held. A null object leaves nothing.
    PhTextRef& operator=(Object* object)
    {
        // The new count comes first: `object` may be what is held, or be held by that alone.
        PhObject::link(object);
        clear();
        if (object)
            hold(object);
        return *this;
    }
    void setText(const PhString& text)
    {
        PhString copy(text);
        clear();
        holdText(std::move(copy), Text);
    }
    /// Moves what `other` holds here.
    void take(PhTextRef& other)
    {
        clear();
        if (other.isText()) {
            holdText(std::move(other.text_), other.kind_);
            other.clear();
        } else if (Object* object = other.release()) {
            hold(object);
        }
    }

    /// Gives the object away with its count, if there is one.
    Object* release()
    {
        Object* object = peek();
        if (object)
            kind_ = Nothing;
        return object;
    }

    void clear()
    {
        if (isText())
            text_.~PhString();
        if (const Kind kind = std::exchange(kind_, Nothing); kind == Counted)
            PhObject::unlink(object_);
    }

private:
    enum Kind : std::uint8_t
    {
        Nothing,
        Counted,
        Text,
        MarkedText
    };

    bool isText() const { return kind_ >= Text; }
    void hold(PhObject* object) const
    {
        object_ = object;
        kind_ = Counted;
    }
    void holdText(PhString&& text, Kind kind)
    {
        std::construct_at(&text_, std::move(text));
        kind_ = kind;
    }

    /// Mutable, since a look at the object makes it. The kind stands last: what follows in the
    /// object takes the room that is left after it.
    union
    {
        mutable PhObject* object_;
        mutable PhString text_;
    };
    mutable Kind kind_ = Nothing;
};

} // namespace tavo
