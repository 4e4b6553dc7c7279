#pragma once

#include <cstddef>
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

    /// Memory that is released with the arena. `alignment` is a power of two, no larger than that
    /// of `std::max_align_t`.
    void* allocate(std::size_t size, std::size_t alignment);

private:
    struct Block
    {
        char* memory;
        std::size_t size;
    };

    char* addBlock(std::size_t size);

    std::vector<Block> blocks_;
    char* next_ = nullptr;  ///< What is left of the block in use.
    std::size_t left_ = 0;  ///< Bytes from there to its end.
    std::size_t total_ = 0; ///< Bytes of all blocks.
};

} // namespace tavo
