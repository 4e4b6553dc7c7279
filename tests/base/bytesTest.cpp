#include "base/ByteGroup.h"
#include "base/sameBytes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

using namespace tavo;

namespace {

TEST(Bytes, AGroupFindsTheFirstMatchWhereverItStands)
{
    // Two characters of 256 in all places, in memory of every alignment.
    std::string memory(3 * ByteGroup::size, 'x');
    for (std::size_t start = 0; start < ByteGroup::size; ++start)
        for (std::size_t at = 0; at < ByteGroup::size; ++at)
            for (int c = 0; c < 256; c += 3) {
                std::fill(memory.begin(), memory.end(), 'x');
                memory[start + at] = static_cast<char>(c);
                const std::string_view bytes(&memory[start], ByteGroup::size);
                const ByteGroup group(bytes.data());
                const auto firstOf = [&](auto test) {
                    return static_cast<std::size_t>(std::find_if(bytes.begin(), bytes.end(), test) -
                                                    bytes.begin());
                };
                for (const char wanted : {'\0', '"', '/', '\x80', '\xFF'}) {
                    EXPECT_EQ(group.equalTo(wanted).first(),
                              firstOf([&](char b) { return b == wanted; }));
                    const ByteGroup next(&memory[start + ByteGroup::size]);
                    EXPECT_EQ(next.equalTo('x').firstWith(group.equalTo(wanted)), 0U);
                    EXPECT_EQ(group.equalTo(wanted).firstWith(next.equalTo(wanted)),
                              std::min(memory.find(wanted, start) - start, 2 * ByteGroup::size));
                    EXPECT_EQ((group.upTo(wanted) | group.equalTo('\xFE')).first(),
                              firstOf([&](unsigned char b) {
                                  return b <= static_cast<unsigned char>(wanted) || b == 0xFE;
                              }));
                }
            }
}

TEST(Bytes, TextsAreTheSameUpToTheLastByte)
{
    for (std::size_t size = 0; size < 40; ++size) {
        const std::string a(size, 'a');
        EXPECT_TRUE(sameBytes(a, std::string(size, 'a')));
        EXPECT_FALSE(sameBytes(a, a + 'a'));
        for (std::size_t at = 0; at < size; ++at) {
            std::string b = a;
            b[at] = 'b';
            EXPECT_FALSE(sameBytes(a, b)) << size << " " << at;
        }
    }
}

} // namespace
