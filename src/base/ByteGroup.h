#pragma once

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

private:
    unsigned bits() const { return static_cast<unsigned>(_mm_movemask_epi8(bytes_)); }

    __m128i bytes_;
#else
    explicit Matches(Bytes bytes) : bytes_(bytes) {}

    std::size_t first() const
    {
        std::uint64_t halves[2];
        std::memcpy(halves, &bytes_, sizeof halves);
        const auto zeros = [](std::uint64_t half) {
            constexpr bool isLittle = std::endian::native == std::endian::little;
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

private:
    Bytes bytes_;
#endif
};

#if defined(__SSE2__)

inline ByteGroup::Matches ByteGroup::equalTo(char c) const
{
    return Matches(_mm_cmpeq_epi8(bytes_, _mm_set1_epi8(c)));
}

inline ByteGroup::Matches ByteGroup::upTo(char c) const
{
    return Matches(_mm_cmpeq_epi8(_mm_min_epu8(bytes_, _mm_set1_epi8(c)), bytes_));
}

#else

inline ByteGroup::Matches ByteGroup::equalTo(char c) const
{
    return Matches(reinterpret_cast<Bytes>(bytes_ == static_cast<unsigned char>(c)));
}

inline ByteGroup::Matches ByteGroup::upTo(char c) const
{
    return Matches(reinterpret_cast<Bytes>(bytes_ <= static_cast<unsigned char>(c)));
}

#endif

} // namespace tavo
