#include "model/PhList.h"

#include "model/PhHashTable.h"
#include "model/PhNameIndex.h"

#include <cstdlib>
#include <new>

namespace tavo {

namespace {

/// A walk over no more than this beats an index.
constexpr std::uint32_t shortList = 16;

} // namespace

PhList::PhList() = default;

PhList::~PhList() { clear(); }

void PhList::clear()
{
    clearHash();
    nameIndex_.reset();
    while (PhListNode* node = head_) {
        PhObject::unlink(node->object());
        --count_;
        join(nullptr, node->next());
        delete node;
    }
}

void PhList::append(PhObject* object) { insert(object, tail_, nullptr); }

void PhList::prepend(PhObject* object) { insert(object, nullptr, head_); }

/// Links a new node between the neighbours `before` and `after`, of which either may be missing.
void PhList::insert(PhObject* object, PhListNode* before, PhListNode* after)
{
    if (!object)
        return;
    object->incRef();
    PhListNode* node = nullptr;
    try {
        node = new PhListNode;
        addToHash(object);
    } catch (...) {
        delete node;
        PhObject::unlink(object);
        throw;
    }
    if (after)
        nameIndex_.reset();
    else
        indexName(object);
    node->setObject(object);
    join(before, node);
    join(node, after);
    ++count_;
}

/// Makes two nodes neighbours. A missing left one makes `right` the head, a missing right one makes
/// `left` the tail.
void PhList::join(PhListNode* left, PhListNode* right)
{
    if (left)
        left->setNext(right);
    else
        head_ = right;
    if (right)
        right->setPrev(left);
    else
        tail_ = left;
}

/// Enters a new last object in the index of names, if there is one. Without memory for it the index
/// goes: the next look-up makes another.
void PhList::indexName(PhObject* object) noexcept
{
    if (!nameIndex_)
        return;
    try {
        nameIndex_->append(object);
    } catch (...) {
        nameIndex_.reset();
    }
}

PhObject* PhList::at(int i) const
{
    PhListNode* node = entryAt(i);
    return node ? node->object() : nullptr;
}

PhListNode* PhList::entryAt(int i) const
{
    if (i < 0)
        return nullptr;
    PhListNode* node = head_;
    while (node && i-- > 0)
        node = node->next();
    return node;
}

template <class Matches> PhListNode* PhList::findNode(Matches matches) const
{
    PhListNode* node = head_;
    while (node && !matches(*node->object()))
        node = node->next();
    return node;
}

PhListNode* PhList::findNodeByName(const PhString& name) const
{
    return findNode([&](const PhObject& object) { return sameText(object.name(), name); });
}

PhListNode* PhList::findNodeByExternalId(const PhString& externalId) const
{
    return findNode(
        [&](const PhObject& object) { return sameText(object.peekExternalId(), externalId); });
}

PhListNode* PhList::findNodeById(std::uint32_t id) const
{
    return findNode([&](const PhObject& object) { return object.id() == id; });
}

namespace {

PhObject* objectOf(const PhListNode* node) { return node ? node->object() : nullptr; }

} // namespace

PhObject* PhList::findByName(const PhString& name) const
{
    if (index_)
        return index_->find(name);
    if (count_ <= shortList || name.isNull())
        return objectOf(findNodeByName(name));
    return nameIndex().find(name);
}

/// The index of names, made anew if there is none or it can't be relied upon.
PhNameIndex& PhList::nameIndex() const
{
    if (!nameIndex_ || nameIndex_->isStale()) {
        nameIndex_.reset();
        nameIndex_ = std::make_unique<PhNameIndex>(head_, count_);
    }
    return *nameIndex_;
}

void PhList::prepareName(const PhString& name) const
{
    if (nameIndex_)
        nameIndex_->prepare(name);
}

PhObject* PhList::findByExternalId(const PhString& externalId) const
{
    return objectOf(findNodeByExternalId(externalId));
}

PhObject* PhList::findById(std::uint32_t id) const { return objectOf(findNodeById(id)); }

void PhList::remove(PhListNode* node)
{
    if (!node)
        return;
    removeFromHash(node->object());
    nameIndex_.reset();
    PhObject::unlink(node->object());
    --count_;
    join(node->prev(), node->next());
    delete node;
}

void PhList::removeObject(PhObject* object)
{
    remove(findNode([&](const PhObject& candidate) { return &candidate == object; }));
}

PhList* PhList::duplicate() const
{
    auto copy = std::make_unique<PhList>();
    for (PhListNode* node = head_; node; node = node->next())
        copy->append(node->object());
    return copy.release();
}

void PhList::sort(Comparison comparison)
{
    if (count_ < 2)
        return;
    const std::unique_ptr<PhObject*[]> objects(new (std::nothrow) PhObject*[count_]);
    if (!objects)
        return;
    nameIndex_.reset();
    const bool hadIndex = index_ != nullptr;
    clearHash();
    std::size_t i = 0;
    for (PhListNode* node = head_; node; node = node->next())
        objects[i++] = node->object();
    std::qsort(objects.get(), count_, sizeof(PhObject*), comparison);
    i = 0;
    for (PhListNode* node = head_; node; node = node->next())
        node->setObject(objects[i++]);
    if (hadIndex)
        buildHash();
}

void PhList::buildHash()
{
    clearHash();
    // Room for a hundred more than there are now: the bucket count never changes.
    auto index = std::make_unique<PhHashTable>(count_ + 100);
    for (PhListNode* node = head_; node; node = node->next())
        index->add(node->object()->name(), node->object());
    index_ = std::move(index);
}

void PhList::clearHash() { index_.reset(); }

void PhList::addToHash(PhObject* object)
{
    if (index_ && object)
        index_->add(object->name(), object);
}

void PhList::removeFromHash(PhObject* object)
{
    if (index_ && object)
        index_->remove(object->name(), object);
}

PhObject* PhListCursor::moveTo(PhListNode* target)
{
    node_ = target;
    return objectOf(node_);
}

PhObject* PhListCursor::first() { return moveTo(list_ ? list_->head_ : node_); }

PhObject* PhListCursor::last() { return moveTo(list_ ? list_->tail_ : node_); }

PhObject* PhListCursor::next() { return moveTo(node_ ? node_->next() : nullptr); }

PhObject* PhListCursor::prev() { return moveTo(node_ ? node_->prev() : nullptr); }

PhObject* PhListCursor::current() const { return objectOf(node_); }

PhObject* PhListCursor::remove()
{
    if (!list_ || !node_)
        return nullptr;
    PhListNode* following = node_->next();
    list_->remove(node_);
    return moveTo(following);
}

} // namespace tavo
