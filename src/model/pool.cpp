#include "model/pool.h"

#include "base/pages.h"

#include <algorithm>
#include <iterator>
#include <new>

namespace tavo {

#if TAVO_POOLED

namespace {

constexpr std::size_t step = 8; ///< Sizes are multiples of this.
constexpr std::size_t largest = 256;

struct FreeBlock
{
    FreeBlock* next;
};

struct Chunk
{
    Chunk* next;
    std::size_t size;
};

FreeBlock* freeBlocks[largest / step + 1]; ///< By size in steps.
Chunk* chunks = nullptr;
char* unused = nullptr; ///< What is left of the newest chunk.
std::size_t unusedSize = 0;
std::size_t chunksSize = 0;
std::size_t blocksInUse = 0;
std::size_t expectedSize = 0; ///< What the blocks are expected to need.

/// Begins a new chunk. What is left of the last one is lost.
void addChunk()
{
    const std::size_t size = nextBlockSize(chunksSize, expectedSize);
    chunks = new (acquirePages(size)) Chunk{chunks, size};
    chunksSize += size;
    unused = reinterpret_cast<char*>(chunks + 1);
    unusedSize = size - sizeof(Chunk);
}

void freeAll() noexcept
{
    while (Chunk* chunk = chunks) {
        chunks = chunk->next;
        releasePages(chunk, chunk->size);
    }
    std::fill_n(freeBlocks, std::size(freeBlocks), nullptr);
    unused = nullptr;
    unusedSize = 0;
    chunksSize = 0;
    expectedSize = 0;
}

} // namespace

void expectBlocks(std::size_t size) { expectedSize = size; }

void* allocateBlock(std::size_t size)
{
    if (size > largest)
        return ::operator new(size);
    const std::size_t steps = (size + step - 1) / step;
    FreeBlock*& free = freeBlocks[steps];
    void* block = free;
    if (free) {
        free = free->next;
    } else {
        if (unusedSize < steps * step)
            addChunk();
        block = unused;
        unused += steps * step;
        unusedSize -= steps * step;
    }
    ++blocksInUse;
    return block;
}

void releaseBlock(void* block, std::size_t size) noexcept
{
    if (!block)
        return;
    if (size > largest) {
        ::operator delete(block);
        return;
    }
    FreeBlock*& free = freeBlocks[(size + step - 1) / step];
    free = new (block) FreeBlock{free};
    if (--blocksInUse == 0)
        freeAll();
}

#else

void expectBlocks(std::size_t) {}

void* allocateBlock(std::size_t size) { return ::operator new(size); }

void releaseBlock(void* block, std::size_t) noexcept { ::operator delete(block); }

#endif

} // namespace tavo
