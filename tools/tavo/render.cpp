#include "render.h"

#include "Digits.h"
#include "daq/ConfigurationStream.h"
#include "text.h"

#include <algorithm>
#include <string_view>

namespace tavo {

namespace {

/// Hands the text of the cell to `visit`, in valid UTF-8; nothing at all is "".
template <class Visit> void withText(const CellView& cell, Visit visit)
{
    if (const auto* text = std::get_if<std::string_view>(&cell)) {
        if (isAscii(*text))
            visit(*text);
        else
            visit(std::string_view(toUtf8(*text)));
    } else if (const auto* integer = std::get_if<std::int64_t>(&cell)) {
        visit(Digits(*integer).text());
    } else if (const auto* real = std::get_if<double>(&cell)) {
        visit(Digits(*real).text());
    } else if (const auto* pattern = std::get_if<Pattern>(&cell)) {
        visit(Digits(*pattern).text());
    } else {
        visit(std::string_view());
    }
}

/// A section's columns, with the names on top.
class TextTable
{
public:
    TextTable(const Listing& listing, const Section& section, const ListingForm& form)
        : listing_(listing), section_(section), rowCount_(section.count(listing))
    {
        if (form.columns.empty()) {
            for (const Column& column : section.columns)
                if (column.isShort)
                    columns_.push_back({&column});
        } else {
            for (const std::string& name : form.columns)
                if (const Column* column = section.column(name))
                    columns_.push_back({column});
        }
        listing.rowCount = 0;
        for (std::size_t row = 0; row < rowCount_; ++row)
            for (ShownColumn& column : columns_) {
                const CellView cell = cellOf(column, row);
                column.width = std::max(column.width, characterCount(shown(cell)));
                column.isText |= std::holds_alternative<std::string_view>(cell);
                column.hasContent |= !std::holds_alternative<std::monostate>(cell);
            }
        listing.rowCount = 0;
        // What nobody has asked for is shown if there is anything to show.
        if (form.columns.empty())
            std::erase_if(columns_, [](const ShownColumn& column) { return !column.hasContent; });
        for (ShownColumn& column : columns_)
            column.width = std::max(column.width, std::string_view(column.column->name).size());
    }

    bool isEmpty() const { return rowCount_ == 0 || columns_.empty(); }

    void put(ConfigurationStream& stream)
    {
        stream.put(std::to_string(rowCount_));
        stream.put(" ");
        stream.put(rowCount_ == 1 ? section_.kind : section_.plural);
        stream.put("\n");
        putLine(stream, [](const ShownColumn& column) { return std::string(column.column->name); });
        for (std::size_t row = 0; row < rowCount_; ++row)
            putLine(stream, [&](const ShownColumn& column) { return shown(cellOf(column, row)); });
    }

private:
    struct ShownColumn
    {
        const Column* column;
        std::size_t width = 0;
        bool isText = false; ///< Numbers stand at the right of their column.
        bool hasContent = false;
    };

    /// Valid up to the next call.
    CellView cellOf(const ShownColumn& column, std::size_t row)
    {
        scratch_.clear();
        return column.column->cell(listing_, row, scratch_);
    }

    static std::string shown(const CellView& cell)
    {
        std::string shown;
        withText(cell, [&shown](std::string_view text) { shown = printable(text); });
        return shown;
    }

    template <class TextOf> void putLine(ConfigurationStream& stream, TextOf textOf) const
    {
        std::string line;
        for (const ShownColumn& column : columns_) {
            const std::string text = textOf(column);
            const std::size_t blanks = column.width - characterCount(text);
            line.append("  ").append(column.isText ? 0 : blanks, ' ').append(text);
            line.append(column.isText ? blanks : 0, ' ');
        }
        line.erase(line.find_last_not_of(' ') + 1);
        stream.put(line);
        stream.put("\n");
    }

    const Listing& listing_;
    const Section& section_;
    std::size_t rowCount_;
    std::vector<ShownColumn> columns_;
    std::string scratch_;
};

constexpr std::string_view kindColumn = "kind";
constexpr std::string_view fileColumn = "file";

/// The columns of all sections that are listed, each once.
std::vector<std::string_view> csvColumns(const KindSet& kinds, const ListingForm& form)
{
    if (!form.columns.empty())
        return {form.columns.begin(), form.columns.end()};
    std::vector<std::string_view> columns;
    if (form.hasFiles)
        columns.push_back(fileColumn);
    columns.push_back(kindColumn);
    for (std::size_t i = 0; i < listedKindCount; ++i)
        if (kinds[i])
            for (const Column& column : sections()[i].columns)
                if (std::find(columns.begin(), columns.end(), column.name) == columns.end())
                    columns.emplace_back(column.name);
    return columns;
}

constexpr const char* csvLineEnd = "\r\n";

/// Valid UTF-8, in quotes where it has to be.
void putCsv(ConfigurationStream& stream, std::string_view text)
{
    const auto isSpecial = [](char c) { return c == ',' || c == '"' || c == '\r' || c == '\n'; };
    if (std::none_of(text.begin(), text.end(), isSpecial)) {
        stream.put(text);
        return;
    }
    stream.put("\"");
    for (std::size_t quote; (quote = text.find('"')) != std::string_view::npos;) {
        stream.put(text.substr(0, quote + 1));
        stream.put("\"");
        text.remove_prefix(quote + 1);
    }
    stream.put(text);
    stream.put("\"");
}

void putCsv(ConfigurationStream& stream, const Listing& listing, const Section& section,
            const std::vector<std::string_view>& columns, const std::string& file)
{
    std::vector<const Column*> cells;
    for (const std::string_view name : columns)
        cells.push_back(section.column(name));
    std::string scratch;
    const std::size_t count = section.count(listing);
    for (std::size_t row = 0; row < count; ++row) {
        for (std::size_t i = 0; i < columns.size(); ++i) {
            if (i > 0)
                stream.put(",");
            if (const Column* column = cells[i]) {
                scratch.clear();
                withText(column->cell(listing, row, scratch),
                         [&](std::string_view text) { putCsv(stream, text); });
            } else if (columns[i] == kindColumn) {
                stream.put(section.kind);
            } else if (columns[i] == fileColumn) {
                putCsv(stream, file);
            }
        }
        stream.put(csvLineEnd);
    }
}

} // namespace

bool isColumn(std::string_view name)
{
    return name == kindColumn || name == fileColumn ||
           std::any_of(sections().begin(), sections().end(),
                       [name](const Section& section) { return section.column(name) != nullptr; });
}

void renderTable(ConfigurationStream& stream, const Listing& listing, const ListingForm& form,
                 const std::string& file)
{
    const char* gap = "";
    if (form.hasFiles) {
        stream.put(printable(file));
        stream.put("\n");
        gap = "\n";
    }
    for (const Section& section : sections()) {
        TextTable table(listing, section, form);
        if (table.isEmpty())
            continue;
        stream.put(gap);
        table.put(stream);
        gap = "\n";
    }
    if (form.hasFiles)
        stream.put("\n");
}

void renderCsvHeader(ConfigurationStream& stream, const KindSet& kinds, const ListingForm& form)
{
    const char* gap = "";
    for (const std::string_view column : csvColumns(kinds, form)) {
        stream.put(gap);
        stream.put(column);
        gap = ",";
    }
    stream.put(csvLineEnd);
}

void renderCsv(ConfigurationStream& stream, const Listing& listing, const ListingForm& form,
               const std::string& file)
{
    const std::vector<std::string_view> columns = csvColumns(listing.kinds, form);
    for (const Section& section : sections())
        putCsv(stream, listing, section, columns, toUtf8(file));
}

} // namespace tavo
