#include "properties.h"

#include "Listing.h"
#include "text.h"

#include <iterator>
#include <optional>
#include <string>

namespace tavo {

namespace {

// Values of properties as cells.

std::vector<Cell> cellsOf(const CellView& cell)
{
    std::vector<Cell> cells;
    if (const auto* pattern = std::get_if<Pattern>(&cell))
        cells.emplace_back(*pattern);
    else if (const auto* integer = std::get_if<std::int64_t>(&cell))
        cells.emplace_back(*integer);
    else if (const auto* real = std::get_if<double>(&cell))
        cells.emplace_back(*real);
    return cells;
}
std::vector<Cell> cellsOf(std::string_view text) { return {toUtf8(text)}; }
std::vector<Cell> cellsOf(const char* text)
{
    return text ? cellsOf(std::string_view(text)) : std::vector<Cell>();
}
std::vector<Cell> cellsOf(std::int64_t number) { return {number}; }
std::vector<Cell> cellsOf(const Pattern64& pattern)
{
    if (pattern.isGiven && pattern.isBeyond64)
        return {std::string("beyond 64 bits")};
    return cellsOf(patternCell(pattern));
}
std::vector<Cell> cellsOf(const Limit& limit)
{
    std::vector<Cell> cells;
    if (limit.isGiven && limit.isInteger)
        cells.emplace_back(static_cast<std::int64_t>(limit.value));
    else if (limit.isGiven)
        cells.emplace_back(limit.value);
    return cells;
}
template <class Integer> std::vector<Cell> cellsOf(const std::vector<Integer>& numbers)
{
    std::vector<Cell> cells;
    cells.reserve(numbers.size());
    for (const Integer number : numbers)
        cells.emplace_back(static_cast<std::int64_t>(number));
    return cells;
}
template <class Value> std::vector<Cell> cellsOf(const std::optional<Value>& value)
{
    return value ? cellsOf(*value) : std::vector<Cell>();
}
std::vector<Cell> cellsOf(const std::vector<Transport>& transports)
{
    std::vector<Cell> cells;
    for (const Transport& transport : transports) {
        std::string text = transportText(transport.kind);
        for (const std::string_view part :
             {transport.instance, transport.address, transport.hostName, transport.ipv6})
            if (!part.empty())
                text.append(" ").append(toUtf8(part));
        const auto add = [&text](const char* name, const std::optional<std::int64_t>& number) {
            if (number)
                text.append(" ").append(name).append(" ").append(std::to_string(*number));
        };
        add("port", transport.port);
        add("master_id", transport.masterId);
        add("slave_id", transport.slaveId);
        add("bit_rate", transport.bitRate);
        add("data_bit_rate", transport.dataBitRate);
        cells.emplace_back(text + (transport.isCanFd ? " can_fd" : ""));
    }
    return cells;
}

// What counts as the same.

template <class Value> bool isSame(const Value& a, const Value& b) { return a == b; }
bool isSame(const char* a, const char* b) { return a == b || (a && b && std::string_view(a) == b); }
bool isSame(const Limit& a, const Limit& b)
{
    return a.isGiven == b.isGiven && (!a.isGiven || a.value == b.value);
}
bool isSame(const Pattern64& a, const Pattern64& b)
{
    if (a.bits == b.bits && a.isGiven == b.isGiven && a.isNegative == b.isNegative &&
        a.isBeyond64 == b.isBeyond64)
        return true;
    return cellsOf(a) == cellsOf(b); // A pattern may be written as a negative number.
}
bool isSame(const std::vector<Transport>& a, const std::vector<Transport>& b)
{
    return cellsOf(a) == cellsOf(b);
}

/// A property of an object, which stands in an inventory.
template <class Object> struct Property
{
    const char* name;
    Form form;
    bool (*isSame)(const Inventory&, const Object&, const Inventory&, const Object&);
    std::vector<Cell> (*cells)(const Inventory&, const Object&);
};

/// The one that `Get`, which has no state, takes from an inventory and an object.
template <class Object, class Get>
constexpr Property<Object> property(const char* name, Get, Form form = Form::Plain)
{
    return {name, form,
            [](const Inventory& before, const Object& old, const Inventory& after,
               const Object& now) { return isSame(Get{}(before, old), Get{}(after, now)); },
            [](const Inventory& inventory, const Object& object) {
                return cellsOf(Get{}(inventory, object));
            }};
}

using Text = std::optional<std::string_view>;

Text given(std::string_view text) { return text.empty() ? std::nullopt : Text(text); }

/// An identifier as the pattern of its 32 bits.
Pattern64 identifier(const std::optional<std::int64_t>& number)
{
    return {static_cast<std::uint32_t>(number.value_or(0)), number.has_value()};
}

constexpr Property<Interface> interfaceProperties[] = {
    property<Interface>("master_id", [](auto&, auto& i) { return identifier(i.masterId); }),
    property<Interface>("slave_id", [](auto&, auto& i) { return identifier(i.slaveId); }),
    property<Interface>("station_address", [](auto&, auto& i) { return i.stationAddress; }),
    property<Interface>(
        "transports", [](auto&, auto& i) -> auto& { return i.transports; }, Form::List),
};

constexpr Property<Source> sourceProperties[] = {
    property<Source>(
        "description", [](auto&, auto& s) { return s.description; }, Form::Text),
    // A rate is a number of units, so that it says nothing of its own where there is a period.
    property<Source>("rate",
                     [](auto&, auto& s) {
                         return s.periodInNanoseconds() ? std::nullopt : std::optional(s.rate());
                     }),
    property<Source>("channel", [](auto&, auto& s) { return s.channel; }),
    property<Source>("period_ns", [](auto&, auto& s) { return periodCell(s); }),
    property<Source>("priority", [](auto&, auto& s) { return s.priority; }),
    property<Source>("direction", [](auto&, auto& s) { return s.direction; }),
    property<Source>("list_count", [](auto&, auto& s) { return s.listCount; }),
};

constexpr Property<Quantity> quantityProperties[] = {
    property<Quantity>("address", [](auto&, auto& q) { return q.address; }),
    property<Quantity>("address_extension", [](auto&, auto& q) { return q.addressExtension; }),
    property<Quantity>(
        "description", [](auto&, auto& q) { return q.description; }, Form::Text),
    property<Quantity>("type", [](auto&, auto& q) { return dataTypeText(q.type); }),
    property<Quantity>("byte_order",
                       [](auto& i, auto& q) { return byteOrderText(i.byteOrderOf(q)); }),
    property<Quantity>("bit_mask", [](auto&, auto& q) { return q.bitMask; }),
    property<Quantity>("min", [](auto&, auto& q) { return q.lower; }),
    property<Quantity>("max", [](auto&, auto& q) { return q.upper; }),
    property<Quantity>(
        "unit", [](auto& i, auto& q) { return given(i.unitOf(q).value_or("")); }, Form::Text),
    property<Quantity>(
        "dimensions", [](auto& i, auto& q) -> auto& { return i.detailsOf(q).dimensions; },
        Form::List),
    property<Quantity>("layout", [](auto& i, auto& q) { return given(i.detailsOf(q).layout); }),
    property<Quantity>(
        "events", [](auto& i, auto& q) -> auto& { return i.detailsOf(q).events; }, Form::List),
    property<Quantity>(
        "symbol",
        [](auto& i, auto& q) {
            const QuantityDetails& details = i.detailsOf(q);
            return details.hasSymbol ? Text(details.symbol) : std::nullopt;
        },
        Form::Text),
    property<Quantity>("symbol_offset",
                       [](auto& i, auto& q) { return i.detailsOf(q).symbolOffset; }),
    property<Quantity>(
        "display_name",
        [](auto& i, auto& q) {
            const QuantityDetails& details = i.detailsOf(q);
            return details.hasDisplayName ? Text(details.displayName) : std::nullopt;
        },
        Form::Text),
    property<Quantity>("address_type",
                       [](auto&, auto& q) {
                           const char* pointer = q.isPointer ? "pointer" : nullptr;
                           return q.isVirtual ? "virtual" : pointer;
                       }),
};

/// The bit of the conversion, which has several properties.
constexpr std::uint32_t conversionBit = 1U << std::size(quantityProperties);

template <class Object, std::size_t size>
std::uint32_t differing(const Property<Object> (&properties)[size], const Inventory& before,
                        const Object& old, const Inventory& after, const Object& now)
{
    std::uint32_t found = 0;
    for (std::size_t i = 0; i < size; ++i)
        if (!properties[i].isSame(before, old, after, now))
            found |= 1U << i;
    return found;
}

template <class Object, std::size_t size>
std::vector<PropertyChange> changesOf(const Property<Object> (&properties)[size],
                                      std::uint32_t chosen, const Inventory& before,
                                      const Object& old, const Inventory& after, const Object& now)
{
    std::vector<PropertyChange> changes;
    for (std::size_t i = 0; i < size; ++i)
        if ((chosen >> i & 1U) != 0)
            changes.push_back({properties[i].name, properties[i].form,
                               properties[i].cells(before, old), properties[i].cells(after, now)});
    return changes;
}

/// For the properties that need none.
const Inventory& noInventory()
{
    static const Inventory none;
    return none;
}

} // namespace

const std::uint32_t placeProperties = 3; // the first two of a quantity

std::uint32_t differingProperties(const Interface& before, const Interface& after)
{
    return differing(interfaceProperties, noInventory(), before, noInventory(), after);
}

std::uint32_t differingProperties(const Source& before, const Source& after)
{
    return differing(sourceProperties, noInventory(), before, noInventory(), after);
}

std::uint32_t differingProperties(const Inventory& before, const Quantity& quantityBefore,
                                  const Inventory& after, const Quantity& quantityAfter,
                                  const Conversions& conversions)
{
    const bool isSameConversion = conversions.isSame(quantityBefore, quantityAfter);
    return differing(quantityProperties, before, quantityBefore, after, quantityAfter) |
           (isSameConversion ? 0 : conversionBit);
}

std::vector<PropertyChange> propertyChanges(std::uint32_t properties, const Interface& before,
                                            const Interface& after)
{
    return changesOf(interfaceProperties, properties, noInventory(), before, noInventory(), after);
}

std::vector<PropertyChange> propertyChanges(std::uint32_t properties, const Source& before,
                                            const Source& after)
{
    return changesOf(sourceProperties, properties, noInventory(), before, noInventory(), after);
}

std::vector<PropertyChange> propertyChanges(std::uint32_t properties, const Inventory& before,
                                            const Quantity& quantityBefore, const Inventory& after,
                                            const Quantity& quantityAfter,
                                            std::size_t& comparedRows)
{
    std::vector<PropertyChange> changes =
        changesOf(quantityProperties, properties, before, quantityBefore, after, quantityAfter);
    if ((properties & conversionBit) != 0)
        addConversionChanges(changes, before, quantityBefore, after, quantityAfter, comparedRows);
    return changes;
}

} // namespace tavo
