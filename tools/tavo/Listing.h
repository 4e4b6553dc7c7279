#pragma once

#include "Cell.h"
#include "inventory/Inventory.h"

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavo {

class Selection;

/// What is listed, by its place in `sections`.
enum class ListedKind : std::uint8_t
{
    Interfaces,
    Sources,
    Measurements,
    Methods
};
constexpr std::size_t listedKindCount = 4;
using KindSet = std::bitset<listedKindCount>;

/// A source and the interface that has it.
struct ListedSource
{
    const Interface* interface;
    const Source* source;
};

/// The objects of an inventory that are chosen, in the order in which they are listed.
struct Listing
{
    /// The inventory outlives the listing.
    Listing(const Inventory& inventory, Selection& selection, const KindSet& kinds);

    const Inventory& inventory;
    KindSet kinds;
    std::vector<const Interface*> interfaces;
    std::vector<ListedSource> sources;
    std::vector<const Quantity*> measurements;
    std::vector<const Method*> methods;
    mutable std::size_t rowCount = 0; ///< Rows of tables that were listed, see `mostTableRows`.
};

/// Tables with many rows that many methods use would make a listing of any size: once so many rows
/// were listed, tables have none.
constexpr std::size_t mostTableRows = 10000000;

/// A column of a section.
struct Column
{
    const char* name;
    bool isShort; ///< The short form for eyes has it.
    CellView (*cell)(const Listing& listing, std::size_t row, std::string& scratch);
};

/// All objects of one kind.
struct Section
{
    const char* kind;   ///< Of one of them.
    const char* plural; ///< Of all.
    std::span<const Column> columns;
    std::size_t (*count)(const Listing& listing);

    /// Null if there is none of the name.
    const Column* column(std::string_view name) const;
};

/// The four sections, by `ListedKind`.
std::span<const Section> sections();

/// A column by which rows are sorted.
struct SortKey
{
    std::string column;
    bool isDescending = false;
};

/// Sorts each section that has the column by the first key, what is equal in it by the second one,
/// and so on. Numbers come before texts, and what has no such thing comes last.
void sortListing(Listing& listing, const std::vector<SortKey>& keys);

/// An address or the like: its bits, the number itself if it is negative and has more than 32 bits,
/// or nothing.
CellView patternCell(const Pattern64& pattern);
/// The time from one sample to the next in nanoseconds, as an integer if it is one, or nothing.
CellView periodCell(const Source& source);
/// The same in the unit that people would use: "10 ms", "2.5 s". `period` is in nanoseconds.
std::string periodText(double period);
/// The name of the conversion of a quantity, which may be defined nowhere; nothing if there is
/// none.
std::optional<std::string_view> conversionName(const Inventory& inventory,
                                               const Quantity& quantity);
/// A row of a table: `3="open"`, `3..5="open"`, or `3=4.5` of a numeric one. UTF-8.
std::string rowText(const Table& table, const TableRow& row);

} // namespace tavo
