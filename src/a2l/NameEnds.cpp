#include "a2l/NameEnds.h"

#include "a2l/characters.h"
#include "base/ByteGroup.h"

#include <cstring>

namespace tavo {

namespace {

/// Those of `InName` below 0x80: all from '-' to '|', except six ranges.
ByteGroup::Matches namesOf(ByteGroup bytes)
{
    const ByteGroup::Matches others = bytes.equalTo('/') | bytes.within(':', '@') |
                                      bytes.equalTo('\\') | bytes.equalTo('^') |
                                      bytes.equalTo('`') | bytes.equalTo('{');
    return bytes.within('-', '|') & ~others;
}

} // namespace

void NameEnds::find(const unsigned char* block, std::size_t first, std::size_t last)
{
    for (std::size_t group = first; group < last; ++group) {
        const unsigned char* const characters = block + group * groupSize;
        std::uint64_t inName = 0;
        std::uint64_t beyondAscii = 0;
        for (std::size_t i = 0; i < groupSize; i += ByteGroup::size) {
            const ByteGroup bytes(reinterpret_cast<const char*>(characters) + i);
            inName |= std::uint64_t{namesOf(bytes).bits()} << i;
            beyondAscii |= std::uint64_t{bytes.highBits()} << i;
        }
        for (; beyondAscii != 0; beyondAscii &= beyondAscii - 1) {
            const int i = std::countr_zero(beyondAscii);
            if (is(characters[i], InName))
                inName |= std::uint64_t{1} << i;
        }
        const std::uint64_t ends = inOrder(~inName);
        std::memcpy(&ends_[group * sizeof ends], &ends, sizeof ends);
    }
    // The one that a look at the last bits reads, too.
    std::memset(&ends_[last * sizeof(std::uint64_t)], 0, sizeof(std::uint64_t));
}

} // namespace tavo
