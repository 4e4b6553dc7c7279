#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace tavo {

/// The number of characters in [first, last) that pass a test, which gets the pointer to each. It
/// is for tests without a decision, which the compiler makes for many characters at a time.
template <class Character, class Test>
std::uint32_t countOf(const Character* first, const Character* last, Test test)
{
    // Sums of few enough characters to fit a byte.
    constexpr std::ptrdiff_t lanes = 32;
    constexpr std::ptrdiff_t most = 255;
    std::uint32_t count = 0;
    while (last - first >= lanes) {
        unsigned char sums[lanes] = {};
        for (std::ptrdiff_t round = std::min(most, (last - first) / lanes); round > 0; --round)
            for (unsigned char& sum : sums)
                sum = static_cast<unsigned char>(sum + test(first++));
        for (const unsigned char sum : sums)
            count += sum;
    }
    for (; first < last; ++first)
        count += test(first);
    return count;
}

} // namespace tavo
