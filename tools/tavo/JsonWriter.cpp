#include "JsonWriter.h"

#include "text.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace tavo {

void JsonWriter::clear()
{
    buffer_.Clear();
    writer_.Reset(buffer_);
}

void JsonWriter::value(std::string_view text)
{
    const bool isAscii =
        std::none_of(text.begin(), text.end(), [](char c) { return (c & 0x80) != 0; });
    const std::string made = isAscii ? std::string() : toUtf8(text);
    const std::string_view valid = isAscii ? text : made;
    writer_.String(valid.data(), static_cast<rapidjson::SizeType>(valid.size()));
}

void JsonWriter::value(double number)
{
    if (!std::isfinite(number)) {
        null();
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

void JsonWriter::member(const char* name, const Cell& cell)
{
    if (const auto* pattern = std::get_if<Pattern>(&cell))
        member(name, pattern->bits);
    else if (const auto* integer = std::get_if<std::int64_t>(&cell))
        member(name, *integer);
    else if (const auto* real = std::get_if<double>(&cell))
        member(name, *real);
}

namespace {

/// An identifier as the pattern of its 32 bits.
void putIdentifier(JsonWriter& json, const char* name, const std::optional<std::int64_t>& number)
{
    if (number)
        json.member(name, std::uint64_t{static_cast<std::uint32_t>(*number)});
}

void put(JsonWriter& json, const Transport& transport)
{
    const auto textMember = [&](const char* name, std::string_view content) {
        if (!content.empty())
            json.member(name, content);
    };
    json.beginObject();
    json.member("kind", transportText(transport.kind));
    textMember("instance", transport.instance);
    textMember("address", transport.address);
    textMember("host_name", transport.hostName);
    textMember("ipv6", transport.ipv6);
    json.member("port", transport.port);
    putIdentifier(json, "master_id", transport.masterId);
    putIdentifier(json, "slave_id", transport.slaveId);
    json.member("bit_rate", transport.bitRate);
    json.member("data_bit_rate", transport.dataBitRate);
    if (transport.isCanFd)
        json.member("can_fd", true);
    json.endObject();
}

/// COEFFS as in the description, six for each set, or the two of COEFFS_LINEAR.
void putCoefficients(JsonWriter& json, const Method& method)
{
    if (!method.coefficients.empty()) {
        json.key("coefficients");
        json.beginArray();
        for (const Coefficients& set : method.coefficients)
            for (const double coefficient : {set.a, set.b, set.c, set.d, set.e, set.f})
                json.value(coefficient);
        json.endArray();
    }
    if (method.hasLinear) {
        json.key("linear_coefficients");
        json.beginArray();
        json.value(method.linearFactor);
        json.value(method.linearOffset);
        json.endArray();
    }
}

} // namespace

void putJson(JsonWriter& json, const Interface& interface)
{
    json.beginObject();
    json.member("name", protocolText(interface.protocol));
    json.member("protocol", protocolText(interface.protocol));
    putIdentifier(json, "master_id", interface.masterId);
    putIdentifier(json, "slave_id", interface.slaveId);
    json.member("station_address", interface.stationAddress);
    json.member("sources", std::uint64_t{interface.sources.size()});
    if (!interface.transports.empty()) {
        json.key("transports");
        json.beginArray();
        for (const Transport& transport : interface.transports)
            put(json, transport);
        json.endArray();
    }
    json.endObject();
}

void putJson(JsonWriter& json, const Interface& interface, const Source& source)
{
    json.beginObject();
    json.member("name", source.name);
    if (!source.description.empty())
        json.member("description", source.description);
    json.member("interface", protocolText(interface.protocol));
    json.member("rate", source.rate());
    json.member("channel", source.channel);
    json.member("period_ns", periodCell(source));
    json.endObject();
}

void putMembers(JsonWriter& json, const Inventory& inventory, const Method& method)
{
    if (!method.kindWord.empty())
        json.member("kind", method.kindWord);
    putCoefficients(json, method);
    if (method.hasFormula)
        json.member("formula", method.formula);
    if (!method.inverseFormula.empty())
        json.member("inverse_formula", method.inverseFormula);
    if (method.tableName != noIndex)
        json.member("table", inventory.tableNames.name(method.tableName));
}

void putDefault(JsonWriter& json, const Table& table)
{
    if (table.hasDefaultText)
        json.member("default", table.defaultText);
    else if (table.hasDefaultNumber)
        json.member("default", table.defaultNumber);
}

} // namespace tavo
