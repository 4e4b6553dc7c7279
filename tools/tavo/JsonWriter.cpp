#include "JsonWriter.h"

#include "text.h"

#include <array>
#include <cmath>

namespace tavo {

namespace {

/// What JSON has to escape in a text: 'u' for a code, another character for a short form, 0 for
/// nothing at all.
constexpr std::array<char, 256> escapes = [] {
    std::array<char, 256> table{};
    for (std::size_t control = 0; control < 0x20; ++control)
        table[control] = 'u';
    table['\b'] = 'b';
    table['\t'] = 't';
    table['\n'] = 'n';
    table['\f'] = 'f';
    table['\r'] = 'r';
    table['"'] = '"';
    table['\\'] = '\\';
    return table;
}();

} // namespace

void JsonWriter::value(std::string_view text)
{
    separate();
    text_.push_back('"');
    if (isPlain<'"', '\\'>(text)) {
        text_.append(text).push_back('"');
        return;
    }
    const std::string valid = toUtf8(text);
    std::size_t begin = 0; // of what goes out as it is
    for (std::size_t i = 0; i < valid.size(); ++i) {
        const auto byte = static_cast<unsigned char>(valid[i]);
        if (escapes[byte] == 0)
            continue;
        constexpr const char* digits = "0123456789ABCDEF";
        text_.append(valid, begin, i - begin).push_back('\\');
        text_.push_back(escapes[byte]);
        if (escapes[byte] == 'u')
            text_.append("00").append({digits[byte >> 4U], digits[byte & 0xFU]});
        begin = i + 1;
    }
    text_.append(valid, begin).push_back('"');
}

void JsonWriter::value(double number)
{
    if (!std::isfinite(number)) {
        null();
        return;
    }
    Digits digits(number);
    if (digits.text().find_first_of(".e") == std::string_view::npos)
        digits.append(".0");
    raw(digits.text());
}

void JsonWriter::member(const char* name, const CellView& cell)
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
    if (const std::optional<double> period = source.periodInNanoseconds())
        json.member("period", std::string_view(periodText(*period)));
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
