#include "inventory/Arena.h"

#include "base/pages.h"

#include <cstdint>

namespace tavo {

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
    constexpr std::size_t large = 32768;
    if (size > large)
        return addBlock(size);
    std::size_t gap = -reinterpret_cast<std::uintptr_t>(next_) % alignment;
    if (size + gap > left_) {
        left_ = nextBlockSize(total_, expected_);
        next_ = addBlock(left_);
        gap = 0;
    }
    char* const place = next_ + gap;
    next_ = place + size;
    left_ -= gap + size;
    return place;
}

} // namespace tavo
