#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tavo {

/// Memory for what lives as long as an inventory, in blocks that grow with it.
class Arena
{
public:
    Arena() = default;
    ~Arena();
    Arena(const Arena&) = delete;
    Arena& operator=(const Arena&) = delete;

    /// Tells how much memory may be asked for in the end, in bytes, so that it can be had in large
    /// pages from the start. Only a guess; one that is too high costs a large page at most.
    void expect(std::size_t size) { expected_ = size; }
    /// Memory that is released with the arena. `alignment` is a power of two, no larger than that
    /// of `std::max_align_t`.
    void* allocate(std::size_t size, std::size_t alignment)
    {
        const std::size_t gap = -reinterpret_cast<std::uintptr_t>(next_) % alignment;
        if (left_ < gap || left_ - gap < size)
            return allocateAnew(size);
        char* const place = next_ + gap;
        next_ = place + size;
        left_ -= gap + size;
        return place;
    }

private:
    struct Block
    {
        char* memory;
        std::size_t size;
    };

    void* allocateAnew(std::size_t size);
    char* addBlock(std::size_t size);

    std::vector<Block> blocks_;
    char* next_ = nullptr;     ///< What is left of the block in use.
    std::size_t left_ = 0;     ///< Bytes from there to its end.
    std::size_t total_ = 0;    ///< Bytes of all blocks.
    std::size_t expected_ = 0; ///< What `total_` may become.
};

} // namespace tavo
