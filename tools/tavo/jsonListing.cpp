#include "jsonListing.h"

#include "JsonWriter.h"
#include "Selection.h"
#include "daq/ConfigurationStream.h"
#include "daq/losses.h"

#include <optional>

namespace tavo {

namespace {

/// Tables with many rows that many quantities use would make a listing of any size: once so many
/// rows are written, tables have none.
constexpr std::size_t mostTableRows = 10000000;

class JsonListing
{
public:
    JsonListing(ConfigurationStream& stream, const Inventory& inventory)
        : stream_(stream), inventory_(inventory)
    {
    }

    void put(const Interface& interface);
    void put(const Interface& interface, const Source& source);
    void put(const Quantity& quantity);

    void beginSection(const char* name)
    {
        stream_.put(isFirstSection_ ? "{\n  \"" : ",\n  \"");
        stream_.put(name);
        stream_.put("\": [");
        isFirstSection_ = false;
        isFirstRow_ = true;
    }
    void endSection() { stream_.put(isFirstRow_ ? "]" : "\n  ]"); }
    void end() { stream_.put("\n}\n"); }

private:
    void beginRow();
    void endRow();
    void member(const char* key, const Pattern64& pattern);
    void member(const char* key, const Limit& limit);
    void putDetails(const Quantity& quantity);
    void putConversion(const Quantity& quantity);
    void putTable(const Table& table);

    ConfigurationStream& stream_;
    const Inventory& inventory_;
    JsonWriter json_;
    std::size_t tableRowCount_ = 0;
    bool isFirstSection_ = true;
    bool isFirstRow_ = true;
};

void JsonListing::beginRow() { json_.clear(); }

void JsonListing::endRow()
{
    stream_.put(isFirstRow_ ? "\n    " : ",\n    ");
    stream_.put(json_.json());
    isFirstRow_ = false;
}

void JsonListing::member(const char* key, const Pattern64& pattern)
{
    json_.member(key, patternCell(pattern));
    if (pattern.isGiven && pattern.isBeyond64) {
        json_.key(key);
        json_.null();
    }
}

void JsonListing::member(const char* key, const Limit& limit)
{
    if (limit.isGiven && limit.isInteger)
        json_.member(key, static_cast<std::int64_t>(limit.value));
    else if (limit.isGiven)
        json_.member(key, limit.value);
}

void JsonListing::put(const Interface& interface)
{
    beginRow();
    putJson(json_, interface);
    endRow();
}

void JsonListing::put(const Interface& interface, const Source& source)
{
    beginRow();
    putJson(json_, interface, source);
    endRow();
}

void JsonListing::put(const Quantity& quantity)
{
    beginRow();
    json_.beginObject();
    json_.member("name", quantity.name);
    json_.member("description", quantity.description);
    member("address", quantity.address);
    member("address_extension", quantity.addressExtension);
    json_.member("type", dataTypeText(quantity.type));
    if (const char* order = byteOrderText(inventory_.byteOrderOf(quantity)))
        json_.member("byte_order", order);
    member("bit_mask", quantity.bitMask);
    member("min", quantity.lower);
    member("max", quantity.upper);
    json_.member("unit", inventory_.unitOf(quantity));
    const Method* method = inventory_.methodOf(quantity);
    const Line line = method ? method->line : Line();
    if (line.isWritten) {
        json_.member("factor", line.factor);
        json_.member("offset", line.offset);
    }
    putDetails(quantity);
    putConversion(quantity);
    if (quantity.isVirtual)
        json_.member("virtual", true);
    const Obstacle obstacle = obstacleOf(inventory_, quantity);
    if (obstacle != Obstacle::None)
        json_.member("left_out", obstacleText(obstacle));
    json_.endObject();
    endRow();
}

void JsonListing::putDetails(const Quantity& quantity)
{
    const QuantityDetails& details = inventory_.detailsOf(quantity);
    if (!details.dimensions.empty()) {
        json_.key("dimensions");
        json_.beginArray();
        for (const std::uint64_t dimension : details.dimensions)
            json_.value(dimension);
        json_.endArray();
    }
    if (!details.layout.empty())
        json_.member("layout", details.layout);
    if (!details.events.empty()) {
        json_.key("events");
        json_.beginArray();
        for (const std::uint32_t channel : details.events)
            json_.value(std::uint64_t{channel});
        json_.endArray();
    }
    if (details.hasSymbol) {
        json_.member("symbol", details.symbol);
        if (details.symbolOffset != 0)
            json_.member("symbol_offset", details.symbolOffset);
    }
    if (details.hasDisplayName)
        json_.member("display_name", details.displayName);
}

/// The conversion that the quantity names; its name alone if it is defined nowhere.
void JsonListing::putConversion(const Quantity& quantity)
{
    const std::optional<std::string_view> name = conversionName(inventory_, quantity);
    if (!name)
        return;
    json_.key("conversion");
    json_.beginObject();
    json_.member("name", *name);
    if (const Method* method = inventory_.methodOf(quantity)) {
        putMembers(json_, inventory_, *method);
        if (const Table* table = inventory_.tableOf(*method))
            putTable(*table);
    }
    json_.endObject();
}

void JsonListing::putTable(const Table& table)
{
    putDefault(json_, table);
    tableRowCount_ += table.rows.size();
    if (tableRowCount_ > mostTableRows) {
        json_.member("rows_left_out", std::uint64_t{table.rows.size()});
        return;
    }
    json_.key("rows");
    json_.beginArray();
    for (const TableRow& row : table.rows) {
        json_.beginObject();
        if (table.kind == TableKind::Ranges) {
            json_.member("from", row.lower);
            json_.member("to", row.upper);
        } else {
            json_.member("raw", row.lower);
        }
        if (table.kind == TableKind::Numeric)
            json_.member("physical", row.number);
        else
            json_.member("text", row.text);
        json_.endObject();
    }
    json_.endArray();
}

} // namespace

void renderJson(ConfigurationStream& stream, const Inventory& inventory, Selection& selection)
{
    JsonListing listing(stream, inventory);
    listing.beginSection("interfaces");
    for (const Interface& interface : inventory.interfaces)
        if (selection.hasName(protocolText(interface.protocol)))
            listing.put(interface);
    listing.endSection();
    listing.beginSection("sources");
    for (const Interface& interface : inventory.interfaces)
        for (const Source& source : interface.sources)
            if (selection.hasName(source.name))
                listing.put(interface, source);
    listing.endSection();
    listing.beginSection("measurements");
    inventory.forEachQuantity([&](const Quantity& quantity) {
        if (selection.has(inventory, quantity))
            listing.put(quantity);
    });
    listing.endSection();
    listing.end();
}

} // namespace tavo
