#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>

namespace tavo {

/// For each character of a block a bit, which is set if no name goes on with it.
///
/// The length of a name is hard to guess, so a loop over its characters is guessed wrong by the
/// processor at the end of most. Here the ends are found for a group of characters at once, without
/// a decision, and are only looked up for a name.
class NameEnds
{
public:
    /// The characters of a block are looked at in groups of this size.
    static constexpr std::size_t groupSize = 64;

    /// Makes room for so many groups, and forgets what was found.
    void resize(std::size_t groups)
    {
        // A look at the last bits reads those of one group more.
        ends_.reset(new unsigned char[(groups + 1) * sizeof(std::uint64_t)]);
    }
    /// Finds the ends in the groups from `first` up to but without `last` of the block that begins
    /// at `block`. Nobody asks for ends from `last` on before they are found.
    void find(const unsigned char* block, std::size_t first, std::size_t last);

    /// The index of the first character of the block from `index` on that ends a name. There is
    /// one: an end mark does.
    std::size_t end(std::size_t index) const
    {
        for (;;) {
            std::uint64_t bits = 0;
            std::memcpy(&bits, &ends_[index / 8], sizeof bits);
            const std::uint64_t rest = inOrder(bits) >> index % 8;
            if (rest != 0)
                return index + static_cast<std::size_t>(std::countr_zero(rest));
            index += 56; // so many bits were there at least
        }
    }

private:
    /// In memory the bits stand in the order of the characters on every processor.
    static std::uint64_t inOrder(std::uint64_t bits)
    {
        return std::endian::native == std::endian::little ? bits : __builtin_bswap64(bits);
    }

    std::unique_ptr<unsigned char[]> ends_;
};

} // namespace tavo
