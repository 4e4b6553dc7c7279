// The index that a long list makes of its names gives what a walk from the head gives, whatever
// happens to the list and to the objects in it.

#include "model/PhNameIndex.h"
#include "model/PhList.h"
#include "model/Probe.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

using namespace tavo;

namespace {

PhObject* walk(const PhList& list, const PhString& name)
{
    for (PhObject* object : each<PhObject>(&list))
        if (sameText(object->name(), name))
            return object;
    return nullptr;
}

int compareIds(const void* left, const void* right)
{
    const PhObject* a = *static_cast<PhObject* const*>(left);
    const PhObject* b = *static_cast<PhObject* const*>(right);
    return a->id() < b->id() ? 1 : a->id() > b->id() ? -1 : 0;
}

/// A list and random changes to it. Few names, so that equal ones are common.
class RandomList
{
public:
    explicit RandomList(unsigned seed) : random_(seed) {}

    void change()
    {
        PhObject* some = list.at(position());
        const unsigned choice = below(200);
        if (choice == 0)
            list.clear();
        else if (choice == 1)
            list.sort(compareIds);
        else if (choice < 20)
            list.remove(list.entryAt(position()));
        else if (choice < 40)
            list.prepend(object());
        else if (choice < 60 && some)
            some->setName(name());
        else if (choice < 70)
            list.append(some); // maybe the same object once more
        else if (choice < 80)
            list.removeObject(some); // its first place
        else
            list.append(object());
    }

    PhString name()
    {
        const unsigned number = below(120);
        if (number == 0)
            return PhString();
        return number == 1 ? PhString("") : PhString("name" + std::to_string(number));
    }

    PhList list;

private:
    unsigned below(unsigned limit) { return static_cast<unsigned>(random_()) % limit; }
    int position() { return static_cast<int>(below(list.count() + 1)); }
    PhObject* object()
    {
        auto* made = new Probe;
        made->setName(name());
        return made;
    }

    std::mt19937 random_;
};

TEST(PhNameIndex, findsWhatAWalkFindsInRandomLists)
{
    for (unsigned seed = 1; seed <= 20; ++seed) {
        RandomList random(seed);
        for (int step = 0; step < 1000; ++step) {
            random.change();
            const PhString name = random.name();
            ASSERT_EQ(random.list.findByName(name), walk(random.list, name))
                << "seed " << seed << ", step " << step;
        }
    }
    EXPECT_EQ(Probe::alive, 0);
}

TEST(PhNameIndex, growsWithTheList)
{
    PhList list;
    for (int i = 0; i < 20000; ++i) {
        list.append(new Probe(("object" + std::to_string(i)).c_str()));
        if (i % 777 == 0) {
            EXPECT_EQ(list.findByName(("object" + std::to_string(i)).c_str()), list.last());
        }
    }
    EXPECT_EQ(list.findByName("object0"), list.first());
    EXPECT_EQ(list.findByName("object20000"), nullptr);
}

TEST(PhNameIndex, leavesTheWordToTheIndexThatAUserHasBuilt)
{
    PhList list;
    for (int i = 0; i < 40; ++i)
        list.append(new Probe("same"));
    EXPECT_EQ(list.findByName("same"), list.first());
    list.buildHash();
    EXPECT_EQ(list.findByName("same"), list.last());
    list.clearHash();
    EXPECT_EQ(list.findByName("same"), list.first());
}

} // namespace
