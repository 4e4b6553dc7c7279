#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace tavo {

/// True for equal texts. Names and keywords are short: to compare them here takes less time than to
/// call a function that is made for any size.
inline bool sameBytes(std::string_view a, std::string_view b)
{
    const std::size_t size = a.size();
    if (size != b.size())
        return false;
    const auto differ = [&](std::size_t offset, auto part) {
        auto other = part;
        std::memcpy(&part, a.data() + offset, sizeof part);
        std::memcpy(&other, b.data() + offset, sizeof other);
        return part != other;
    };
    // The last part may overlap the one before it.
    if (size >= sizeof(std::uint64_t)) {
        const std::size_t last = size - sizeof(std::uint64_t);
        for (std::size_t i = 0; i < last; i += sizeof(std::uint64_t))
            if (differ(i, std::uint64_t{}))
                return false;
        return !differ(last, std::uint64_t{});
    }
    if (size >= sizeof(std::uint32_t))
        return !differ(0, std::uint32_t{}) &&
               !differ(size - sizeof(std::uint32_t), std::uint32_t{});
    for (std::size_t i = 0; i < size; ++i)
        if (a[i] != b[i])
            return false;
    return true;
}

} // namespace tavo
