#pragma once

#include <cstdint>
#include <string>
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

} // namespace tavo
