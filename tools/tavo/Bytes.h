#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <new>
#include <string_view>

namespace tavo {

/// Bytes in one piece, to which more are added at the end.
class Bytes
{
public:
    /// Makes sure that at least so many more find room, and returns where they go. Throws
    /// `std::bad_alloc`.
    char* room(std::size_t count)
    {
        if (capacity_ - size_ < count) {
            const std::size_t capacity =
                2 * capacity_ > size_ + count ? 2 * capacity_ : size_ + count;
            // Large blocks move to another address without being copied.
            void* const larger = std::realloc(data_.get(), capacity);
            if (!larger)
                throw std::bad_alloc();
            (void)data_.release();
            data_.reset(static_cast<char*>(larger));
            capacity_ = capacity;
        }
        return data_.get() + size_;
    }
    /// So many bytes were written to the room.
    void add(std::size_t count) { size_ += count; }

    std::size_t size() const { return size_; }
    std::string_view view() const { return {data_.get(), size_}; }

private:
    struct Free
    {
        void operator()(char* data) const { std::free(data); }
    };

    std::unique_ptr<char, Free> data_;
    std::size_t size_ = 0;
    std::size_t capacity_ = 0;
};

} // namespace tavo
