#include "Listing.h"

#include "Selection.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <deque>
#include <numeric>
#include <utility>

namespace tavo {

Listing::Listing(const Inventory& all, Selection& selection, const KindSet& wanted)
    : inventory(all), kinds(wanted)
{
    const auto has = [&](ListedKind kind) { return kinds[static_cast<std::size_t>(kind)]; };
    for (const Interface& interface : inventory.interfaces) {
        if (has(ListedKind::Interfaces) && selection.hasName(protocolText(interface.protocol)))
            interfaces.push_back(&interface);
        if (has(ListedKind::Sources))
            for (const Source& source : interface.sources)
                if (selection.hasName(source.name))
                    sources.push_back({&interface, &source});
    }
    if (has(ListedKind::Measurements)) {
        if (selection.isAll())
            measurements.reserve(inventory.quantityCount());
        inventory.forEachQuantity([&](const Quantity& quantity) {
            if (selection.has(inventory, quantity))
                measurements.push_back(&quantity);
        });
    }
    if (has(ListedKind::Methods))
        for (const Method& method : inventory.methods)
            if (selection.hasName(method.name))
                methods.push_back(&method);
}

namespace {

/// What a row is sorted by.
struct Key
{
    enum Rank : std::uint8_t
    {
        Number,
        Text,
        Nothing
    };

    Rank rank = Nothing;
    long double number = 0.0L; ///< Which holds every integer of 64 bits, where the system has it.
    std::string_view text;
};

/// The texts that aren't in the description go to `texts`.
Key keyOf(const CellView& cell, std::string& scratch, std::deque<std::string>& texts)
{
    if (const auto* text = std::get_if<std::string_view>(&cell)) {
        if (scratch.empty())
            return {Key::Text, 0.0L, *text};
        return {Key::Text, 0.0L, texts.emplace_back(std::move(scratch))};
    }
    if (const auto* integer = std::get_if<std::int64_t>(&cell))
        return {Key::Number, static_cast<long double>(*integer), {}};
    if (const auto* real = std::get_if<double>(&cell))
        return {std::isnan(*real) ? Key::Nothing : Key::Number, *real, {}};
    if (const auto* pattern = std::get_if<Pattern>(&cell))
        return {Key::Number, static_cast<long double>(pattern->bits), {}};
    return {};
}

bool isBefore(const Key& a, const Key& b, bool isDescending)
{
    if (a.rank == Key::Nothing || b.rank == Key::Nothing)
        return a.rank < b.rank;
    const Key& first = isDescending ? b : a;
    const Key& second = isDescending ? a : b;
    if (first.rank != second.rank)
        return first.rank < second.rank;
    return first.rank == Key::Number ? first.number < second.number : first.text < second.text;
}

/// The rows in their new order.
std::vector<std::uint32_t> orderBy(const Listing& listing, const Section& section,
                                   const std::vector<SortKey>& keys)
{
    const std::size_t count = section.count(listing);
    std::vector<std::uint32_t> order(count);
    std::iota(order.begin(), order.end(), 0U);
    for (auto sortKey = keys.rbegin(); sortKey != keys.rend(); ++sortKey) {
        const Column* column = section.column(sortKey->column);
        if (!column)
            continue;
        std::deque<std::string> texts;
        std::vector<Key> keysOfRows(count);
        for (std::size_t row = 0; row < count; ++row) {
            std::string scratch;
            const CellView cell = column->cell(listing, row, scratch);
            keysOfRows[row] = keyOf(cell, scratch, texts);
        }
        std::stable_sort(order.begin(), order.end(), [&](std::uint32_t a, std::uint32_t b) {
            return isBefore(keysOfRows[a], keysOfRows[b], sortKey->isDescending);
        });
    }
    return order;
}

template <class Object>
void arrange(std::vector<Object>& objects, const std::vector<std::uint32_t>& order)
{
    std::vector<Object> arranged;
    arranged.reserve(objects.size());
    for (const std::uint32_t row : order)
        arranged.push_back(objects[row]);
    objects = std::move(arranged);
}

} // namespace

void sortListing(Listing& listing, const std::vector<SortKey>& keys)
{
    if (keys.empty())
        return;
    const auto order = [&](ListedKind kind) {
        return orderBy(listing, sections()[static_cast<std::size_t>(kind)], keys);
    };
    arrange(listing.interfaces, order(ListedKind::Interfaces));
    arrange(listing.sources, order(ListedKind::Sources));
    arrange(listing.measurements, order(ListedKind::Measurements));
    arrange(listing.methods, order(ListedKind::Methods));
    listing.rowCount = 0; // which sorting by the rows of tables has counted
}

CellView patternCell(const Pattern64& pattern)
{
    if (!pattern.isGiven || pattern.isBeyond64)
        return {};
    if (pattern.fits32())
        return Pattern{static_cast<std::uint32_t>(pattern.bits)};
    if (pattern.isNegative)
        return static_cast<std::int64_t>(pattern.bits);
    return Pattern{pattern.bits};
}

CellView periodCell(const Source& source)
{
    const std::optional<double> period = source.periodInNanoseconds();
    if (!period)
        return {};
    const bool isInteger = *period == std::floor(*period) && std::fabs(*period) < 1e18;
    return isInteger ? CellView(static_cast<std::int64_t>(*period)) : CellView(*period);
}

std::string periodText(double period)
{
    constexpr std::pair<double, const char*> units[] = {
        {1e9, " s"}, {1e6, " ms"}, {1e3, " us"}, {1.0, " ns"}};
    for (const auto& [size, name] : units)
        if (std::fabs(period) >= size || size == 1.0) {
            char digits[32];
            char* const end = std::to_chars(digits, digits + sizeof digits, period / size).ptr;
            return std::string(digits, end) + name;
        }
    return {};
}

std::optional<std::string_view> conversionName(const Inventory& inventory, const Quantity& quantity)
{
    if (quantity.methodName == noIndex)
        return std::nullopt;
    return inventory.methodNames.name(quantity.methodName);
}

} // namespace tavo
