#pragma once

#include <cstddef>

// The sanitizers see each block for itself, so that they find what is used after its end or its
// life.
#if !defined(TAVO_POOLED)
#if defined(__SANITIZE_ADDRESS__)
#define TAVO_POOLED 0
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(memory_sanitizer)
#define TAVO_POOLED 0
#endif
#endif
#endif
#if !defined(TAVO_POOLED)
#define TAVO_POOLED 1
#endif

namespace tavo {

/// Memory for the many small blocks of a model: objects, their records, list nodes and texts.
/// Blocks are cut from large chunks, without a header and eight bytes apart, and one that is given
/// back is the next one handed out. The chunks are freed when the last block is given back, so
/// nothing is kept between two conversions.
///
/// Exhausted memory throws, as `operator new` does. Like the model itself, this is for one thread
/// at a time.
void* allocateBlock(std::size_t size);
/// Gives back a block; `size` is what it was allocated with. Null is ignored.
void releaseBlock(void* block, std::size_t size) noexcept;

/// Tells how much memory the next blocks may need, in bytes, so that it can be had in large pages
/// from the start. Only a guess: nothing is allocated by it, and one that is too high costs a large
/// page at most. It holds until the last block is given back or the next guess.
void expectBlocks(std::size_t size);

/// Base of what stands in such blocks when it is made with `new`.
struct Pooled
{
    static void* operator new(std::size_t size) { return allocateBlock(size); }
    static void operator delete(void* block, std::size_t size) noexcept
    {
        releaseBlock(block, size);
    }
};

} // namespace tavo
