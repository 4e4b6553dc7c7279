#include "base/pages.h"

#include <cstdint>
#include <new>

#if defined(__linux__)
#include <sys/mman.h>
#endif

namespace tavo {

namespace {

bool isOfLargePages(std::size_t size) { return size > 0 && size % largePage == 0; }

std::align_val_t alignmentOf(std::size_t size)
{
    return std::align_val_t{isOfLargePages(size) ? largePage : alignof(std::max_align_t)};
}

/// Only advice, so nothing depends on its success.
void makePresent([[maybe_unused]] void* block, [[maybe_unused]] std::size_t size)
{
#if defined(__linux__) && defined(MADV_POPULATE_WRITE)
    constexpr std::size_t page = 4096;
    const std::size_t before = -reinterpret_cast<std::uintptr_t>(block) % page;
    if (size < before + page)
        return;
    char* const first = static_cast<char*>(block) + before;
    const std::size_t whole = (size - before) / page * page;
    if (isOfLargePages(size))
        madvise(first, whole, MADV_HUGEPAGE);
    madvise(first, whole, MADV_POPULATE_WRITE);
#endif
}

} // namespace

std::size_t nextBlockSize(std::size_t total, std::size_t expected)
{
    constexpr std::size_t small = std::size_t{1} << 16;
    constexpr std::size_t medium = std::size_t{1} << 18;
    if (total / 16 >= largePage || total + largePage <= expected)
        return largePage;
    return total / 16 >= medium ? medium : small;
}

void* acquirePages(std::size_t size)
{
    void* const block = ::operator new(size, alignmentOf(size));
    // What a small conversion needs is present since the one before, as a rule.
    constexpr std::size_t few = std::size_t{1} << 16;
    if (size > few)
        makePresent(block, size);
    return block;
}

void releasePages(void* block, std::size_t size) noexcept
{
    ::operator delete(block, alignmentOf(size));
}

} // namespace tavo
