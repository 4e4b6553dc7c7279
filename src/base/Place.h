#pragma once

#include <cstdint>

namespace tavo {

/// Stands for an offset that nobody knows.
constexpr std::uint64_t noOffset = UINT64_MAX;

/// Where something stands in a description that may consist of several files: the number of the
/// file, 0 for the one that includes the others, the line, counted from 1, and, if they are known,
/// the bytes of the file before it, in UTF-8 and without a mark. Line 0 stands for the description
/// as a whole.
struct Place
{
    std::uint32_t file = 0;
    std::uint32_t line = 0;
    std::uint64_t offset = noOffset;
};

} // namespace tavo
