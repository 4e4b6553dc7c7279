#include "model/PhList.h"
#include "Probe.h"

#include <gtest/gtest.h>

#include <cstring>
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
    return (*static_cast<PhObject* const*>(left))
        ->name()
        .compare((*static_cast<PhObject* const*>(right))->name());
}

} // namespace

TEST(PhListTest, AppendsAtTheTailAndPrependsAtTheHead)
{
    PhList list;
    list.append(nullptr);
    list.prepend(nullptr);
    EXPECT_EQ(nullptr, list.first());
    EXPECT_EQ(nullptr, list.last());
    EXPECT_EQ(nullptr, list.at(0));
    list.prepend(new Probe("b"));
    list.append(new Probe("c"));
    list.prepend(new Probe("a"));
    EXPECT_EQ("abc", namesOf(list));
    EXPECT_STREQ("a", list.first()->name());
    EXPECT_STREQ("c", list.last()->name());
    EXPECT_EQ(list.last(), list.at(2));
    EXPECT_EQ(nullptr, list.at(3));
    EXPECT_EQ(nullptr, list.at(-1));
}

TEST(PhListTest, AnObjectLivesAsLongAsAListHoldsIt)
{
    {
        PhList one;
        PhList other;
        fill(one, "x");
        other.append(one.first());
        EXPECT_EQ(2, other.first()->refCount());
        one.clear();
        EXPECT_EQ(1, other.first()->refCount());
        fill(one, "ab");
        EXPECT_EQ("ab", namesOf(one));
        other.removeObject(other.first());
        EXPECT_EQ(2, Probe::alive);
    }
    EXPECT_EQ(0, Probe::alive);
}

TEST(PhListTest, RemovesFromAnyPlace)
{
    struct
    {
        const char* name;
        const char* left;
    } const cases[] = {{"a", "bcd"}, {"b", "acd"}, {"d", "abc"}, {"none", "abcd"}};
    for (const auto& [name, left] : cases) {
        PhList list;
        fill(list, "abcd");
        list.removeByName(name);
        EXPECT_EQ(left, namesOf(list));
        EXPECT_EQ(static_cast<int>(std::strlen(left)), Probe::alive);
        list.append(new Probe("e"));
        EXPECT_EQ(std::string(left) + "e", namesOf(list));
    }
    PhList list;
    list.remove(nullptr);
    fill(list, "a");
    list.removeById(list.first()->id() + 1);
    EXPECT_EQ("a", namesOf(list));
    list.removeById(list.first()->id());
    EXPECT_EQ("", namesOf(list));
    EXPECT_EQ(nullptr, list.last());
}

TEST(PhListTest, TakesAnObjectTwice)
{
    PhList list;
    fill(list, "ab");
    PhObject* object = list.first();
    list.append(object);
    EXPECT_EQ("aba", namesOf(list));
    EXPECT_EQ(2, object->refCount());
    list.removeObject(object);
    EXPECT_EQ("ba", namesOf(list));
    EXPECT_EQ(1, object->refCount());
}

TEST(PhListTest, FindsTheFirstMatchAndTellsNullFromEmpty)
{
    PhList list;
    fill(list, "aba");
    list.append(new Probe(""));
    list.append(new Probe);
    list.append(new Probe);
    EXPECT_EQ(list.at(0), list.findByName("a"));
    EXPECT_EQ(list.at(3), list.findByName(""));
    EXPECT_EQ(list.at(4), list.findByName(PhString()));
    EXPECT_EQ(nullptr, list.findByName("A"));
    EXPECT_EQ(list.at(1), list.findById(list.at(1)->id()));
    list.at(1)->setExternalId("x");
    list.at(2)->setExternalId("x");
    EXPECT_EQ(list.at(1), list.findByExternalId("x"));
    EXPECT_EQ(list.at(0), list.findByExternalId(PhString()));
    EXPECT_EQ(nullptr, list.findByExternalId("a"));
}

TEST(PhListTest, WithAnIndexFindsWhatWasAddedLast)
{
    PhList list;
    fill(list, "aba");
    list.buildHash();
    EXPECT_EQ(list.at(2), list.findByName("a"));
    list.prepend(new Probe("a"));
    EXPECT_EQ(list.at(0), list.findByName("a"));
    EXPECT_EQ(list.at(1), list.findNodeByName("a")->next()->object());
    list.remove(list.entryAt(0));
    EXPECT_EQ(list.at(2), list.findByName("a"));
    list.removeByName("b");
    EXPECT_EQ(nullptr, list.findByName("b"));
    list.append(new Probe("c"));
    EXPECT_EQ(list.last(), list.findByName("c"));
    list.removeFromHash(list.last());
    EXPECT_EQ(nullptr, list.findByName("c"));
    list.addToHash(list.last());
    EXPECT_EQ(list.last(), list.findByName("c"));
    list.clearHash();
    EXPECT_EQ(list.at(0), list.findByName("a"));
    list.addToHash(list.last());
    list.buildHash();
    list.clear();
    EXPECT_EQ(nullptr, list.findByName("a"));
    EXPECT_EQ(0, Probe::alive);
}

TEST(PhListTest, DuplicateSharesTheObjects)
{
    PhList list;
    fill(list, "cab");
    list.buildHash();
    const std::unique_ptr<PhList> copy(list.duplicate());
    EXPECT_EQ(3, Probe::alive);
    list.clear();
    EXPECT_EQ("cab", namesOf(*copy));
    copy->append(new Probe("c"));
    EXPECT_EQ(copy->at(0), copy->findByName("c"));
}

TEST(PhListTest, SortMovesTheObjectsAndRenewsTheIndex)
{
    PhList list;
    list.sort(byName);
    fill(list, "dbacab");
    list.buildHash();
    list.sort(byName);
    EXPECT_EQ("aabbcd", namesOf(list));
    EXPECT_EQ(list.at(1), list.findByName("a"));
    EXPECT_EQ(1, list.at(0)->refCount());
    list.clearHash();
    list.sort(byName);
    EXPECT_EQ(list.at(0), list.findByName("a"));
}

TEST(PhListTest, EachWalksAListThatMayBeMissing)
{
    PhList list;
    std::string names;
    for (Probe* probe : each<Probe>(nullptr))
        names += probe->name();
    for (Probe* probe : each<Probe>(&list))
        names += probe->name();
    EXPECT_EQ("", names);
    fill(list, "abc");
    for (Probe* probe : each<Probe>(&list))
        names += probe->name();
    EXPECT_EQ("abc", names);
}

TEST(PhListCursorTest, WalksBothWays)
{
    PhList list;
    fill(list, "abc");
    PhListCursor cursor(&list);
    EXPECT_EQ(nullptr, cursor.current());
    EXPECT_EQ(nullptr, cursor.next());
    EXPECT_EQ(nullptr, cursor.prev());
    EXPECT_EQ(list.at(0), cursor.first());
    EXPECT_EQ(list.at(1), cursor.next());
    EXPECT_EQ(list.at(2), cursor.next());
    EXPECT_EQ(nullptr, cursor.next());
    EXPECT_EQ(nullptr, cursor.prev());
    EXPECT_EQ(list.at(2), cursor.last());
    EXPECT_EQ(list.at(1), cursor.prev());
    EXPECT_EQ(list.at(1), cursor.current());
}

TEST(PhListCursorTest, TakesNoListAndAnEmptyOne)
{
    PhList empty;
    for (PhList* list : {static_cast<PhList*>(nullptr), &empty}) {
        PhListCursor cursor(list);
        EXPECT_EQ(nullptr, cursor.first());
        EXPECT_EQ(nullptr, cursor.last());
        EXPECT_EQ(nullptr, cursor.remove());
    }
}

TEST(PhListCursorTest, RemoveGoesOnToTheNextObject)
{
    PhList list;
    fill(list, "abcd");
    PhListCursor cursor(&list);
    cursor.first();
    cursor.next();
    EXPECT_STREQ("c", cursor.remove()->name());
    EXPECT_STREQ("d", cursor.remove()->name());
    EXPECT_EQ("ad", namesOf(list));
    EXPECT_EQ(nullptr, cursor.remove());
    EXPECT_EQ(nullptr, cursor.remove());
    EXPECT_EQ("a", namesOf(list));
    EXPECT_EQ(1, Probe::alive);
}
