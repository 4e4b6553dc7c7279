#include "Listing.h"

#include "Selection.h"
#include "daq/losses.h"
#include "text.h"

#include <charconv>
#include <cmath>
#include <optional>

namespace tavo {

namespace {

Cell textCell(std::string_view text) { return toUtf8(text); }
Cell textCell(const char* text) { return text ? Cell(toUtf8(text)) : Cell(); }

template <class Value> Cell optionalCell(const std::optional<Value>& value)
{
    return value ? Cell(*value) : Cell();
}

/// An identifier as the pattern of its 32 bits.
Cell identifierCell(const std::optional<std::int64_t>& identifier)
{
    return identifier ? Cell(Pattern{static_cast<std::uint32_t>(*identifier)}) : Cell();
}

Cell limitCell(const Limit& limit)
{
    if (!limit.isGiven)
        return {};
    return limit.isInteger ? Cell(static_cast<std::int64_t>(limit.value)) : Cell(limit.value);
}

std::string transportsText(const Interface& interface)
{
    std::string text;
    for (const Transport& transport : interface.transports) {
        text += text.empty() ? "" : " ";
        text += transportText(transport.kind);
        for (const std::string_view host : {transport.address, transport.hostName, transport.ipv6})
            if (!host.empty())
                text.append(":").append(toUtf8(host));
        if (transport.port)
            text.append(":").append(std::to_string(*transport.port));
    }
    return text;
}

Section interfaces(const Inventory& inventory, Selection& selection)
{
    return {"interface",
            "interfaces",
            {{"name"},
             {"protocol"},
             {"master_id"},
             {"slave_id"},
             {"station_address"},
             {"sources"},
             {"transports"}},
            [&](const auto& visit) {
                for (const Interface& interface : inventory.interfaces) {
                    const char* name = protocolText(interface.protocol);
                    if (selection.hasName(name))
                        visit({textCell(name), textCell(name), identifierCell(interface.masterId),
                               identifierCell(interface.slaveId),
                               optionalCell(interface.stationAddress),
                               static_cast<std::int64_t>(interface.sources.size()),
                               interface.transports.empty() ? Cell() : transportsText(interface)});
                }
            }};
}

Section sources(const Inventory& inventory, Selection& selection)
{
    return {"source",
            "sources",
            {{"name"}, {"interface"}, {"rate"}, {"channel"}, {"period_ns"}, {"description", false}},
            [&](const auto& visit) {
                for (const Interface& interface : inventory.interfaces)
                    for (const Source& source : interface.sources)
                        if (selection.hasName(source.name))
                            visit({textCell(source.name),
                                   textCell(protocolText(interface.protocol)), source.rate(),
                                   source.channel, periodCell(source),
                                   textCell(source.description)});
            }};
}

std::string dimensionsText(const Dimensions& dimensions)
{
    std::string text;
    for (const std::uint64_t dimension : dimensions)
        text.append(text.empty() ? "" : "x").append(std::to_string(dimension));
    return text;
}

Row measurementRow(const Inventory& inventory, const Quantity& quantity)
{
    const Method* method = inventory.methodOf(quantity);
    const Line line = method ? method->line : Line();
    const std::optional<std::string_view> unit = inventory.unitOf(quantity);
    const std::optional<std::string_view> conversion = conversionName(inventory, quantity);
    const QuantityDetails& details = inventory.detailsOf(quantity);
    const Obstacle obstacle = obstacleOf(inventory, quantity);
    return {textCell(quantity.name),
            textCell(quantity.description),
            patternCell(quantity.address),
            patternCell(quantity.addressExtension),
            textCell(dataTypeText(quantity.type)),
            textCell(byteOrderText(inventory.byteOrderOf(quantity))),
            patternCell(quantity.bitMask),
            limitCell(quantity.lower),
            limitCell(quantity.upper),
            unit ? textCell(*unit) : Cell(),
            line.isWritten ? Cell(line.factor) : Cell(),
            line.isWritten ? Cell(line.offset) : Cell(),
            details.dimensions.empty() ? Cell() : Cell(dimensionsText(details.dimensions)),
            conversion ? textCell(*conversion) : Cell(),
            obstacle == Obstacle::None ? Cell() : textCell(obstacleText(obstacle))};
}

Section measurements(const Inventory& inventory, Selection& selection)
{
    return {"measurement",
            "measurements",
            {{"name"},
             {"description", false},
             {"address"},
             {"address_extension", false},
             {"type"},
             {"byte_order"},
             {"bit_mask", false},
             {"min"},
             {"max"},
             {"unit"},
             {"factor"},
             {"offset"},
             {"dimensions"},
             {"conversion", false},
             {"left_out"}},
            [&](const auto& visit) {
                inventory.forEachQuantity([&](const Quantity& quantity) {
                    if (selection.has(inventory, quantity))
                        visit(measurementRow(inventory, quantity));
                });
            }};
}

} // namespace

Cell patternCell(const Pattern64& pattern)
{
    if (!pattern.isGiven || pattern.isBeyond64)
        return {};
    if (pattern.fits32())
        return Pattern{static_cast<std::uint32_t>(pattern.bits)};
    if (pattern.isNegative)
        return static_cast<std::int64_t>(pattern.bits);
    return Pattern{pattern.bits};
}

Cell periodCell(const Source& source)
{
    const std::optional<double> period = source.periodInNanoseconds();
    if (!period)
        return {};
    const bool isInteger = *period == std::floor(*period) && std::fabs(*period) < 1e18;
    return isInteger ? Cell(static_cast<std::int64_t>(*period)) : Cell(*period);
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

std::vector<Section> listingOf(const Inventory& inventory, Selection& selection)
{
    return {interfaces(inventory, selection), sources(inventory, selection),
            measurements(inventory, selection)};
}

} // namespace tavo
