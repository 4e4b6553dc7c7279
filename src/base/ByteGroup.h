#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace tavo {

/// Sixteen bytes that are compared at once: a search for the next character of a few reads a
/// description in a fraction of the time that a loop over its bytes takes.
///
/// The comparisons are made of instructions that every x86-64 processor has, or else of the
/// compiler's vectors.
class ByteGroup
{
public:
    static constexpr std::size_t size = 16;

    /// Those of the bytes for which a comparison holds.
    class Matches;

    /// The bytes from `position` on, at any alignment.
    explicit ByteGroup(const char* position) { std::memcpy(&bytes_, position, size); }

    Matches equalTo(char c) const;
    /// Bytes up to `c`, taken as unsigned.
    Matches upTo(char c) const;
    /// Bytes from `first` to `last`, taken as unsigned.
    Matches within(char first, char last) const;
    /// The highest bit of each byte, that of the first one lowest.
    unsigned highBits() const;

private:
#if defined(__SSE2__)
    __m128i bytes_;
#else
    using Bytes = unsigned char __attribute__((vector_size(16)));
    Bytes bytes_;
#endif
};

class ByteGroup::Matches
{
public:
    friend Matches operator|(Matches a, Matches b) { return Matches(a.bytes_ | b.bytes_); }
    friend Matches operator&(Matches a, Matches b) { return Matches(a.bytes_ & b.bytes_); }
    Matches operator~() const { return Matches(~bytes_); }

#if defined(__SSE2__)
    explicit Matches(__m128i bytes) : bytes_(bytes) {}

    /// The index of the first match; `size` if there is none.
    std::size_t first() const
    {
        return static_cast<std::size_t>(std::countr_zero(bits() | 1U << size));
    }
    /// The same in this group and the one after it; twice the size if there is none.
    std::size_t firstWith(Matches next) const
    {
        return static_cast<std::size_t>(std::countr_zero(bits() | next.bits() << size));
    }
    /// A bit for each byte, that of the first one lowest.
    unsigned bits() const { return static_cast<unsigned>(_mm_movemask_epi8(bytes_)); }

private:
    __m128i bytes_;
#else
    explicit Matches(Bytes bytes) : bytes_(bytes) {}

    std::size_t first() const
    {
        const Halves halves = std::bit_cast<Halves>(bytes_);
        const auto zeros = [](std::uint64_t half) {
            return static_cast<std::size_t>(isLittle ? std::countr_zero(half)
                                                     : std::countl_zero(half)) /
                   8;
        };
        return halves[0] != 0 ? zeros(halves[0]) : 8 + zeros(halves[1]);
    }
    std::size_t firstWith(Matches next) const
    {
        const std::size_t own = first();
        return own < size ? own : size + next.first();
    }
    unsigned bits() const
    {
        const Halves halves = std::bit_cast<Halves>(bytes_);
        // One bit of each byte is left, and the product has the sum of all at its top.
        const auto bitsOf = [](std::uint64_t half) {
            constexpr std::uint64_t one = isLittle ? 0x8040201008040201 : 0x0102040810204080;
            return static_cast<unsigned>((half & one) * 0x0101010101010101 >> 56);
        };
        return bitsOf(halves[0]) | bitsOf(halves[1]) << 8;
    }

private:
    using Halves = std::array<std::uint64_t, 2>;
    static constexpr bool isLittle = std::endian::native == std::endian::little;

    Bytes bytes_;
#endif
};

#if defined(__SSE2__)

inline ByteGroup::Matches ByteGroup::equalTo(char c) const
{
    return Matches(_mm_cmpeq_epi8(bytes_, _mm_set1_epi8(c)));
}

inline unsigned ByteGroup::highBits() const { return Matches(bytes_).bits(); }

inline ByteGroup::Matches ByteGroup::upTo(char c) const
{
    return Matches(_mm_cmpeq_epi8(_mm_min_epu8(bytes_, _mm_set1_epi8(c)), bytes_));
}

inline ByteGroup::Matches ByteGroup::within(char first, char last) const
{
    const __m128i above = _mm_sub_epi8(bytes_, _mm_set1_epi8(first));
    const __m128i most = _mm_set1_epi8(static_cast<char>(last - first));
    return Matches(_mm_cmpeq_epi8(_mm_min_epu8(above, most), above));
}

#else

inline ByteGroup::Matches ByteGroup::equalTo(char c) const
{
    return Matches(reinterpret_cast<Bytes>(bytes_ == static_cast<unsigned char>(c)));
}

inline unsigned ByteGroup::highBits() const { return within('\x80', '\xFF').bits(); }

inline ByteGroup::Matches ByteGroup::upTo(char c) const
{
    return Matches(reinterpret_cast<Bytes>(bytes_ <= static_cast<unsigned char>(c)));
}

inline ByteGroup::Matches ByteGroup::within(char first, char last) const
{
    const Bytes above = bytes_ - static_cast<unsigned char>(first);
    return Matches(reinterpret_cast<Bytes>(above <= static_cast<unsigned char>(last - first)));
}

#endif

/// The first byte from `position` on that `match` finds in its group.
template <class Match> const char* searchNear(const char* position, Match match)
{
    for (;; position += ByteGroup::size) {
        const std::size_t first = match(ByteGroup(position)).first();
        if (first < ByteGroup::size)
            return position + first;
    }
}

/// The same two groups at a time, for what is far away in most places.
template <class Match> const char* searchFar(const char* position, Match match)
{
    constexpr std::size_t size = ByteGroup::size;
    for (;; position += 2 * size) {
        const std::size_t first =
            match(ByteGroup(position)).firstWith(match(ByteGroup(position + size)));
        if (first < 2 * size)
            return position + first;
    }
}

} // namespace tavo
