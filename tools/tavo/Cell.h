#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace tavo {

/// An address or the like: a bit pattern, which people read in hexadecimal.
struct Pattern
{
    std::uint64_t bits;

    friend bool operator==(const Pattern&, const Pattern&) = default;
};

/// A value of a description. A text is valid UTF-8; nothing at all says that there is no such
/// thing.
using Cell = std::variant<std::monostate, std::string, std::int64_t, double, Pattern>;

/// The same without a text of its own: a text is bytes of the description, or of the scratch that
/// its maker was given.
using CellView = std::variant<std::monostate, std::string_view, std::int64_t, double, Pattern>;

} // namespace tavo
