#pragma once

#include "inventory/Arena.h"

#include <cstddef>
#include <cstring>
#include <string_view>

namespace tavo {

/// Keeps texts. A text stays where it is until the pool dies, so views of it can be stored and
/// copied freely.
class TextPool
{
public:
    /// A copy of `text` that lives as long as the pool.
    std::string_view keep(std::string_view text)
    {
        if (text.empty())
            return "";
        char* const copy = static_cast<char*>(arena_.allocate(text.size(), 1));
        std::memcpy(copy, text.data(), text.size());
        size_ += text.size();
        return {copy, text.size()};
    }
    /// Bytes of all texts kept.
    std::size_t size() const { return size_; }
    /// Where the texts are, and what else lives as long as they do.
    Arena& arena() { return arena_; }

private:
    Arena arena_;
    std::size_t size_ = 0;
};

} // namespace tavo
