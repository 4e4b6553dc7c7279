#pragma once

#include "inventory/Arena.h"

#include <cstddef>
#include <string_view>

namespace tavo {

/// Keeps texts. A text stays where it is until the arena dies, so views of it can be stored and
/// copied freely.
class TextPool
{
public:
    /// `arena` has the memory for the texts and outlives the pool.
    explicit TextPool(Arena& arena) : arena_(arena) {}

    /// A copy of `text` that lives as long as the arena.
    std::string_view keep(std::string_view text);
    /// Bytes of all texts kept.
    std::size_t size() const { return size_; }

private:
    Arena& arena_;
    std::size_t size_ = 0;
};

} // namespace tavo
