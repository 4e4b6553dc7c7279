#include "inventory/Arena.h"

#include "base/pages.h"

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

/// From the beginning of a new block.
void* Arena::allocateAnew(std::size_t size)
{
    // What is large has a block of its own, so that the one in use isn't given up for it.
    constexpr std::size_t large = 32768;
    if (size > large)
        return addBlock(size);
    const std::size_t capacity = nextBlockSize(total_, expected_);
    char* const place = addBlock(capacity);
    next_ = place + size;
    left_ = capacity - size;
    return place;
}

} // namespace tavo
