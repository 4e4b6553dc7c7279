#include "render.h"

#include "daq/ConfigurationStream.h"
#include "text.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <charconv>
#include <string_view>
#include <type_traits>

namespace tavo {

namespace {

template <class... Format> std::string numberText(Format... number)
{
    char digits[32];
    return {digits, std::to_chars(digits, digits + sizeof digits, number...).ptr};
}

/// A double has as many digits as it takes to tell it from its neighbours.
std::string cellText(const Cell& cell)
{
    return std::visit(
        [](const auto& content) -> std::string {
            using Content = std::decay_t<decltype(content)>;
            if constexpr (std::is_same_v<Content, std::monostate>)
                return {};
            else if constexpr (std::is_same_v<Content, std::string>)
                return content;
            else if constexpr (std::is_same_v<Content, Pattern>)
                return "0x" + numberText(content.bits, 16);
            else
                return numberText(content);
        },
        cell);
}

/// A section's columns of the short form, with the names on top.
class TextTable
{
public:
    explicit TextTable(const Section& section) : section_(section)
    {
        for (std::size_t i = 0; i < section.columns.size(); ++i) {
            if (!section.columns[i].isShort)
                continue;
            ShownColumn column = {i, widthOf(section.columns[i].name), false};
            for (const std::vector<Cell>& row : section.rows) {
                column.width = std::max(column.width, widthOf(shownText(row[i])));
                column.isText |= std::holds_alternative<std::string>(row[i]);
            }
            columns_.push_back(column);
        }
    }

    void put(ConfigurationStream& stream) const
    {
        putLine(stream, [&](std::size_t i) { return std::string(section_.columns[i].name); });
        for (const std::vector<Cell>& row : section_.rows)
            putLine(stream, [&](std::size_t i) { return shownText(row[i]); });
    }

private:
    struct ShownColumn
    {
        std::size_t index;
        std::size_t width;
        bool isText; ///< Numbers stand at the right of their column.
    };

    static std::string shownText(const Cell& cell) { return printable(cellText(cell)); }
    static std::size_t widthOf(const std::string& text) { return characters(text).size(); }

    template <class TextOf> void putLine(ConfigurationStream& stream, TextOf textOf) const
    {
        std::string line;
        for (const ShownColumn& column : columns_) {
            const std::string text = textOf(column.index);
            const std::string blanks(column.width - widthOf(text), ' ');
            line += "  " + (column.isText ? text + blanks : blanks + text);
        }
        line.erase(line.find_last_not_of(' ') + 1);
        stream.put(line + "\n");
    }

    const Section& section_;
    std::vector<ShownColumn> columns_;
};

std::string csvField(const std::string& text)
{
    if (text.find_first_of(",\"\r\n") == std::string::npos)
        return text;
    std::string field = "\"";
    for (const char character : text) {
        if (character == '"')
            field.push_back('"');
        field.push_back(character);
    }
    return field + "\"";
}

constexpr const char* csvLineEnd = "\r\n";

nlohmann::json jsonValue(const Cell& cell)
{
    return std::visit(
        [](const auto& content) -> nlohmann::json {
            using Content = std::decay_t<decltype(content)>;
            if constexpr (std::is_same_v<Content, std::monostate>)
                return nullptr;
            else if constexpr (std::is_same_v<Content, Pattern>)
                return content.bits;
            else
                return content;
        },
        cell);
}

std::string jsonRow(const Section& section, const std::vector<Cell>& row)
{
    nlohmann::ordered_json object = nlohmann::ordered_json::object();
    for (std::size_t i = 0; i < row.size(); ++i)
        if (!std::holds_alternative<std::monostate>(row[i]))
            object[section.columns[i].name] = jsonValue(row[i]);
    return object.dump();
}

} // namespace

void renderTable(ConfigurationStream& stream, const std::vector<Section>& listing)
{
    const char* gap = "";
    for (const Section& section : listing) {
        if (section.rows.empty())
            continue;
        stream.put(gap);
        stream.put(std::to_string(section.rows.size()) + " ");
        stream.put(section.rows.size() == 1 ? section.kind : section.plural);
        stream.put("\n");
        TextTable(section).put(stream);
        gap = "\n";
    }
}

void renderCsv(ConfigurationStream& stream, const std::vector<Section>& listing)
{
    std::vector<std::string_view> columns;
    for (const Section& section : listing)
        for (const Column& column : section.columns)
            if (std::find(columns.begin(), columns.end(), column.name) == columns.end())
                columns.push_back(column.name);
    stream.put("kind");
    for (const std::string_view column : columns) {
        stream.put(",");
        stream.put(column);
    }
    stream.put(csvLineEnd);
    for (const Section& section : listing) {
        std::vector<std::size_t> places;
        for (const Column& column : section.columns)
            places.push_back(static_cast<std::size_t>(
                std::find(columns.begin(), columns.end(), column.name) - columns.begin()));
        for (const std::vector<Cell>& row : section.rows) {
            std::vector<std::string> fields(columns.size());
            for (std::size_t i = 0; i < row.size(); ++i)
                fields[places[i]] = csvField(cellText(row[i]));
            stream.put(section.kind);
            for (const std::string& field : fields) {
                stream.put(",");
                stream.put(field);
            }
            stream.put(csvLineEnd);
        }
    }
}

void renderJson(ConfigurationStream& stream, const std::vector<Section>& listing)
{
    const char* sectionGap = "{";
    for (const Section& section : listing) {
        stream.put(sectionGap);
        stream.put("\n  \"");
        stream.put(section.plural);
        stream.put("\": [");
        const char* rowGap = "";
        for (const std::vector<Cell>& row : section.rows) {
            stream.put(rowGap);
            stream.put("\n    ");
            stream.put(jsonRow(section, row));
            rowGap = ",";
        }
        stream.put(section.rows.empty() ? "]" : "\n  ]");
        sectionGap = ",";
    }
    stream.put("\n}\n");
}

} // namespace tavo
