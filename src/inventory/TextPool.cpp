#include "inventory/TextPool.h"

#include <cstring>
#include <utility>

namespace tavo {

namespace {

constexpr std::size_t smallestBlock = 4096;
constexpr std::size_t largestBlock = 262144;

} // namespace

std::string_view TextPool::keep(std::string_view text)
{
    if (text.empty())
        return "";
    char* const copy = room(text.size());
    std::memcpy(copy, text.data(), text.size());
    size_ += text.size();
    return {copy, text.size()};
}

char* TextPool::addBlock(std::size_t size)
{
    std::unique_ptr<char[]> block(new char[size]); // which the vector may have no room for
    blocks_.push_back(std::move(block));
    return blocks_.back().get();
}

char* TextPool::room(std::size_t size)
{
    // A long text has a block of its own, so that the one in use isn't given up for it.
    if (size > largestBlock / 8)
        return addBlock(size);
    if (size > left_) {
        // Small descriptions are many: the first blocks are small and the later ones grow.
        std::size_t capacity = smallestBlock;
        for (std::size_t i = 0; i < blocks_.size() && capacity < largestBlock; ++i)
            capacity *= 2;
        if (capacity < size)
            capacity = largestBlock;
        next_ = addBlock(capacity);
        left_ = capacity;
    }
    char* const place = next_;
    next_ += size;
    left_ -= size;
    return place;
}

} // namespace tavo
