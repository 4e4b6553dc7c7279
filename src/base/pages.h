#pragma once

#include <cstddef>

/// How large blocks of memory come from the system.
namespace tavo {

/// The large page of the usual machines, in bytes.
constexpr std::size_t largePage = std::size_t{1} << 21;

/// A new block for `releasePages`, present in one go from a few pages on: to touch it page by page
/// for the first time costs more than to fill it. A block of the size of a large page is one, if
/// the system has one to give. Throws std::bad_alloc.
void* acquirePages(std::size_t size);
/// `size` is the size that the block was acquired with.
void releasePages(void* block, std::size_t size) noexcept;

} // namespace tavo
