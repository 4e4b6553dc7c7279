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
    Digits() = default;
    explicit Digits(const Pattern& pattern)
    {
        digits_[0] = '0';
        digits_[1] = 'x';
        set(2, pattern.bits, 16);
    }
    explicit Digits(std::int64_t number) { set(0, number); }
    explicit Digits(std::uint64_t number) { set(0, number); }
    /// As many as distinguish it from its neighbours. Small integers and short decimals, of which
    /// descriptions are full, are found sooner than by `to_chars`, and are the same.
    explicit Digits(double number)
    {
        constexpr double scale = 1000.0;
        if (!(std::fabs(number) < 1e9) || (number == 0.0 && std::signbit(number))) {
            set(0, number);
            return;
        }
        const auto thousandths = static_cast<std::int64_t>(std::round(number * scale));
        const std::int64_t rest = thousandths % 1000;
        // Of decimals with 15 digits at most, no two are the same double.
        if (static_cast<double>(thousandths) / scale != number ||
            (rest == 0 && std::fabs(number) >= 100000.0))
            set(0, number);
        else
            setDecimal(thousandths, static_cast<unsigned>(rest < 0 ? -rest : rest));
    }

    std::string_view text() const { return {digits_.data(), size_}; }
    /// A few more characters.
    void append(std::string_view more)
    {
        for (const char character : more)
            digits_[size_++] = character;
    }

private:
    void setDecimal(std::int64_t thousandths, unsigned rest)
    {
        if (thousandths < 0)
            digits_[size_++] = '-';
        set(size_, (thousandths < 0 ? -thousandths : thousandths) / 1000);
        if (rest == 0)
            return;
        digits_[size_++] = '.';
        for (const unsigned place : {100U, 10U, 1U}) {
            if (rest == 0)
                return;
            digits_[size_++] = static_cast<char>('0' + rest / place);
            rest %= place;
        }
    }

    template <class... Number> void set(std::size_t begin, Number... number)
    {
        char* const end = digits_.data() + digits_.size();
        size_ = static_cast<std::size_t>(std::to_chars(digits_.data() + begin, end, number...).ptr -
                                         digits_.data());
    }

    std::array<char, 40> digits_{};
    std::size_t size_ = 0; ///< 0 of no number.
};

} // namespace tavo
