#include "a2l/RunEnds.h"

#include "a2l/characters.h"
#include "base/ByteGroup.h"

namespace tavo {

namespace {

using Matches = ByteGroup::Matches;

/// Those of `InName` below 0x80: all from '-' to '|', except six ranges.
Matches namesOf(ByteGroup bytes)
{
    const Matches others = bytes.equalTo('/') | bytes.within(':', '@') | bytes.equalTo('\\') |
                           bytes.equalTo('^') | bytes.equalTo('`') | bytes.equalTo('{');
    return bytes.within('-', '|') & ~others;
}

Matches textEndsOf(ByteGroup bytes)
{
    return bytes.equalTo('"') | bytes.equalTo('\\') | bytes.equalTo(static_cast<char>(endMark));
}

} // namespace

void RunEnds::resize(std::size_t groups)
{
    stride_ = (groups + 1) * sizeof(std::uint64_t); // a look at the last bits reads beyond them
    ends_ = std::make_unique<unsigned char[]>(kinds * stride_);
}

void RunEnds::find(const unsigned char* block, std::size_t first, std::size_t last)
{
    unsigned char* const nameEnds = &ends_[static_cast<std::size_t>(Run::Name) * stride_];
    unsigned char* const textEnds = &ends_[static_cast<std::size_t>(Run::Text) * stride_];
    for (std::size_t group = first; group < last; ++group) {
        const unsigned char* const characters = block + group * groupSize;
        std::uint64_t name = 0;
        std::uint64_t endsText = 0;
        std::uint64_t beyondAscii = 0;
        for (std::size_t i = 0; i < groupSize; i += ByteGroup::size) {
            const ByteGroup bytes(reinterpret_cast<const char*>(characters) + i);
            name |= std::uint64_t{namesOf(bytes).bits()} << i;
            endsText |= std::uint64_t{textEndsOf(bytes).bits()} << i;
            beyondAscii |= std::uint64_t{bytes.highBits()} << i;
        }
        for (; beyondAscii != 0; beyondAscii &= beyondAscii - 1) {
            const int i = std::countr_zero(beyondAscii);
            if (is(characters[i], InName))
                name |= std::uint64_t{1} << i;
        }
        store(nameEnds, group, ~name);
        store(textEnds, group, endsText);
    }
}

} // namespace tavo
