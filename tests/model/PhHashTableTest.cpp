#include "model/PhHashTable.h"
#include "Probe.h"

#include <gtest/gtest.h>

using namespace tavo;

TEST(PhHashTableTest, TellsKeysOfOneBucketApartAndNullFromEmpty)
{
    EXPECT_EQ(PhHashTable(0).bucketCount(), 111U);
    EXPECT_EQ(PhHashTable(112).bucketCount(), 112U);
    // "ab" and "b`" have the hash 292; "C" stands in the bucket of the hash 67 + 111 = 178.
    const PhString keys[] = {"ab", "b`", "C", "=8", PhString(), ""};
    ASSERT_EQ(keys[0].hash(), keys[1].hash());
    ASSERT_EQ(keys[2].hash() + 111, keys[3].hash());
    PhHashTable table(0);
    Probe objects[std::size(keys)];
    for (std::size_t i = 0; i < std::size(keys); ++i) {
        EXPECT_EQ(table.find(keys[i]), nullptr);
        table.add(keys[i], &objects[i]);
    }
    for (std::size_t i = 0; i < std::size(keys); ++i)
        EXPECT_EQ(table.find(keys[i]), &objects[i]) << i;
}

TEST(PhHashTableTest, OfEqualKeysFindsTheOneAddedLastAndRemovesOneEntryAtATime)
{
    PhHashTable table(0);
    Probe first;
    Probe second;
    for (PhObject* object : {&first, &first, &second})
        table.add("key", object);
    EXPECT_EQ(table.find("key"), &second);
    table.remove("key", &second);
    table.remove("key", &second);
    table.remove("other", &first);
    EXPECT_EQ(table.find("key"), &first);
    table.remove("key", &first);
    EXPECT_EQ(table.find("key"), &first);
    table.remove("key", &first);
    EXPECT_EQ(table.find("key"), nullptr);
    table.add("key", &second);
    table.clear();
    EXPECT_EQ(table.find("key"), nullptr);
    table.add("key", &second);
    EXPECT_EQ(table.find("key"), &second);
}
