#pragma once

#include <cstddef>
#include <cstdio>

namespace tavo {

/// Bytes of an open file, not null, from which nothing has been read yet, or 0 if they can't be
/// told, as those of a pipe.
std::size_t sizeOfFile(std::FILE* file);

} // namespace tavo
