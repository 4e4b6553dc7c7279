#include "model/PhList.h"
#include "Probe.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

using namespace tavo;

namespace {

/// Appends a new object for each character, which is its name.
void fill(PhList& list, const char* names)
{
    for (; *names != '\0'; ++names)
        list.append(new Probe(std::string(1, *names).c_str()));
}

/// The names from the head on, provided that the way back and the count agree with them.
std::string namesOf(const PhList& list)
{
    std::string forward;
    const PhListNode* tail = nullptr;
    for (const PhListNode* node = list.entryAt(0); node; node = node->next()) {
        forward += node->object()->name();
        tail = node;
    }
    std::string backward;
    for (; tail; tail = tail->prev())
        backward.insert(0, tail->object()->name());
    return forward == backward && forward.size() == list.count() ? forward : "inconsistent";
}

int byName(const void* left, const void* right)
{
    const auto* a = *static_cast<PhObject* const*>(left);
    return a->name().compare((*static_cast<PhObject* const*>(right))->name());
}

} // namespace

TEST(PhListTest, AppendsAtTheTailAndPrependsAtTheHead)
{
    PhList list;
    list.append(nullptr);
    list.prepend(nullptr);
    EXPECT_EQ(list.first(), nullptr);
    EXPECT_EQ(list.last(), nullptr);
    list.prepend(new Probe("b"));
    list.append(new Probe("c"));
    list.prepend(new Probe("a"));
    EXPECT_EQ(namesOf(list), "abc");
    EXPECT_EQ(list.last(), list.at(2));
    EXPECT_EQ(list.at(3), nullptr);
    EXPECT_EQ(list.at(-1), nullptr);
    list.clear();
    fill(list, "d");
    EXPECT_EQ(namesOf(list), "d");
    EXPECT_EQ(Probe::alive, 1);
}

TEST(PhListTest, AnObjectLivesAsLongAsAListHoldsIt)
{
    {
        PhList list;
        fill(list, "cab");
        const std::unique_ptr<PhList> copy(list.duplicate());
        PhObject* object = copy->first();
        EXPECT_EQ(object->refCount(), 2);
        list.append(object);
        list.removeObject(object);
        EXPECT_EQ(namesOf(list), "abc");
        EXPECT_EQ(object->refCount(), 2);
        list.clear();
        EXPECT_EQ(namesOf(*copy), "cab");
        EXPECT_EQ(object->refCount(), 1);
        copy->removeObject(object);
        EXPECT_EQ(Probe::alive, 2);
    }
    EXPECT_EQ(Probe::alive, 0);
}

TEST(PhListTest, RemovesFromAnyPlace)
{
    const std::pair<const char*, std::string> cases[] = {
        {"a", "bcd"}, {"b", "acd"}, {"d", "abc"}, {"none", "abcd"}};
    for (const auto& [name, left] : cases) {
        PhList list;
        fill(list, "abcd");
        list.removeByName(name);
        EXPECT_EQ(namesOf(list), left);
        fill(list, "e");
        EXPECT_EQ(namesOf(list), left + "e");
    }
    PhList list;
    list.remove(nullptr);
    fill(list, "a");
    list.removeById(list.first()->id() + 1);
    EXPECT_EQ(namesOf(list), "a");
    list.removeById(list.first()->id());
    EXPECT_EQ(namesOf(list), "");
    EXPECT_EQ(list.last(), nullptr);
}

TEST(PhListTest, FindsTheFirstMatchAndTellsNullFromEmpty)
{
    PhList list;
    const char* const names[] = {"a", "b", "a", "", nullptr, nullptr};
    for (const char* name : names) {
        list.append(new Probe(name));
        list.last()->setExternalId(name);
    }
    for (const int i : {0, 1, 3, 4}) {
        EXPECT_EQ(list.findByName(names[i]), list.at(i));
        EXPECT_EQ(list.findByExternalId(names[i]), list.at(i));
        EXPECT_EQ(list.findById(list.at(i)->id()), list.at(i));
    }
    EXPECT_EQ(list.findByName("A"), nullptr);
    EXPECT_EQ(list.findByExternalId("A"), nullptr);
}

TEST(PhListTest, WithAnIndexOfItsUserFindsWhatWasAddedLast)
{
    PhList list;
    fill(list, "dbacab");
    list.buildHash();
    EXPECT_EQ(list.findByName("a"), list.at(4));
    list.prepend(new Probe("a"));
    EXPECT_EQ(list.findByName("a"), list.at(0));
    list.remove(list.entryAt(0));
    list.removeFromHash(list.at(4));
    EXPECT_EQ(list.findByName("a"), list.at(2));
    list.removeByName("c");
    EXPECT_EQ(list.findByName("c"), nullptr);
    list.sort(byName);
    EXPECT_EQ(namesOf(list), "aabbd");
    EXPECT_EQ(list.at(0)->refCount(), 1);
    EXPECT_EQ(list.findByName("a"), list.at(1));
    list.clearHash();
    EXPECT_EQ(list.findByName("a"), list.at(0));
    list.buildHash();
    list.clear();
    EXPECT_EQ(list.findByName("a"), nullptr);
}

TEST(PhListCursorTest, WalksBothWaysAndGoesOnBehindARemoval)
{
    PhList list;
    EXPECT_EQ(PhListCursor(nullptr).first(), nullptr);
    EXPECT_EQ(PhListCursor(&list).remove(), nullptr);
    fill(list, "abcd");
    PhListCursor cursor(&list);
    EXPECT_EQ(cursor.next(), nullptr);
    EXPECT_EQ(cursor.last(), list.at(3));
    EXPECT_EQ(cursor.next(), nullptr);
    EXPECT_EQ(cursor.first(), list.at(0));
    EXPECT_EQ(cursor.next(), list.at(1));
    EXPECT_EQ(cursor.prev(), list.at(0));
    cursor.next();
    EXPECT_STREQ(cursor.remove()->name(), "c");
    EXPECT_STREQ(cursor.remove()->name(), "d");
    EXPECT_EQ(cursor.remove(), nullptr);
    EXPECT_EQ(namesOf(list), "a");
}
