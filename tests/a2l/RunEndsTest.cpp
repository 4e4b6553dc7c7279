#include "a2l/RunEnds.h"
#include "a2l/characters.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

using namespace tavo;

namespace {

TEST(RunEnds, AreWhereALoopOverTheCharactersFindsThem)
{
    constexpr std::size_t groups = 5;
    constexpr std::size_t size = groups * RunEnds::groupSize;
    std::mt19937 random(1);
    for (const int other : {1, 3, 40, 500}) { // runs of any length, over several groups too
        std::vector<unsigned char> block(size, 'a');
        for (std::size_t i = 0; i < size; ++i)
            if (random() % static_cast<unsigned>(other) == 0)
                block[i] = static_cast<unsigned char>(random());
        block.back() = endMark;
        RunEnds ends;
        ends.resize(groups);
        ends.find(block.data(), 0, groups);
        for (std::size_t from = 0; from < size; ++from) {
            const auto expected = [&](unsigned classes) {
                std::size_t i = from;
                while (is(block[i], classes))
                    ++i;
                return i;
            };
            EXPECT_EQ(ends.end(Run::Name, from), expected(InName)) << from;
            EXPECT_EQ(ends.end(Run::Text, from), expected(InString)) << from;
        }
    }
}

TEST(RunEnds, KnowEveryCharacter)
{
    for (unsigned c = 0; c < 256; ++c) {
        std::vector<unsigned char> block(RunEnds::groupSize, endMark);
        block[17] = static_cast<unsigned char>(c);
        RunEnds ends;
        ends.resize(1);
        ends.find(block.data(), 0, 1);
        EXPECT_EQ(ends.end(Run::Name, 17) == 18, is(static_cast<int>(c), InName)) << c;
        EXPECT_EQ(ends.end(Run::Text, 17) == 18, is(static_cast<int>(c), InString)) << c;
    }
}

} // namespace
