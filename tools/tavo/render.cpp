#include "render.h"

#include "daq/ConfigurationStream.h"
#include "text.h"

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

/// A double has as many digits as distinguish it from its neighbours.
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

/// A section's columns of the short form, with the names on top. A column without any content isn't
/// shown.
class TextTable
{
public:
    explicit TextTable(const Section& section) : section_(section)
    {
        std::vector<ShownColumn> columns(section.columns.size());
        section.forEachRow([&](const Row& row) {
            ++rowCount_;
            for (std::size_t i = 0; i < row.size(); ++i) {
                columns[i].width = std::max(columns[i].width, widthOf(shownText(row[i])));
                columns[i].isText |= std::holds_alternative<std::string>(row[i]);
                columns[i].hasContent |= !std::holds_alternative<std::monostate>(row[i]);
            }
        });
        for (std::size_t i = 0; i < columns.size(); ++i)
            if (section.columns[i].isShort && columns[i].hasContent) {
                columns[i].index = i;
                columns[i].width = std::max(columns[i].width, widthOf(section.columns[i].name));
                columns_.push_back(columns[i]);
            }
    }

    std::size_t rowCount() const { return rowCount_; }

    void put(ConfigurationStream& stream) const
    {
        putLine(stream, [&](std::size_t i) { return std::string(section_.columns[i].name); });
        section_.forEachRow([&](const Row& row) {
            putLine(stream, [&](std::size_t i) { return shownText(row[i]); });
        });
    }

private:
    struct ShownColumn
    {
        std::size_t index = 0;
        std::size_t width = 0;
        bool isText = false; ///< Numbers stand at the right of their column.
        bool hasContent = false;
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
    std::size_t rowCount_ = 0;
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

} // namespace

void renderTable(ConfigurationStream& stream, const std::vector<Section>& listing)
{
    const char* gap = "";
    for (const Section& section : listing) {
        const TextTable table(section);
        if (table.rowCount() == 0)
            continue;
        stream.put(gap);
        stream.put(std::to_string(table.rowCount()) + " ");
        stream.put(table.rowCount() == 1 ? section.kind : section.plural);
        stream.put("\n");
        table.put(stream);
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
    std::vector<std::string> fields(columns.size());
    for (const Section& section : listing) {
        std::vector<std::size_t> places;
        for (const Column& column : section.columns)
            places.push_back(static_cast<std::size_t>(
                std::find(columns.begin(), columns.end(), column.name) - columns.begin()));
        for (std::string& field : fields)
            field.clear();
        section.forEachRow([&](const Row& row) {
            for (std::size_t i = 0; i < row.size(); ++i)
                fields[places[i]] = csvField(cellText(row[i]));
            stream.put(section.kind);
            for (const std::string& field : fields) {
                stream.put(",");
                stream.put(field);
            }
            stream.put(csvLineEnd);
        });
    }
}

} // namespace tavo
