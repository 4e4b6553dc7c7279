#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <type_traits>

namespace tavo {

/// The first bytes of a text as a number, the first one lowest on every processor and in the
/// compiler.
template <class Number> constexpr Number numberOf(const char* bytes)
{
    Number number = 0;
    if (!std::is_constant_evaluated() && std::endian::native == std::endian::little) {
        std::memcpy(&number, bytes, sizeof number);
        return number;
    }
    for (std::size_t i = sizeof number; i > 0; --i)
        number = static_cast<Number>(number << 8 | static_cast<unsigned char>(bytes[i - 1]));
    return number;
}

/// What the words of a table are told apart by: the first sixteen bytes, of which those after the
/// end are zero, as two numbers with the first byte lowest. Two comparisons tell whether two words
/// of the same length are equal, if they have no more bytes than that.
struct WordKey
{
    static constexpr std::size_t half = 8;
    static constexpr std::size_t size = 2 * half;

    constexpr WordKey() = default;
    constexpr explicit WordKey(std::string_view word)
    {
        const char* const text = word.data();
        const std::size_t length = word.size();
        if (length >= size) {
            head = numberOf<std::uint64_t>(text);
            tail = numberOf<std::uint64_t>(text + half);
        } else if (length >= half) { // the loads from here on overlap
            head = numberOf<std::uint64_t>(text);
            if (length > half)
                tail = numberOf<std::uint64_t>(text + length - half) >> (size - length) * 8;
        } else if (length >= half / 2) {
            const std::uint64_t last = numberOf<std::uint32_t>(text + length - half / 2);
            head = numberOf<std::uint32_t>(text) | last << (length - half / 2) * 8;
        } else {
            for (std::size_t i = 0; i < length; ++i)
                head |= std::uint64_t{static_cast<unsigned char>(text[i])} << i * 8;
        }
    }

    constexpr std::uint32_t hash(std::size_t length) const
    {
        // Two odd numbers without a pattern in their bits.
        const std::uint64_t sum = head * 0x9E3779B97F4A7C15 ^ (tail + length) * 0xC2B2AE3D27D4EB4F;
        return static_cast<std::uint32_t>(sum >> 32);
    }
    bool operator==(const WordKey&) const = default;

    std::uint64_t head = 0;
    std::uint64_t tail = 0;
};

} // namespace tavo
