#pragma once

#include "Cell.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tavo {

/// The digits of a number, without an allocation.
class Digits
{
public:
    explicit Digits(const Pattern& pattern)
    {
        digits_[0] = '0';
        digits_[1] = 'x';
        set(2, pattern.bits, 16);
    }
    explicit Digits(std::int64_t number) { set(0, number); }
    explicit Digits(std::uint64_t number) { set(0, number); }
    /// As many as distinguish it from its neighbours. Small integers have the same digits as such,
    /// which are found sooner.
    explicit Digits(double number)
    {
        const bool isSmall = std::fabs(number) < 100000.0;
        const auto integer = isSmall ? static_cast<std::int64_t>(number) : 0;
        if (isSmall && static_cast<double>(integer) == number &&
            (integer != 0 || !std::signbit(number)))
            set(0, integer);
        else
            set(0, number);
    }

    std::string_view text() const { return {digits_.data(), size_}; }
    /// A few more characters.
    void append(std::string_view more)
    {
        for (const char character : more)
            digits_[size_++] = character;
    }

private:
    template <class... Number> void set(std::size_t begin, Number... number)
    {
        char* const end = digits_.data() + digits_.size();
        size_ = static_cast<std::size_t>(std::to_chars(digits_.data() + begin, end, number...).ptr -
                                         digits_.data());
    }

    std::array<char, 40> digits_;
    std::size_t size_ = 0;
};

} // namespace tavo
