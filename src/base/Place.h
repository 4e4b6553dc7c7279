#pragma once

#include <cstdint>

namespace tavo {

/// Where something stands in a description that may consist of several files: the number of the
/// file, 0 for the one that includes the others, and the line, counted from 1. Line 0 stands for
/// the description as a whole.
struct Place
{
    std::uint32_t file = 0;
    std::uint32_t line = 0;
};

} // namespace tavo
