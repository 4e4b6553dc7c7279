#include "Probe.h"
#include "model/PhValue.h"
#include "model/ownership.h"

#include <gtest/gtest.h>

#include <utility>

using namespace tavo;

TEST(PhObjectTest, DiesWithTheLastCountAndIsNeverDestroyedByDecRef)
{
    auto* object = new Probe;
    EXPECT_EQ(object->decRef(), 0);
    EXPECT_EQ(object->refCount(), 0);
    PhObject::link(object);
    PhObject::link(object);
    PhObject::unlink(object);
    EXPECT_EQ(object->refCount(), 1);
    EXPECT_EQ(Probe::alive, 1);
    PhObject::unlink(object);
    PhObject::unlink(new Probe);
    PhObject::unlink(nullptr);
    EXPECT_EQ(Probe::alive, 0);
}

TEST(PhObjectTest, AReferenceToATextShowsWhatIsSetLaterAndAPeekMakesNoRoom)
{
    using Read = const PhString& (PhObject::*)() const;
    using Set = void (PhObject::*)(const PhString&);
    const std::pair<Read, Set> texts[] = {{&PhObject::name, &PhObject::setName},
                                          {&PhObject::longName, &PhObject::setLongName},
                                          {&PhObject::description, &PhObject::setDescription},
                                          {&PhObject::externalId, &PhObject::setExternalId}};
    for (const auto& [read, set] : texts) {
        PhObject object(1);
        const PhString& text = (object.*read)();
        EXPECT_TRUE(text.isNull());
        (object.*set)(nullptr);
        (object.*set)("later");
        EXPECT_STREQ(text, "later");
        for (const auto& other : texts)
            (object.*other.second)(nullptr);
        EXPECT_TRUE(text.isNull());
        (object.*set)("again");
        EXPECT_EQ(&text, &(object.*read)());
        EXPECT_STREQ(text, "again");
    }
    const PhObject plain(1);
    const PhObject other(1);
    EXPECT_EQ(&plain.peekExternalId(), &other.peekExternalId());
    EXPECT_NE(&plain.externalId(), &other.externalId());
    EXPECT_EQ(&plain.peekExternalId(), &plain.externalId());
}

TEST(OwnershipTest, AReferenceOwnsOneCountOfWhatItHolds)
{
    PhRef<PhObject> field;
    auto* old = new PhValue(new PhList);
    auto* fresh = new Probe;
    old->list()->append(fresh);
    field = old;
    field = fresh; // which only the old object held
    EXPECT_EQ(Probe::alive, 1);
    field = field.get();
    EXPECT_EQ(field->refCount(), 1);
    field = nullptr;
    EXPECT_EQ(field, nullptr);
    EXPECT_EQ(Probe::alive, 0);
}

TEST(OwnershipTest, AListIsMadeByItsFirstElementAndAReferenceDestroysWhatNobodyStored)
{
    {
        PhLazyList list;
        list.remove(0);
        EXPECT_EQ(list, nullptr);
        for (int i = 0; i < 2; ++i) {
            const PhRef<Probe> stored(new Probe);
            const PhRef<Probe> lost(new Probe);
            list.append(stored);
        }
        EXPECT_EQ(Probe::alive, 2);
        EXPECT_EQ(list.made()->count(), 2U);
        list.remove(list->first()->id());
        EXPECT_EQ(Probe::alive, 1);
    }
    EXPECT_EQ(Probe::alive, 0);
}
