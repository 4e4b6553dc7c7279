#include "model/PhList.h"
#include "Probe.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>
#include <string>
#include <vector>

using namespace tavo;

namespace {

int youngerFirst(const void* left, const void* right)
{
    const PhObject* a = *static_cast<PhObject* const*>(left);
    const PhObject* b = *static_cast<PhObject* const*>(right);
    return a->id() < b->id() ? 1 : a->id() > b->id() ? -1 : 0;
}

/// A list to which changes happen at random, next to a vector to which the same happens. There are
/// few names, so that equal ones are common, and an object may be in the list twice.
class RandomList
{
public:
    explicit RandomList(unsigned seed) : random_(seed) {}

    void change()
    {
        const std::size_t place = below(expected.size() + 1);
        PhObject* some = place < expected.size() ? expected[place] : nullptr;
        const PhString someName = name();
        const std::size_t choice = below(200);
        if (choice == 0) {
            list.clear();
            expected.clear();
        } else if (choice == 1) {
            list.sort(youngerFirst);
            std::ranges::sort(expected, std::greater<>(), &PhObject::id);
        } else if (choice < 15) {
            list.remove(list.entryAt(static_cast<int>(place)));
            erase(place);
        } else if (choice < 25) {
            erase(placeOf(someName));
            list.removeByName(someName);
        } else if (choice < 30) {
            erase(static_cast<std::size_t>(std::ranges::find(expected, some) - expected.begin()));
            list.removeObject(some);
        } else if (choice < 40 && some) {
            some->setName(someName);
        } else if (choice < 50) {
            list.append(some);
            expected.insert(expected.end(), some ? 1 : 0, some);
        } else {
            auto* object = new Probe;
            object->setName(someName);
            const bool ahead = choice < 80;
            ahead ? list.prepend(object) : list.append(object);
            expected.insert(ahead ? expected.begin() : expected.end(), object);
        }
    }

    void expectEqual()
    {
        ASSERT_EQ(list.count(), expected.size());
        PhListNode* before = nullptr;
        PhListNode* node = list.entryAt(0);
        for (PhObject* object : expected) {
            ASSERT_EQ(node->object(), object);
            ASSERT_EQ(node->prev(), before);
            ASSERT_EQ(object->refCount(), std::ranges::count(expected, object));
            before = node;
            node = node->next();
        }
        ASSERT_EQ(node, nullptr);
        ASSERT_EQ(list.last(), expected.empty() ? nullptr : expected.back());
        const PhString wanted = name();
        const std::size_t place = placeOf(wanted);
        ASSERT_EQ(list.findByName(wanted), place < expected.size() ? expected[place] : nullptr);
    }

    PhList list;
    std::vector<PhObject*> expected;

private:
    std::size_t below(std::size_t limit) { return random_() % limit; }
    PhString name()
    {
        const std::size_t number = below(120);
        if (number == 0)
            return PhString();
        return number == 1 ? PhString("") : PhString("name" + std::to_string(number));
    }
    std::size_t placeOf(const PhString& name) const
    {
        const auto isNamed = [&](PhObject* object) { return sameText(object->name(), name); };
        return static_cast<std::size_t>(std::ranges::find_if(expected, isNamed) - expected.begin());
    }
    void erase(std::size_t place)
    {
        if (place < expected.size())
            expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(place));
    }

    std::mt19937 random_;
};

/// Appends a new object for each character, which is its name and its external id.
void fill(PhList& list, const std::string& names)
{
    for (const char name : names) {
        list.append(new Probe(std::string(1, name).c_str()));
        list.last()->setExternalId(list.last()->name());
    }
}

} // namespace

TEST(PhListTest, IsWhatRandomChangesMakeOfIt)
{
    for (unsigned seed = 1; seed <= 10 && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        RandomList random(seed);
        for (int step = 0; step < 1000 && !testing::Test::HasFailure(); ++step) {
            random.change();
            random.expectEqual();
        }
        const std::unique_ptr<PhList> copy(random.list.duplicate());
        const int alive = Probe::alive;
        random.list.clear();
        EXPECT_EQ(Probe::alive, alive);
        for (PhObject* object : random.expected) {
            EXPECT_EQ(copy->first(), object);
            copy->removeById(object->id());
        }
        EXPECT_EQ(Probe::alive, 0);
    }
}

TEST(PhListTest, FindsNamesThatWereGivenToNamelessObjects)
{
    PhList list;
    for (int i = 0; i < 100; ++i)
        list.append(new Probe);
    EXPECT_EQ(list.findByName("x"), nullptr);
    list.at(2)->setName("x");
    list.append(new Probe);
    EXPECT_EQ(list.findByName("x"), list.at(2));
}

TEST(PhListTest, WithAnIndexOfItsUserFindsWhatWasAddedLast)
{
    ASSERT_EQ(PhString("ab").hash(), PhString("b`").hash());
    for (const std::string more : {"", "efghijklmnopqrstuvwxyz"}) {
        PhList list;
        fill(list, "dbacab" + more);
        EXPECT_EQ(list.findByName("a"), list.at(2));
        list.buildHash();
        EXPECT_EQ(list.findByName("a"), list.at(4));
        list.prepend(new Probe("a"));
        EXPECT_EQ(list.findByName("a"), list.at(0));
        list.remove(list.entryAt(0));
        list.removeFromHash(list.at(4));
        EXPECT_EQ(list.findByName("a"), list.at(2));
        list.removeByName("c");
        EXPECT_EQ(list.findByName("c"), nullptr);
        list.prepend(new Probe("ab"));
        EXPECT_EQ(list.findByName("b`"), nullptr);
        list.remove(list.entryAt(0));
        list.sort(youngerFirst);
        EXPECT_EQ(list.findByName("b"), list.at(static_cast<int>(more.size()) + 3));
        list.clearHash();
        EXPECT_EQ(list.findByName("b"), list.at(static_cast<int>(more.size())));
        EXPECT_EQ(list.findByExternalId("a"), list.at(static_cast<int>(more.size()) + 1));
        EXPECT_EQ(list.findByExternalId("A"), nullptr);
    }
}

TEST(PhListCursorTest, WalksBothWaysAndGoesOnBehindARemoval)
{
    EXPECT_EQ(PhListCursor(nullptr).first(), nullptr);
    PhList list;
    fill(list, "abcd");
    PhListCursor cursor(&list);
    EXPECT_EQ(cursor.next(), nullptr);
    EXPECT_EQ(cursor.last(), list.at(3));
    EXPECT_EQ(cursor.prev(), list.at(2));
    EXPECT_EQ(cursor.first(), list.at(0));
    EXPECT_EQ(cursor.next(), list.at(1));
    EXPECT_STREQ(cursor.remove()->name(), "c");
    EXPECT_STREQ(cursor.remove()->name(), "d");
    EXPECT_EQ(cursor.remove(), nullptr);
    EXPECT_EQ(list.count(), 1U);
}
