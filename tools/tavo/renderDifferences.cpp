#include "renderDifferences.h"

#include "JsonWriter.h"
#include "base/Notices.h"
#include "daq/ConfigurationStream.h"
#include "summary.h"
#include "text.h"

#include <charconv>

namespace tavo {

namespace {

constexpr const char* colorOf(Change change)
{
    switch (change) {
    case Change::Added:
        return "\x1b[32m"; // green
    case Change::Gone:
        return "\x1b[31m"; // red
    case Change::Renamed:
        return "\x1b[36m"; // cyan
    case Change::Moved:
    case Change::Changed:
        break;
    }
    return "\x1b[33m"; // yellow
}
constexpr const char* colorsOff = "\x1b[0m";

template <class... Format> std::string numberText(Format... number)
{
    char digits[32];
    return {digits, std::to_chars(digits, digits + sizeof digits, number...).ptr};
}

std::string textOf(const Cell& cell)
{
    if (const auto* text = std::get_if<std::string>(&cell))
        return printable(*text);
    if (const auto* pattern = std::get_if<Pattern>(&cell))
        return joined({"0x", numberText(pattern->bits, 16)});
    if (const auto* integer = std::get_if<std::int64_t>(&cell))
        return numberText(*integer);
    return numberText(std::get<double>(cell));
}

std::string periodText(const std::vector<Cell>& period)
{
    if (period.empty())
        return "nothing";
    const auto* integer = std::get_if<std::int64_t>(&period.front());
    return tavo::periodText(integer ? static_cast<double>(*integer)
                                    : std::get<double>(period.front()));
}

/// "max 8000 -> 9000"
std::string textOf(const PropertyChange& property)
{
    if (property.before.empty() && property.after.empty())
        return property.name; // which differ, and nobody has compared them one by one
    if (property.name == std::string_view("period_ns"))
        return joined({"period ", periodText(property.before), " -> ", periodText(property.after)});
    return joined({property.name, " ", textOf(property, property.before), " -> ",
                   textOf(property, property.after)});
}

std::string lineOf(const Differences& differences, const Difference& difference, bool hasColors)
{
    std::string word = changeText(difference.change);
    const std::string blanks(9 - word.size(), ' ');
    if (hasColors)
        word = colorOf(difference.change) + word + colorsOff;
    std::string line = word + blanks + difference.kind() + " ";
    if (std::holds_alternative<Pair<Source>>(difference.objects))
        line.append(interfaceName(difference.protocol)).append(" ");
    if (difference.change == Change::Renamed)
        line += printable(difference.formerName()) + " -> ";
    line += printable(difference.name());
    const char* gap = ": ";
    for (const PropertyChange& property : differences.propertiesOf(difference)) {
        line.append(gap).append(textOf(property));
        gap = ", ";
    }
    return line + "\n";
}

void put(JsonWriter& json, const Cell& cell)
{
    if (const auto* text = std::get_if<std::string>(&cell))
        json.value(std::string_view(*text));
    else if (const auto* pattern = std::get_if<Pattern>(&cell))
        json.value(pattern->bits);
    else if (const auto* integer = std::get_if<std::int64_t>(&cell))
        json.value(*integer);
    else
        json.value(std::get<double>(cell));
}

void put(JsonWriter& json, const char* name, const std::vector<Cell>& value, Form form)
{
    json.key(name);
    if (form != Form::List) {
        if (value.empty())
            json.null();
        else
            put(json, value.front());
        return;
    }
    json.beginArray();
    for (const Cell& cell : value)
        put(json, cell);
    json.endArray();
}

void put(JsonWriter& json, const Differences& differences, const Difference& difference)
{
    json.beginObject();
    json.member("kind", difference.kind());
    json.member("change", changeText(difference.change));
    json.member("name", difference.name());
    if (difference.change == Change::Renamed)
        json.member("former_name", difference.formerName());
    if (std::holds_alternative<Pair<Source>>(difference.objects))
        json.member("interface", interfaceName(difference.protocol));
    if (difference.properties != 0) {
        json.key("values");
        json.beginObject();
        for (const PropertyChange& property : differences.propertiesOf(difference)) {
            json.key(property.name);
            json.beginObject();
            put(json, "old", property.before, property.form);
            put(json, "new", property.after, property.form);
            json.endObject();
        }
        json.endObject();
    }
    json.endObject();
}

template <class Visit>
void forEachShown(const Differences& differences, const ChangeSet& shown, Visit visit)
{
    for (const Difference& difference : differences.all())
        if (shown[static_cast<std::size_t>(difference.change)])
            visit(difference);
}

} // namespace

std::string textOf(const PropertyChange& property, const std::vector<Cell>& value)
{
    constexpr std::size_t most = 6;
    if (value.empty())
        return "nothing";
    if (property.form == Form::Text)
        return joined({"\"", textOf(value.front()), "\""});
    std::string text;
    for (std::size_t i = 0; i < value.size() && i < most; ++i) {
        if (i > 0)
            text += std::holds_alternative<std::string>(value[i]) ? "; " : " ";
        text += textOf(value[i]);
    }
    if (value.size() > most)
        text += " and " + std::to_string(value.size() - most) + " more";
    return text;
}

void renderDifferences(ConfigurationStream& stream, const Differences& differences,
                       const ChangeSet& shown, bool hasColors)
{
    forEachShown(differences, shown, [&](const Difference& difference) {
        stream.put(lineOf(differences, difference, hasColors));
    });
}

void renderDifferencesJson(ConfigurationStream& stream, const Differences& differences,
                           const ChangeSet& shown)
{
    JsonWriter json;
    const char* gap = "{\n  \"differences\": [\n    ";
    forEachShown(differences, shown, [&](const Difference& difference) {
        json.clear();
        put(json, differences, difference);
        stream.put(gap);
        stream.put(json.json());
        gap = ",\n    ";
    });
    const bool isEmpty = countOf(differences, shown) == 0;
    stream.put(isEmpty ? "{\n  \"differences\": [],\n  \"counts\": " : "\n  ],\n  \"counts\": ");
    json.clear();
    json.beginObject();
    for (std::size_t i = 0; i < changeCount; ++i)
        if (shown[i])
            json.member(changeText(static_cast<Change>(i)),
                        std::uint64_t{differences.count(static_cast<Change>(i))});
    json.endObject();
    stream.put(json.json());
    stream.put("\n}\n");
}

std::size_t countOf(const Differences& differences, const ChangeSet& shown)
{
    std::size_t count = 0;
    for (std::size_t i = 0; i < changeCount; ++i)
        if (shown[i])
            count += differences.count(static_cast<Change>(i));
    return count;
}

std::string summaryOf(const Differences& differences, const ChangeSet& shown)
{
    if (countOf(differences, shown) == 0)
        return "No differences";
    std::string text;
    for (std::size_t i = 0; i < changeCount; ++i)
        if (shown[i]) {
            const auto change = static_cast<Change>(i);
            text += (text.empty() ? "" : ", ") + grouped(differences.count(change)) + " " +
                    changeText(change);
        }
    return text;
}

} // namespace tavo
