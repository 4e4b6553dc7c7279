#include "Probe.h"
#include "model/PhRange.h"
#include "model/PhValue.h"
#include "model/ownership.h"

#include <gtest/gtest.h>

using namespace tavo;

TEST(PhObjectTest, EveryObjectTakesAnIdEmbeddedOnesIncluded)
{
    const PhObject object(1);
    const PhValue value;
    const PhRange range;
    const PhObject last(2);
    EXPECT_EQ(object.id() + 1, value.id());
    EXPECT_EQ(object.id() + 2, range.id());
    EXPECT_EQ(object.id() + 3, range.lowerLimit().id());
    EXPECT_EQ(object.id() + 7, last.id());
}

TEST(PhObjectTest, DiesWithTheLastCount)
{
    auto* object = new Probe;
    EXPECT_EQ(0, object->refCount());
    PhObject::link(object);
    PhObject::link(object);
    PhObject::unlink(object);
    EXPECT_EQ(1, object->refCount());
    PhObject::unlink(object);
    EXPECT_EQ(0, Probe::alive);
}

TEST(PhObjectTest, WithoutACountDecRefKeepsItAndUnlinkDestroysIt)
{
    auto* object = new Probe;
    EXPECT_EQ(0, object->decRef());
    EXPECT_EQ(0, object->refCount());
    EXPECT_EQ(1, Probe::alive);
    PhObject::unlink(object);
    EXPECT_EQ(0, Probe::alive);

    PhObject::link(nullptr);
    PhObject::unlink(nullptr);
}

TEST(PhObjectTest, TextsAreSeparateAndOutliveIt)
{
    PhString name;
    {
        PhObject object(1);
        EXPECT_TRUE(object.name().isNull());
        object.setName("n");
        object.setLongName("l");
        object.setDescription("d");
        object.setExternalId("e");
        name = object.name();
        EXPECT_STREQ("l", object.longName());
        EXPECT_STREQ("d", object.description());
        EXPECT_STREQ("e", object.externalId());
    }
    EXPECT_STREQ("n", name);
}

TEST(PhObjectTest, FlagsAreIndependentBitsOfWhichAnyOneMatches)
{
    PhObject object(1);
    object.setUnresolved();
    object.setFlag(0x30);
    EXPECT_TRUE(object.isUnresolved());
    EXPECT_FALSE(object.isReported());
    EXPECT_TRUE(object.isFlag(0x90));
    object.setReported();
    object.clearFlag(0x11);
    EXPECT_FALSE(object.isUnresolved());
    EXPECT_TRUE(object.isReported());
    EXPECT_FALSE(object.isFlag(0x10));
    EXPECT_TRUE(object.isFlag(0x20));
}

TEST(OwnershipTest, AFieldOwnsOneCountOfWhatItHolds)
{
    PhObject* field = nullptr;
    setRef(field, static_cast<PhObject*>(new Probe("first")));
    setRef(field, field);
    ASSERT_EQ(1, Probe::alive);
    EXPECT_EQ(1, field->refCount());
    setRef(field, static_cast<PhObject*>(new Probe("second")));
    ASSERT_EQ(1, Probe::alive);
    EXPECT_STREQ("second", field->name());
    setRef<PhObject>(field, nullptr);
    EXPECT_EQ(nullptr, field);
    EXPECT_EQ(0, Probe::alive);
}

TEST(OwnershipTest, AFieldTakesWhatOnlyItsOldObjectHeld)
{
    auto* old = new PhValue(new PhList);
    auto* fresh = new Probe;
    old->list()->append(fresh);
    PhObject* field = nullptr;
    setRef<PhObject>(field, old);
    setRef<PhObject>(field, fresh);
    EXPECT_EQ(1, Probe::alive);
    EXPECT_EQ(1, field->refCount());
    setRef<PhObject>(field, nullptr);
    EXPECT_EQ(0, Probe::alive);
}

TEST(OwnershipTest, AHoldDestroysWhatNobodyStored)
{
    PhList list;
    {
        const PhHold<Probe> stored(new Probe);
        const PhHold<Probe> lost(new Probe);
        list.append(stored.get());
    }
    EXPECT_EQ(1, Probe::alive);
    EXPECT_EQ(1, list.first()->refCount());
}

TEST(OwnershipTest, AListFieldIsMadeByItsFirstElement)
{
    PhList* field = nullptr;
    removeFrom(field, 0);
    auto* first = new Probe;
    auto* second = new Probe;
    appendTo(field, first);
    PhList* const made = field;
    appendTo(field, second);
    EXPECT_EQ(made, createList(field));
    removeFrom(field, first->id());
    EXPECT_EQ(second, field->first());
    EXPECT_EQ(1, second->refCount());
    releaseList(field);
    EXPECT_EQ(nullptr, field);
    EXPECT_EQ(0, Probe::alive);
    releaseList(field);
}
