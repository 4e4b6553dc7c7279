#include "a2l/NameEnds.h"
#include "a2l/characters.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

using namespace tavo;

namespace {

TEST(NameEnds, AreWhereALoopOverTheCharactersFindsThem)
{
    constexpr std::size_t groups = 5;
    constexpr std::size_t size = groups * NameEnds::groupSize;
    std::mt19937 random(1);
    for (const int other : {1, 3, 40, 500}) { // runs of any length, over several groups too
        std::vector<unsigned char> block(size, 'a');
        for (std::size_t i = 0; i < size; ++i)
            if (random() % static_cast<unsigned>(other) == 0)
                block[i] = static_cast<unsigned char>(random());
        block.back() = endMark;
        NameEnds ends;
        ends.resize(groups);
        ends.find(block.data(), 0, groups);
        for (std::size_t from = 0; from < size; ++from) {
            std::size_t expected = from;
            while (is(block[expected], InName))
                ++expected;
            EXPECT_EQ(ends.end(from), expected);
        }
    }
}

TEST(NameEnds, KnowEveryCharacter)
{
    for (unsigned c = 0; c < 256; ++c) {
        std::vector<unsigned char> block(NameEnds::groupSize, endMark);
        block[17] = static_cast<unsigned char>(c);
        NameEnds ends;
        ends.resize(1);
        ends.find(block.data(), 0, 1);
        EXPECT_EQ(ends.end(17) == 18, is(static_cast<int>(c), InName)) << c;
    }
}

} // namespace
