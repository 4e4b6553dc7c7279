#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace tavo {

class Glob;
class PhGroup;

/// An address or the like: a 32-bit pattern, which people read in hexadecimal.
struct Pattern
{
    std::uint32_t bits;
};

/// What stands in one place of a listing. A text is valid UTF-8; nothing at all says that the
/// configuration has no such line.
using Cell = std::variant<std::monostate, std::string, std::int64_t, double, Pattern>;

/// What a column is called, and whether the short form for eyes has it.
struct Column
{
    const char* name;
    bool isShort = true;
};

/// All objects of one kind.
struct Section
{
    const char* kind;   ///< Of one of them.
    const char* plural; ///< Of all.
    std::vector<Column> columns;
    std::vector<std::vector<Cell>> rows; ///< Each with one cell for each column.
};

/// What the configuration of a module says: its interfaces, sources and measurements whose name
/// `names` describes. The module may be null.
std::vector<Section> listingOf(const PhGroup* module, const Glob& names);

} // namespace tavo
