#pragma once

#include "model/PhList.h"
#include "model/PhValue.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>
#include <utility>

namespace tavo {

/// Keeps account of the order in which objects are destroyed.
class Deaths
{
public:
    /// The class of which an object is made for a field of class `Field`.
    template <class Field>
    using Made = std::conditional_t<std::is_same_v<Field, PhObject>, PhValue, Field>;

    /// A fresh object, named `label`, that enters this label when it is destroyed.
    template <class Field = PhObject> Made<Field>* mortal(const std::string& label)
    {
        auto* object = new Mortal<Made<Field>>(labels_, label);
        object->setName(label.c_str());
        return object;
    }

    /// The labels of the objects that were destroyed since the last call, divided by blanks.
    std::string take() { return std::exchange(labels_, {}); }

private:
    template <class Base> class Mortal : public Base
    {
    public:
        Mortal(std::string& labels, const std::string& label) : labels_(labels), label_(label) {}
        ~Mortal() override { labels_ += (labels_.empty() ? "" : " ") + label_; }

    private:
        std::string& labels_;
        std::string label_;
    };

    std::string labels_;
};

/// A fresh object whose fields are filled with mortal ones, to see in which order it releases them.
template <class Object> class Holder
{
public:
    explicit Holder(int classId) { EXPECT_EQ(object_->classId(), classId); }

    /// Stores an object in a reference field.
    template <class Field>
    Holder& ref(void (Object::*set)(Field*), Field* (Object::*get)() const, const char* label)
    {
        EXPECT_EQ(((*object_).*get)(), nullptr) << label;
        Field* field = deaths_.mortal<Field>(label);
        ((*object_).*set)(field);
        EXPECT_EQ(((*object_).*get)(), field) << label;
        EXPECT_EQ(field->refCount(), 1) << label;
        return *this;
    }

    /// Appends two objects to a list, which bear the label with 1 and 2 behind it.
    template <class Element>
    Holder& list(void (Object::*append)(Element*), PhList* (Object::*get)() const,
                 const std::string& label)
    {
        EXPECT_EQ(((*object_).*get)(), nullptr) << label;
        Element* first = deaths_.mortal<Element>(label + "1");
        Element* second = deaths_.mortal<Element>(label + "2");
        ((*object_).*append)(first);
        ((*object_).*append)(second);
        EXPECT_EQ(((*object_).*get)()->count(), 2U) << label;
        EXPECT_EQ(((*object_).*get)()->first(), first) << label;
        EXPECT_EQ(((*object_).*get)()->last(), second) << label;
        return *this;
    }

    Object* operator->() const { return object_.get(); }
    Deaths& deaths() { return deaths_; }

    /// Destroys the object and gives the labels of what died with it.
    std::string releaseOrder()
    {
        object_.reset();
        return deaths_.take();
    }

private:
    Deaths deaths_;
    std::unique_ptr<Object> object_ = std::make_unique<Object>();
};

} // namespace tavo
