#include "model/PhNameIndex.h"
#include "Probe.h"
#include "model/PhList.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

using namespace tavo;

namespace {

constexpr std::size_t slotCount =
    8192; // for the names below, of which half as many would double it
constexpr int nameCount = 4000;

/// Names that begin with `prefix`, up to `most` for each slot below `end`, and `count` in all.
std::vector<std::string> namesForSlots(std::size_t end, int most, int count, const char* prefix)
{
    std::vector<int> taken(slotCount);
    std::vector<std::string> names;
    for (int i = 0; static_cast<int>(names.size()) < count; ++i) {
        const std::string name = prefix + std::to_string(i);
        const std::size_t slot = std::hash<std::string_view>()(name) % slotCount;
        if (slot < end && taken[slot]++ < most)
            names.push_back(name);
    }
    return names;
}

} // namespace

TEST(PhNameIndexTest, IsFastWhateverTheNamesAre)
{
    // How many slots the names have, how many names a slot has, and where missing ones begin.
    const std::tuple<const char*, std::size_t, int, std::size_t> shapes[] = {
        {"spread over all slots", slotCount, nameCount, slotCount},
        {"in a row of slots, one in each", nameCount, 1, 20},
        {"in few slots", 200, nameCount, slotCount},
    };
    for (const auto& [shape, end, most, endOfMissing] : shapes) {
        SCOPED_TRACE(shape);
        std::vector<std::unique_ptr<Probe>> objects;
        PhNameIndex index;
        const auto names =
            namesForSlots(end, most, end < slotCount ? nameCount - 100 : nameCount, "n");
        for (const std::string& name : names) {
            objects.push_back(std::make_unique<Probe>(name.c_str()));
            index.append(objects.back().get());
        }
        for (const std::string& name : namesForSlots(endOfMissing, nameCount, 2000, "missing"))
            ASSERT_EQ(index.find(name.c_str()), nullptr);
        Probe twin(names.front().c_str());
        index.append(&twin);
        for (std::size_t i = 0; i < names.size(); ++i)
            ASSERT_EQ(index.find(names[i].c_str()), objects[i].get());
        EXPECT_LE(index.stepCount(), index.stepLimit() + names.size());
        EXPECT_LE(index.stepLimit(), 8 * index.callCount() + 1000);
        if (end == slotCount) {
            EXPECT_LE(index.stepCount(), index.callCount());
        }
    }
}

TEST(PhNameIndexTest, OfAWholeListFindsWhatAWalkFinds)
{
    for (const int count : {0, 1, 15, 16, 17, 32, 33, 5000}) {
        PhList list;
        for (int i = 0; i < count; ++i)
            list.append(i % 7 == 3 ? new Probe : new Probe(std::to_string(i * 2 / 3).c_str()));
        PhNameIndex index(list.entryAt(0), list.count());
        list.append(new Probe("last"));
        index.append(list.last());
        for (int i = 0; i < count; ++i) {
            const PhString name(i);
            index.prepare(name);
            const PhListNode* walked = list.findNodeByName(name);
            EXPECT_EQ(index.find(name), walked ? walked->object() : nullptr) << count << " " << i;
        }
        EXPECT_EQ(index.find("last"), list.last());
        EXPECT_FALSE(index.isStale());
        list.first()->setName("other");
        EXPECT_TRUE(index.isStale());
    }
}
