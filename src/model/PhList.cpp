#include "model/PhList.h"

#include "model/PhHashTable.h"

#include <cstdlib>
#include <new>

namespace tavo {

struct PhListBody
{
    PhListNode* head = nullptr;
    PhListNode* tail = nullptr;
    std::uint32_t count = 0;
    std::unique_ptr<PhHashTable> index; ///< Only between `buildHash` and `clearHash`.

    /// Makes two nodes neighbours. A missing left one makes `right` the head, a missing right one
    /// makes `left` the tail.
    void join(PhListNode* left, PhListNode* right)
    {
        if (left)
            left->setNext(right);
        else
            head = right;
        if (right)
            right->setPrev(left);
        else
            tail = left;
    }
};

PhList::PhList() : body_(new PhListBody) {}

PhList::~PhList() { clear(); }

void PhList::clear()
{
    clearHash();
    while (body_->head)
        remove(body_->head);
}

void PhList::append(PhObject* object) { insert(object, body_->tail, nullptr); }

void PhList::prepend(PhObject* object) { insert(object, nullptr, body_->head); }

/// Links a new node between the neighbours `before` and `behind`, of which either may be missing.
void PhList::insert(PhObject* object, PhListNode* before, PhListNode* behind)
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
    node->setObject(object);
    body_->join(before, node);
    body_->join(node, behind);
    ++body_->count;
}

std::uint32_t PhList::count() const { return body_->count; }

PhObject* PhList::first() const { return body_->head ? body_->head->object() : nullptr; }

PhObject* PhList::last() const { return body_->tail ? body_->tail->object() : nullptr; }

PhObject* PhList::at(int i) const
{
    PhListNode* node = entryAt(i);
    return node ? node->object() : nullptr;
}

PhListNode* PhList::entryAt(int i) const
{
    if (i < 0)
        return nullptr;
    PhListNode* node = body_->head;
    while (node && i-- > 0)
        node = node->next();
    return node;
}

template <class Matches> PhListNode* PhList::findNode(Matches matches) const
{
    PhListNode* node = body_->head;
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
        [&](const PhObject& object) { return sameText(object.externalId(), externalId); });
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
    return body_->index ? body_->index->find(name) : objectOf(findNodeByName(name));
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
    PhObject::unlink(node->object());
    --body_->count;
    body_->join(node->prev(), node->next());
    delete node;
}

void PhList::removeObject(PhObject* object)
{
    remove(findNode([&](const PhObject& candidate) { return &candidate == object; }));
}

PhList* PhList::duplicate() const
{
    auto copy = std::make_unique<PhList>();
    for (PhListNode* node = body_->head; node; node = node->next())
        copy->append(node->object());
    return copy.release();
}

void PhList::sort(Comparison comparison)
{
    if (body_->count < 2)
        return;
    const std::unique_ptr<PhObject*[]> objects(new (std::nothrow) PhObject*[body_->count]);
    if (!objects)
        return;
    const bool hadIndex = body_->index != nullptr;
    clearHash();
    std::size_t i = 0;
    for (PhListNode* node = body_->head; node; node = node->next())
        objects[i++] = node->object();
    std::qsort(objects.get(), body_->count, sizeof(PhObject*), comparison);
    i = 0;
    for (PhListNode* node = body_->head; node; node = node->next())
        node->setObject(objects[i++]);
    if (hadIndex)
        buildHash();
}

void PhList::buildHash()
{
    clearHash();
    // Room for a hundred more than there are now: the bucket count never changes.
    auto index = std::make_unique<PhHashTable>(body_->count + 100);
    for (PhListNode* node = body_->head; node; node = node->next())
        index->add(node->object()->name(), node->object());
    body_->index = std::move(index);
}

void PhList::clearHash() { body_->index.reset(); }

void PhList::addToHash(PhObject* object)
{
    if (body_->index && object)
        body_->index->add(object->name(), object);
}

void PhList::removeFromHash(PhObject* object)
{
    if (body_->index && object)
        body_->index->remove(object->name(), object);
}

PhObject* PhListCursor::moveTo(PhListNode* target)
{
    node_ = target;
    return objectOf(node_);
}

PhObject* PhListCursor::first() { return moveTo(list_ ? list_->body_->head : node_); }

PhObject* PhListCursor::last() { return moveTo(list_ ? list_->body_->tail : node_); }

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
