#include "model/PhHashTable.h"
#include "Probe.h"

#include <gtest/gtest.h>

#include <utility>

using namespace tavo;

TEST(PhHashTableTest, HasAtLeast111Buckets)
{
    for (const auto& [asked, made] :
         {std::pair{0U, 111U}, {110U, 111U}, {111U, 111U}, {112U, 112U}})
        EXPECT_EQ(made, PhHashTable(asked).bucketCount());
}

TEST(PhHashTableTest, TellsKeysOfOneBucketApart)
{
    // "ab" and "b`" have the hash 292; "C" stands in the bucket of the hash 67 + 111 = 178.
    const char* const keys[] = {"ab", "b`", "C", "=8"};
    ASSERT_EQ(PhString(keys[0]).hash(), PhString(keys[1]).hash());
    ASSERT_EQ(PhString(keys[2]).hash() + 111, PhString(keys[3]).hash());
    PhHashTable table(0);
    Probe objects[4];
    for (int i = 0; i < 4; ++i)
        table.add(keys[i], &objects[i]);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(&objects[i], table.find(keys[i])) << keys[i];
    EXPECT_EQ(nullptr, table.find("none"));
}

TEST(PhHashTableTest, OfEqualKeysFindsTheOneAddedLast)
{
    PhHashTable table(0);
    Probe first;
    Probe second;
    table.add("key", &first);
    table.add("key", &second);
    EXPECT_EQ(&second, table.find("key"));
    table.remove("key", &second);
    EXPECT_EQ(&first, table.find("key"));
    table.remove("key", &second);
    table.remove("other", &first);
    EXPECT_EQ(&first, table.find("key"));
    table.clear();
    EXPECT_EQ(nullptr, table.find("key"));
    table.add("key", &second);
    EXPECT_EQ(&second, table.find("key"));
}

TEST(PhHashTableTest, RemovesOneEntryOfAnObjectAtATime)
{
    PhHashTable table(0);
    Probe object;
    table.add("key", &object);
    table.add("key", &object);
    table.remove("key", &object);
    EXPECT_EQ(&object, table.find("key"));
    table.remove("key", &object);
    EXPECT_EQ(nullptr, table.find("key"));
}

TEST(PhHashTableTest, NullKeyMatchesNullOnly)
{
    PhHashTable table(0);
    Probe unnamed;
    Probe empty;
    table.add(PhString(), &unnamed);
    EXPECT_EQ(nullptr, table.find(""));
    table.add("", &empty);
    EXPECT_EQ(&unnamed, table.find(PhString()));
    EXPECT_EQ(&empty, table.find(""));
}
