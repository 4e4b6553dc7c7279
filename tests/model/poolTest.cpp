// A program of its own, which has the pool under the sanitizers too: there the library does
// without.

#include "model/pool.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <random>
#include <vector>

using namespace tavo;

static_assert(TAVO_POOLED);

namespace {

struct Block
{
    unsigned char* bytes;
    std::size_t size;
    unsigned char mark;
};

bool isWhole(const Block& block)
{
    return std::all_of(block.bytes, block.bytes + block.size,
                       [&](unsigned char byte) { return byte == block.mark; });
}

} // namespace

TEST(PoolTest, BlocksAreAlignedAndKeepWhatIsInThem)
{
    std::mt19937 random(1);
    for (const std::size_t expected : {std::size_t{0}, std::size_t{1} << 23}) {
        expectBlocks(expected);
        std::vector<Block> blocks;
        const auto release = [&](std::size_t i) {
            ASSERT_TRUE(isWhole(blocks[i])) << blocks[i].size << " bytes";
            releaseBlock(blocks[i].bytes, blocks[i].size);
            blocks[i] = blocks.back();
            blocks.pop_back();
        };
        for (int i = 0; i < 100'000; ++i) {
            if (!blocks.empty() && random() % 3 == 0) {
                release(random() % blocks.size());
                continue;
            }
            const std::size_t size = 1 + random() % 300;
            void* bytes = allocateBlock(size);
            ASSERT_EQ(reinterpret_cast<std::uintptr_t>(bytes) % alignof(void*), 0U) << size;
            blocks.push_back(
                {static_cast<unsigned char*>(bytes), size, static_cast<unsigned char>(random())});
            std::memset(bytes, blocks.back().mark, size);
        }
        while (!blocks.empty())
            release(blocks.size() - 1);
        releaseBlock(nullptr, 8);
    }
}
