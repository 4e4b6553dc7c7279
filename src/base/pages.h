#pragma once

#include <cstddef>

/// How large blocks of memory come from the system.
namespace tavo {

/// The large page of the usual machines, in bytes.
constexpr std::size_t largePage = std::size_t{1} << 21;

/// A new block for `releasePages`, present in one go from a few pages on: to touch it page by page
/// for the first time costs more than to fill it. A block of the size of a large page, or several,
/// consists of them if the system has them to give. Throws std::bad_alloc.
void* acquirePages(std::size_t size);
/// `size` is the size that the block was acquired with.
void releasePages(void* block, std::size_t size) noexcept;

/// The size of the next block of a pool whose blocks have `total` bytes so far: so that a sixteenth
/// of all that there is may stay unused, but a large page at once if it is `expected` to be filled,
/// by the number of bytes that the pool may need in the end.
std::size_t nextBlockSize(std::size_t total, std::size_t expected);

/// Lets a container have its memory from there.
template <class Element> struct PageAllocator
{
    using value_type = Element;

    PageAllocator() = default;
    template <class Other> PageAllocator(const PageAllocator<Other>&) {}
    Element* allocate(std::size_t count)
    {
        return static_cast<Element*>(acquirePages(count * sizeof(Element)));
    }
    void deallocate(Element* elements, std::size_t count) noexcept
    {
        releasePages(elements, count * sizeof(Element));
    }
    bool operator==(const PageAllocator&) const = default;
};

} // namespace tavo
