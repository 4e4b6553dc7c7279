#include "jsonListing.h"

#include "daq/ConfigurationStream.h"
#include "daq/losses.h"
#include "text.h"

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <charconv>
#include <cmath>
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
    void member(const char* key, std::string_view text);
    void member(const char* key, const char* text) { member(key, std::string_view(text)); }
    void member(const char* key, std::int64_t number);
    void member(const char* key, std::uint64_t number);
    void member(const char* key, double number);
    void member(const char* key, bool value);
    void member(const char* key, const Cell& cell);
    void member(const char* key, const Pattern64& pattern);
    void member(const char* key, const Limit& limit);
    template <class Value> void member(const char* key, const std::optional<Value>& value)
    {
        if (value)
            member(key, *value);
    }
    /// An identifier as the pattern of its 32 bits.
    void identifier(const char* key, const std::optional<std::int64_t>& number)
    {
        if (number)
            member(key, std::uint64_t{static_cast<std::uint32_t>(*number)});
    }
    void text(std::string_view text);
    void number(double number);
    void put(const Transport& transport);
    void putDetails(const Quantity& quantity);
    void putConversion(const Quantity& quantity);
    void putMethod(const Method& method);
    void putCoefficients(const Method& method);
    void putTable(const Table& table);

    ConfigurationStream& stream_;
    const Inventory& inventory_;
    rapidjson::StringBuffer buffer_;
    rapidjson::Writer<rapidjson::StringBuffer> writer_{buffer_};
    std::size_t tableRowCount_ = 0;
    bool isFirstSection_ = true;
    bool isFirstRow_ = true;
};

void JsonListing::beginRow()
{
    buffer_.Clear();
    writer_.Reset(buffer_);
    writer_.StartObject();
}

void JsonListing::endRow()
{
    writer_.EndObject();
    stream_.put(isFirstRow_ ? "\n    " : ",\n    ");
    stream_.put({buffer_.GetString(), buffer_.GetSize()});
    isFirstRow_ = false;
}

void JsonListing::text(std::string_view text)
{
    const std::string valid = toUtf8(text);
    writer_.String(valid.data(), static_cast<rapidjson::SizeType>(valid.size()));
}

/// The shortest form that reads back as the same double, with a point or an exponent, so that it
/// differs from an integer. JSON has no form for what is no number or infinite.
void JsonListing::number(double number)
{
    if (!std::isfinite(number)) {
        writer_.Null();
        return;
    }
    char digits[40];
    char* end = std::to_chars(digits, digits + 32, number).ptr;
    if (std::string_view(digits, static_cast<std::size_t>(end - digits)).find_first_of(".e") ==
        std::string_view::npos) {
        *end++ = '.';
        *end++ = '0';
    }
    writer_.RawValue(digits, static_cast<std::size_t>(end - digits), rapidjson::kNumberType);
}

void JsonListing::member(const char* key, std::string_view content)
{
    writer_.Key(key);
    text(content);
}

void JsonListing::member(const char* key, std::int64_t number)
{
    writer_.Key(key);
    writer_.Int64(number);
}

void JsonListing::member(const char* key, std::uint64_t number)
{
    writer_.Key(key);
    writer_.Uint64(number);
}

void JsonListing::member(const char* key, double content)
{
    writer_.Key(key);
    number(content);
}

void JsonListing::member(const char* key, bool value)
{
    writer_.Key(key);
    writer_.Bool(value);
}

/// A cell without a text in it.
void JsonListing::member(const char* key, const Cell& cell)
{
    if (const auto* pattern = std::get_if<Pattern>(&cell))
        member(key, pattern->bits);
    else if (const auto* integer = std::get_if<std::int64_t>(&cell))
        member(key, *integer);
    else if (const auto* real = std::get_if<double>(&cell))
        member(key, *real);
}

void JsonListing::member(const char* key, const Pattern64& pattern)
{
    member(key, patternCell(pattern));
    if (pattern.isGiven && pattern.isBeyond64) {
        writer_.Key(key);
        writer_.Null();
    }
}

void JsonListing::member(const char* key, const Limit& limit)
{
    if (limit.isGiven && limit.isInteger)
        member(key, static_cast<std::int64_t>(limit.value));
    else if (limit.isGiven)
        member(key, limit.value);
}

void JsonListing::put(const Transport& transport)
{
    const auto textMember = [this](const char* key, std::string_view content) {
        if (!content.empty())
            member(key, content);
    };
    writer_.StartObject();
    member("kind", transportText(transport.kind));
    textMember("instance", transport.instance);
    textMember("address", transport.address);
    textMember("host_name", transport.hostName);
    textMember("ipv6", transport.ipv6);
    member("port", transport.port);
    identifier("master_id", transport.masterId);
    identifier("slave_id", transport.slaveId);
    member("bit_rate", transport.bitRate);
    member("data_bit_rate", transport.dataBitRate);
    if (transport.isCanFd)
        member("can_fd", true);
    writer_.EndObject();
}

void JsonListing::put(const Interface& interface)
{
    beginRow();
    member("name", protocolText(interface.protocol));
    member("protocol", protocolText(interface.protocol));
    identifier("master_id", interface.masterId);
    identifier("slave_id", interface.slaveId);
    member("station_address", interface.stationAddress);
    member("sources", std::uint64_t{interface.sources.size()});
    if (!interface.transports.empty()) {
        writer_.Key("transports");
        writer_.StartArray();
        for (const Transport& transport : interface.transports)
            put(transport);
        writer_.EndArray();
    }
    endRow();
}

void JsonListing::put(const Interface& interface, const Source& source)
{
    beginRow();
    member("name", source.name);
    if (!source.description.empty())
        member("description", source.description);
    member("interface", protocolText(interface.protocol));
    member("rate", source.rate());
    member("channel", source.channel);
    member("period_ns", periodCell(source));
    endRow();
}

void JsonListing::put(const Quantity& quantity)
{
    beginRow();
    member("name", quantity.name);
    member("description", quantity.description);
    member("address", quantity.address);
    member("address_extension", quantity.addressExtension);
    member("type", dataTypeText(quantity.type));
    if (const char* order = byteOrderText(inventory_.byteOrderOf(quantity)))
        member("byte_order", order);
    member("bit_mask", quantity.bitMask);
    member("min", quantity.lower);
    member("max", quantity.upper);
    member("unit", inventory_.unitOf(quantity));
    const Method* method = inventory_.methodOf(quantity);
    const Line line = method ? method->line : Line();
    if (line.isWritten) {
        member("factor", line.factor);
        member("offset", line.offset);
    }
    putDetails(quantity);
    putConversion(quantity);
    if (quantity.isVirtual)
        member("virtual", true);
    const Obstacle obstacle = obstacleOf(inventory_, quantity);
    if (obstacle != Obstacle::None)
        member("left_out", obstacleText(obstacle));
    endRow();
}

void JsonListing::putDetails(const Quantity& quantity)
{
    const QuantityDetails& details = inventory_.detailsOf(quantity);
    if (!details.dimensions.empty()) {
        writer_.Key("dimensions");
        writer_.StartArray();
        for (const std::uint64_t dimension : details.dimensions)
            writer_.Uint64(dimension);
        writer_.EndArray();
    }
    if (!details.layout.empty())
        member("layout", details.layout);
    if (!details.events.empty()) {
        writer_.Key("events");
        writer_.StartArray();
        for (const std::uint32_t channel : details.events)
            writer_.Uint(channel);
        writer_.EndArray();
    }
    if (details.hasSymbol) {
        member("symbol", details.symbol);
        if (details.symbolOffset != 0)
            member("symbol_offset", details.symbolOffset);
    }
    if (details.hasDisplayName)
        member("display_name", details.displayName);
}

/// The conversion that the quantity names; its name alone if it is defined nowhere.
void JsonListing::putConversion(const Quantity& quantity)
{
    const std::optional<std::string_view> name = conversionName(inventory_, quantity);
    if (!name)
        return;
    writer_.Key("conversion");
    writer_.StartObject();
    member("name", *name);
    if (const Method* method = inventory_.methodOf(quantity))
        putMethod(*method);
    writer_.EndObject();
}

void JsonListing::putMethod(const Method& method)
{
    if (!method.kindWord.empty())
        member("kind", method.kindWord);
    putCoefficients(method);
    if (method.hasFormula)
        member("formula", method.formula);
    if (!method.inverseFormula.empty())
        member("inverse_formula", method.inverseFormula);
    if (method.tableName != noIndex)
        member("table", inventory_.tableNames.name(method.tableName));
    if (const Table* table = inventory_.tableOf(method))
        putTable(*table);
}

/// COEFFS as in the description, six for each set, or the two of COEFFS_LINEAR.
void JsonListing::putCoefficients(const Method& method)
{
    if (!method.coefficients.empty()) {
        writer_.Key("coefficients");
        writer_.StartArray();
        for (const Coefficients& set : method.coefficients)
            for (const double coefficient : {set.a, set.b, set.c, set.d, set.e, set.f})
                number(coefficient);
        writer_.EndArray();
    }
    if (method.hasLinear) {
        writer_.Key("linear_coefficients");
        writer_.StartArray();
        number(method.linearFactor);
        number(method.linearOffset);
        writer_.EndArray();
    }
}

void JsonListing::putTable(const Table& table)
{
    if (table.hasDefaultText)
        member("default", table.defaultText);
    else if (table.hasDefaultNumber)
        member("default", table.defaultNumber);
    tableRowCount_ += table.rows.size();
    if (tableRowCount_ > mostTableRows) {
        member("rows_left_out", std::uint64_t{table.rows.size()});
        return;
    }
    writer_.Key("rows");
    writer_.StartArray();
    for (const TableRow& row : table.rows) {
        writer_.StartObject();
        if (table.kind == TableKind::Ranges) {
            member("from", row.lower);
            member("to", row.upper);
        } else {
            member("raw", row.lower);
        }
        if (table.kind == TableKind::Numeric)
            member("physical", row.number);
        else
            member("text", row.text);
        writer_.EndObject();
    }
    writer_.EndArray();
}

} // namespace

void renderJson(ConfigurationStream& stream, const Inventory& inventory, const Choice& isChosen)
{
    JsonListing listing(stream, inventory);
    listing.beginSection("interfaces");
    for (const Interface& interface : inventory.interfaces)
        if (isChosen(protocolText(interface.protocol)))
            listing.put(interface);
    listing.endSection();
    listing.beginSection("sources");
    for (const Interface& interface : inventory.interfaces)
        for (const Source& source : interface.sources)
            if (isChosen(source.name))
                listing.put(interface, source);
    listing.endSection();
    listing.beginSection("measurements");
    inventory.forEachQuantity([&](const Quantity& quantity) {
        if (isChosen(quantity.name))
            listing.put(quantity);
    });
    listing.endSection();
    listing.end();
}

} // namespace tavo
