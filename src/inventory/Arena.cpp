#include "inventory/Arena.h"

#include "base/pages.h"

#include <algorithm>
#include <cstdint>

namespace tavo {

namespace {

constexpr std::size_t smallestBlock = 4096;
constexpr std::size_t mediumBlock = 262144;

} // namespace

Arena::~Arena()
{
    for (const Block& block : blocks_)
        releasePages(block.memory, block.size);
}

char* Arena::addBlock(std::size_t size)
{
    blocks_.reserve(blocks_.size() + 1); // so that no block is lost if there is no memory for it
    char* const memory = static_cast<char*>(acquirePages(size));
    blocks_.push_back({memory, size});
    total_ += size;
    return memory;
}

void* Arena::allocate(std::size_t size, std::size_t alignment)
{
    // What is large has a block of its own, so that the one in use isn't given up for it.
    if (size > mediumBlock / 8)
        return addBlock(size);
    std::size_t gap = -reinterpret_cast<std::uintptr_t>(next_) % alignment;
    if (size + gap > left_) {
        // Small descriptions are many: the first blocks are small and the later ones grow.
        std::size_t capacity = std::clamp(total_, smallestBlock, mediumBlock);
        if (total_ >= 2 * largePage)
            capacity = largePage;
        capacity = std::max(capacity, size);
        next_ = addBlock(capacity);
        left_ = capacity;
        gap = 0;
    }
    char* const place = next_ + gap;
    next_ = place + size;
    left_ -= gap + size;
    return place;
}

} // namespace tavo
