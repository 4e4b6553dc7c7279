#include "model/PhHashTable.h"
#include "Probe.h"

#include <gtest/gtest.h>

using namespace tavo;

TEST(PhHashTableTest, FindsWhatWasAddedLastUnderAKey)
{
    // "ab" and "b`" have the hash 292; "C" stands in the bucket of the hash 67 + 111 = 178.
    const PhString keys[] = {"ab", "b`", "C", "=8", PhString(), ""};
    ASSERT_EQ(keys[0].hash(), keys[1].hash());
    ASSERT_EQ(keys[2].hash() + 111, keys[3].hash());
    PhHashTable table(0);
    EXPECT_EQ(table.bucketCount(), 111U);
    Probe firsts[std::size(keys)];
    Probe others[std::size(keys)];
    for (std::size_t i = 0; i < std::size(keys); ++i) {
        EXPECT_EQ(table.find(keys[i]), nullptr) << i;
        table.add(keys[i], &firsts[i]);
        table.add(keys[i], &firsts[i]);
        table.add(keys[i], &others[i]);
    }
    for (std::size_t i = 0; i < std::size(keys); ++i) {
        EXPECT_EQ(table.find(keys[i]), &others[i]) << i;
        table.remove(keys[i], &others[i]);
        table.remove(keys[i], &others[i]);
        table.remove(keys[i], &firsts[i]);
        EXPECT_EQ(table.find(keys[i]), &firsts[i]) << i;
        table.remove(keys[i], &firsts[i]);
        EXPECT_EQ(table.find(keys[i]), nullptr) << i;
    }
    table.add("ab", &firsts[0]);
    table.clear();
    EXPECT_EQ(table.find("ab"), nullptr);
}
