#pragma once

#include "model/PhObject.h"

#include <cstdint>
#include <memory>

namespace tavo {

class PhHashTable;
class PhNameIndex;

/// One place in a list. It owns one count of its object, which is never null inside a list. The
/// setters are for a list's own use.
class PhListNode : public Pooled
{
public:
    PhListNode* next() const { return next_; }
    PhListNode* prev() const { return prev_; }
    PhObject* object() const { return object_; }
    void setNext(PhListNode* node) { next_ = node; }
    void setPrev(PhListNode* node) { prev_ = node; }
    void setObject(PhObject* object) { object_ = object; }

private:
    PhListNode* next_ = nullptr;
    PhListNode* prev_ = nullptr;
    PhObject* object_ = nullptr;
};

/// Ordered list that owns one count of each object in it. Model classes hold a `PhList*` that stays
/// null until the first element arrives, so no list and an empty list are both normal.
///
/// Nothing refuses a name or an object twice. Searches give null where nothing matches, else the
/// first match in list order. Between `buildHash` and `clearHash`, `findByName` gives the object
/// that was added last.
class PhList : public Pooled
{
public:
    PhList();
    ~PhList();
    PhList(const PhList&) = delete;
    PhList& operator=(const PhList&) = delete;

    /// Releases all objects from the head on. The list stays usable.
    void clear();

    /// Adds at the tail and takes a count; null is ignored. Should memory run out, an object that
    /// nobody else holds is destroyed before the exception leaves, so that none is lost.
    void append(PhObject* object);
    /// The same at the head.
    void prepend(PhObject* object);

    std::uint32_t count() const { return count_; }
    PhObject* first() const { return head_ ? head_->object() : nullptr; }
    PhObject* last() const { return tail_ ? tail_->object() : nullptr; }
    /// The object `i` steps from the head; null if the list ends before or `i` is negative.
    PhObject* at(int i) const;
    PhListNode* entryAt(int i) const;

    /// Two null names match; a null name matches nothing else. `findByName` alone uses an index:
    /// the one that `buildHash` makes, as long as there is one, else one of its own if the list is
    /// long, which finds what a walk from the head would find.
    PhObject* findByName(const PhString& name) const;
    /// Begins to fetch what `findByName` needs from the memory, if it will use an index, while the
    /// caller does something else.
    void prepareName(const PhString& name) const;
    PhObject* findByExternalId(const PhString& externalId) const;
    PhObject* findById(std::uint32_t id) const;
    PhListNode* findNodeByName(const PhString& name) const;
    PhListNode* findNodeByExternalId(const PhString& externalId) const;
    PhListNode* findNodeById(std::uint32_t id) const;

    /// Takes a node of this list out and releases its object; null is ignored.
    void remove(PhListNode* node);
    void removeByName(const PhString& name) { remove(findNodeByName(name)); }
    void removeById(std::uint32_t id) { remove(findNodeById(id)); }
    void removeObject(PhObject* object);

    /// A new list of the same objects in the same order, without an index. The caller owns it.
    PhList* duplicate() const;

    /// Gets pointers to two `PhObject*` and tells their order as `qsort` wants it.
    using Comparison = int (*)(const void*, const void*);
    /// Moves the objects into the order that `comparison` gives; equal ones in no defined order.
    /// Does nothing if there is no memory for it.
    void sort(Comparison comparison);

    /// Builds an index of the names for `findByName`. From then on the name of an object in this
    /// list must not change until `clearHash`.
    void buildHash();
    void clearHash();
    /// Add to or take from that index, if there is one.
    void addToHash(PhObject* object);
    void removeFromHash(PhObject* object);

private:
    friend class PhListCursor;

    void insert(PhObject* object, PhListNode* before, PhListNode* after);
    void join(PhListNode* left, PhListNode* right);
    void indexName(PhObject* object) noexcept;
    PhNameIndex& nameIndex() const;
    template <class Matches> PhListNode* findNode(Matches matches) const;

    PhListNode* head_ = nullptr;
    PhListNode* tail_ = nullptr;
    std::uint32_t count_ = 0;
    std::unique_ptr<PhHashTable> index_; ///< Only between `buildHash` and `clearHash`.
    /// Of a long list in which names are looked up; dropped by what doesn't add at the tail.
    mutable std::unique_ptr<PhNameIndex> nameIndex_;
};

/// Walks a list. It lives on the stack, owns nothing, and takes a null list too. While it walks,
/// the list may be changed through `remove` of this cursor only.
class PhListCursor
{
public:
    explicit PhListCursor(PhList* list) : list_(list) {}

    /// Go to the head or the tail; null if the list is empty. Without a list nothing moves.
    PhObject* first();
    PhObject* last();
    /// Go one step on or back; null past the end and before the first step.
    PhObject* next();
    PhObject* prev();
    PhObject* current() const;
    /// Takes the current object out of the list and goes to the next one.
    PhObject* remove();

private:
    PhObject* moveTo(PhListNode* target);

    PhList* list_;
    PhListNode* node_ = nullptr;
};

/// The objects of a list, which may be null, as a range for a `for` loop:
/// `for (PhEntity* entity : each<PhEntity>(group->entities()))`. The list holds objects of the
/// class named and doesn't change while the loop runs.
template <class Object> class PhListRange
{
public:
    class Iterator
    {
    public:
        explicit Iterator(PhListNode* node) : node_(node) {}
        Object* operator*() const { return static_cast<Object*>(node_->object()); }
        Iterator& operator++()
        {
            node_ = node_->next();
            return *this;
        }
        bool operator!=(const Iterator& other) const { return node_ != other.node_; }

    private:
        PhListNode* node_;
    };

    explicit PhListRange(const PhList* list) : list_(list) {}
    Iterator begin() const { return Iterator(list_ ? list_->entryAt(0) : nullptr); }
    Iterator end() const { return Iterator(nullptr); }

private:
    const PhList* list_;
};

/// The number of objects in a list, which may be null.
inline std::uint32_t countOf(const PhList* list) { return list ? list->count() : 0; }

template <class Object> PhListRange<Object> each(const PhList* list)
{
    return PhListRange<Object>(list);
}

/// First element of this name in a list that may be missing; null if there is none.
template <class Element> Element* findByName(const PhList* list, const PhString& name)
{
    return list ? static_cast<Element*>(list->findByName(name)) : nullptr;
}

/// The same by external id.
template <class Element> Element* findByExternalId(const PhList* list, const PhString& externalId)
{
    return list ? static_cast<Element*>(list->findByExternalId(externalId)) : nullptr;
}

} // namespace tavo
