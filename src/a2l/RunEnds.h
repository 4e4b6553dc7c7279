#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>

namespace tavo {

/// The kinds of long runs of characters.
enum class Run : unsigned char
{
    Name, ///< What follows in a name.
    Text  ///< What stands for itself in a string.
};

/// For each character of a block and each kind of run a bit, which is set if the character ends
/// the run.
///
/// The length of a name or a text is hard to guess, so a loop over its characters is guessed wrong
/// by the processor at the end of most. Here the ends are found for a group of characters at once,
/// without a decision, and are only looked up for a token.
class RunEnds
{
public:
    /// The characters of a block are looked at in groups of this size.
    static constexpr std::size_t groupSize = 64;

    /// Makes room for so many groups, and forgets what was found.
    void resize(std::size_t groups);
    /// Finds the ends in these groups of the block that begins at `block`.
    void find(const unsigned char* block, std::size_t first, std::size_t last);

    /// The index of the first character of the block from `index` on that ends the run. There is
    /// one: an end mark ends every run.
    std::size_t end(Run run, std::size_t index) const
    {
        const unsigned char* bits = ends_.get() + static_cast<std::size_t>(run) * stride_;
        for (;;) {
            const std::uint64_t rest = load(bits + index / 8) >> index % 8;
            if (rest != 0)
                return index + static_cast<std::size_t>(std::countr_zero(rest));
            index += 56; // so many bits were there at least
        }
    }

private:
    static constexpr std::size_t kinds = 2;

    /// In memory the bits stand in the order of the characters on every processor.
    static std::uint64_t inOrder(std::uint64_t bits)
    {
        return std::endian::native == std::endian::little ? bits : __builtin_bswap64(bits);
    }
    static std::uint64_t load(const unsigned char* bytes)
    {
        std::uint64_t bits = 0;
        std::memcpy(&bits, bytes, sizeof bits);
        return inOrder(bits);
    }

    static void store(unsigned char* bytes, std::size_t group, std::uint64_t bits)
    {
        bits = inOrder(bits);
        std::memcpy(bytes + group * sizeof bits, &bits, sizeof bits);
    }

    std::unique_ptr<unsigned char[]> ends_; ///< One kind after the other.
    std::size_t stride_ = 0;                ///< Bytes of a kind.
};

} // namespace tavo
