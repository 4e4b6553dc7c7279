// The columns of a listing.

#include "Listing.h"
#include "daq/losses.h"
#include "text.h"

#include <charconv>
#include <cmath>

namespace tavo {

namespace {

CellView textCell(const char* text) { return text ? CellView(std::string_view(text)) : CellView(); }

template <class Value> CellView optionalCell(const std::optional<Value>& value)
{
    return value ? CellView(*value) : CellView();
}

/// An identifier as the pattern of its 32 bits.
CellView identifierCell(const std::optional<std::int64_t>& identifier)
{
    return identifier ? CellView(Pattern{static_cast<std::uint32_t>(*identifier)}) : CellView();
}

CellView limitCell(const Limit& limit)
{
    if (!limit.isGiven)
        return {};
    return limit.isInteger ? CellView(static_cast<std::int64_t>(limit.value))
                           : CellView(limit.value);
}

/// Nothing for an empty text.
CellView givenCell(std::string_view text) { return text.empty() ? CellView() : CellView(text); }

std::string numberText(double number)
{
    char digits[32];
    return {digits, std::to_chars(digits, digits + sizeof digits, number).ptr};
}

// The objects of a row.

const Interface& interfaceAt(const Listing& listing, std::size_t row)
{
    return *listing.interfaces[row];
}
const ListedSource& sourceAt(const Listing& listing, std::size_t row)
{
    return listing.sources[row];
}
const Quantity& quantityAt(const Listing& listing, std::size_t row)
{
    return *listing.measurements[row];
}
const Method& methodAt(const Listing& listing, std::size_t row) { return *listing.methods[row]; }

CellView transportsCell(const Interface& interface, std::string& scratch)
{
    for (const Transport& transport : interface.transports) {
        scratch.append(scratch.empty() ? "" : " ").append(transportText(transport.kind));
        for (const std::string_view host : {transport.address, transport.hostName, transport.ipv6})
            if (!host.empty())
                scratch.append(":").append(toUtf8(host));
        if (transport.port)
            scratch.append(":").append(std::to_string(*transport.port));
    }
    return givenCell(scratch);
}

constexpr Column interfaceColumns[] = {
    {"name", true,
     [](auto& l, auto row, auto&) { return textCell(protocolText(interfaceAt(l, row).protocol)); }},
    {"protocol", true,
     [](auto& l, auto row, auto&) { return textCell(protocolText(interfaceAt(l, row).protocol)); }},
    {"master_id", true,
     [](auto& l, auto row, auto&) { return identifierCell(interfaceAt(l, row).masterId); }},
    {"slave_id", true,
     [](auto& l, auto row, auto&) { return identifierCell(interfaceAt(l, row).slaveId); }},
    {"station_address", true,
     [](auto& l, auto row, auto&) { return optionalCell(interfaceAt(l, row).stationAddress); }},
    {"sources", true,
     [](auto& l, auto row, auto&) {
         return CellView(static_cast<std::int64_t>(interfaceAt(l, row).sources.size()));
     }},
    {"transports", true,
     [](auto& l, auto row, auto& scratch) { return transportsCell(interfaceAt(l, row), scratch); }},
};

constexpr Column sourceColumns[] = {
    {"name", true,
     [](auto& l, auto row, auto&) { return CellView(sourceAt(l, row).source->name); }},
    {"interface", true,
     [](auto& l, auto row, auto&) {
         return textCell(protocolText(sourceAt(l, row).interface->protocol));
     }},
    {"rate", true,
     [](auto& l, auto row, auto&) { return CellView(sourceAt(l, row).source->rate()); }},
    {"channel", true,
     [](auto& l, auto row, auto&) { return CellView(sourceAt(l, row).source->channel); }},
    {"period", true,
     [](auto& l, auto row, auto& scratch) {
         const auto period = sourceAt(l, row).source->periodInNanoseconds();
         return period ? CellView(std::string_view(scratch = periodText(*period))) : CellView();
     }},
    {"period_ns", false,
     [](auto& l, auto row, auto&) { return periodCell(*sourceAt(l, row).source); }},
    {"description", false,
     [](auto& l, auto row, auto&) { return CellView(sourceAt(l, row).source->description); }},
};

/// What a configuration says of the conversion of a quantity.
const Line& lineAt(const Listing& listing, std::size_t row)
{
    static const Line none;
    const Method* method = listing.inventory.methodOf(quantityAt(listing, row));
    return method ? method->line : none;
}

CellView dimensionsCell(const Dimensions& dimensions, std::string& scratch)
{
    for (const std::uint64_t dimension : dimensions)
        scratch.append(scratch.empty() ? "" : "x").append(std::to_string(dimension));
    return givenCell(scratch);
}

constexpr Column measurementColumns[] = {
    {"name", true, [](auto& l, auto row, auto&) { return CellView(quantityAt(l, row).name); }},
    {"description", false,
     [](auto& l, auto row, auto&) { return CellView(quantityAt(l, row).description); }},
    {"address", true,
     [](auto& l, auto row, auto&) { return patternCell(quantityAt(l, row).address); }},
    {"address_extension", false,
     [](auto& l, auto row, auto&) { return patternCell(quantityAt(l, row).addressExtension); }},
    {"type", true,
     [](auto& l, auto row, auto&) { return CellView(dataTypeText(quantityAt(l, row).type)); }},
    {"byte_order", true,
     [](auto& l, auto row, auto&) {
         return textCell(byteOrderText(l.inventory.byteOrderOf(quantityAt(l, row))));
     }},
    {"bit_mask", false,
     [](auto& l, auto row, auto&) { return patternCell(quantityAt(l, row).bitMask); }},
    {"min", true, [](auto& l, auto row, auto&) { return limitCell(quantityAt(l, row).lower); }},
    {"max", true, [](auto& l, auto row, auto&) { return limitCell(quantityAt(l, row).upper); }},
    {"unit", true,
     [](auto& l, auto row, auto&) { return optionalCell(l.inventory.unitOf(quantityAt(l, row))); }},
    {"factor", true,
     [](auto& l, auto row, auto&) {
         return lineAt(l, row).isWritten ? CellView(lineAt(l, row).factor) : CellView();
     }},
    {"offset", true,
     [](auto& l, auto row, auto&) {
         return lineAt(l, row).isWritten ? CellView(lineAt(l, row).offset) : CellView();
     }},
    {"dimensions", true,
     [](auto& l, auto row, auto& scratch) {
         return dimensionsCell(l.inventory.detailsOf(quantityAt(l, row)).dimensions, scratch);
     }},
    {"conversion", false,
     [](auto& l, auto row, auto&) {
         return optionalCell(conversionName(l.inventory, quantityAt(l, row)));
     }},
    {"left_out", true,
     [](auto& l, auto row, auto&) {
         return givenCell(obstacleText(obstacleOf(l.inventory, quantityAt(l, row))));
     }},
};

CellView coefficientsCell(const Method& method, std::string& scratch)
{
    const auto add = [&scratch](double number) {
        scratch.append(scratch.empty() ? "" : " ").append(numberText(number));
    };
    for (const Coefficients& set : method.coefficients)
        for (const double coefficient : {set.a, set.b, set.c, set.d, set.e, set.f})
            add(coefficient);
    if (method.hasLinear && method.coefficients.empty()) {
        add(method.linearFactor);
        add(method.linearOffset);
    }
    return givenCell(scratch);
}

CellView defaultCell(const Table* table)
{
    if (table && table->hasDefaultText)
        return table->defaultText;
    return table && table->hasDefaultNumber ? CellView(table->defaultNumber) : CellView();
}

CellView rowsCell(const Listing& listing, const Table* table, std::string& scratch)
{
    if (!table)
        return {};
    listing.rowCount += table->rows.size();
    if (listing.rowCount > mostTableRows)
        return {};
    for (const TableRow& row : table->rows)
        scratch.append(scratch.empty() ? "" : "; ").append(rowText(*table, row));
    return std::string_view(scratch);
}

constexpr Column methodColumns[] = {
    {"name", true, [](auto& l, auto row, auto&) { return CellView(methodAt(l, row).name); }},
    {"description", false,
     [](auto& l, auto row, auto&) { return CellView(methodAt(l, row).description); }},
    {"unit", true,
     [](auto& l, auto row, auto&) {
         return methodAt(l, row).hasUnit ? CellView(methodAt(l, row).unit) : CellView();
     }},
    {"conversion", true,
     [](auto& l, auto row, auto&) { return givenCell(methodAt(l, row).kindWord); }},
    {"factor", true,
     [](auto& l, auto row, auto&) {
         const Line& line = methodAt(l, row).line;
         return line.isWritten ? CellView(line.factor) : CellView();
     }},
    {"offset", true,
     [](auto& l, auto row, auto&) {
         const Line& line = methodAt(l, row).line;
         return line.isWritten ? CellView(line.offset) : CellView();
     }},
    {"coefficients", false,
     [](auto& l, auto row, auto& scratch) { return coefficientsCell(methodAt(l, row), scratch); }},
    {"formula", true, [](auto& l, auto row, auto&) { return givenCell(methodAt(l, row).formula); }},
    {"inverse_formula", false,
     [](auto& l, auto row, auto&) { return givenCell(methodAt(l, row).inverseFormula); }},
    {"table", true,
     [](auto& l, auto row, auto&) {
         const std::uint32_t name = methodAt(l, row).tableName;
         return name == noIndex ? CellView() : CellView(l.inventory.tableNames.name(name));
     }},
    {"default", false,
     [](auto& l, auto row, auto&) { return defaultCell(l.inventory.tableOf(methodAt(l, row))); }},
    {"rows", false,
     [](auto& l, auto row, auto& scratch) {
         return rowsCell(l, l.inventory.tableOf(methodAt(l, row)), scratch);
     }},
};

constexpr Section allSections[listedKindCount] = {
    {"interface", "interfaces", interfaceColumns, [](auto& l) { return l.interfaces.size(); }},
    {"source", "sources", sourceColumns, [](auto& l) { return l.sources.size(); }},
    {"measurement", "measurements", measurementColumns,
     [](auto& l) { return l.measurements.size(); }},
    {"method", "methods", methodColumns, [](auto& l) { return l.methods.size(); }},
};

} // namespace

std::span<const Section> sections() { return allSections; }

const Column* Section::column(std::string_view name) const
{
    for (const Column& column : columns)
        if (column.name == name)
            return &column;
    return nullptr;
}

std::string rowText(const Table& table, const TableRow& row)
{
    std::string text = numberText(row.lower);
    if (table.kind == TableKind::Ranges)
        text.append("..").append(numberText(row.upper));
    if (table.kind == TableKind::Numeric)
        return text.append("=").append(numberText(row.number));
    return text.append("=\"").append(toUtf8(row.text)).append("\"");
}

} // namespace tavo
