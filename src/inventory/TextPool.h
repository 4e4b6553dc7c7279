#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace tavo {

/// Keeps texts in large blocks. A text stays where it is until the pool dies, so views of it can be
/// stored and copied freely.
class TextPool
{
public:
    /// A copy of `text` that lives as long as the pool.
    std::string_view keep(std::string_view text);
    /// Bytes of all texts kept.
    std::size_t size() const { return size_; }

private:
    char* addBlock(std::size_t size);
    char* room(std::size_t size);

    std::vector<std::unique_ptr<char[]>> blocks_;
    char* next_ = nullptr; ///< Where the next text goes.
    std::size_t left_ = 0; ///< Bytes from there to the end of the block.
    std::size_t size_ = 0;
};

} // namespace tavo
