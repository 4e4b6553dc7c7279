#pragma once

#include "Cell.h"
#include "inventory/Inventory.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavo {

class Selection;

using Row = std::vector<Cell>;

/// What a column is called, and whether the short form for eyes has it.
struct Column
{
    const char* name;
    bool isShort = true;
};

/// All objects of one kind. Their rows are made one by one when they are visited, because there may
/// be many.
struct Section
{
    const char* kind;   ///< Of one of them.
    const char* plural; ///< Of all.
    std::vector<Column> columns;
    /// Calls its argument with each row, which has one cell for each column.
    std::function<void(const std::function<void(const Row&)>&)> forEachRow;
};

/// The columns that people look for, of the interfaces, sources and measurements that are chosen.
/// The sections refer to both arguments.
std::vector<Section> listingOf(const Inventory& inventory, Selection& selection);

/// An address or the like: its bits, the number itself if it is negative and has more than 32 bits,
/// or nothing.
Cell patternCell(const Pattern64& pattern);
/// The time from one sample to the next in nanoseconds, as an integer if it is one, or nothing.
Cell periodCell(const Source& source);
/// The same in the unit that people would use: "10 ms", "2.5 s". `period` is in nanoseconds.
std::string periodText(double period);
/// The name of the conversion of a quantity, which may be defined nowhere; nothing if there is
/// none.
std::optional<std::string_view> conversionName(const Inventory& inventory,
                                               const Quantity& quantity);

} // namespace tavo
