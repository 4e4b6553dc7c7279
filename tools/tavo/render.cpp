#include "render.h"

#include "Digits.h"
#include "daq/ConfigurationStream.h"
#include "text.h"

#include <algorithm>
#include <bit>
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

/// In valid UTF-8, and in quotes where it has to be.
std::string csvField(std::string_view text)
{
    std::string field = toUtf8(text);
    if (field.find_first_of(",\"\r\n") == std::string::npos)
        return field;
    for (std::size_t quote = 0; (quote = field.find('"', quote)) != std::string::npos; quote += 2)
        field.insert(quote, 1, '"');
    return field.insert(0, 1, '"').append("\"");
}

/// Each number as a text, made anew only if another one was there in the meantime that shares its
/// place: factors and limits come again and again.
class NumberTexts
{
public:
    std::string_view of(double number)
    {
        const auto bits = std::bit_cast<std::uint64_t>(number);
        Entry& entry = entries_[(bits * 0x9E3779B97F4A7C15U) >> 52U];
        if (entry.bits != bits || entry.digits.text().empty())
            entry = {bits, Digits(number)};
        return entry.digits.text();
    }

private:
    struct Entry
    {
        std::uint64_t bits = 0;
        Digits digits;
    };

    std::vector<Entry> entries_ = std::vector<Entry>(4096);
};

/// A column that a section has, and what stands before it: the end of the column before, commas for
/// what the section hasn't, and what is the same in each row.
struct CsvPart
{
    std::string before;
    const Column* column = nullptr; ///< Null for the end of the row.
};

std::vector<CsvPart> csvParts(const Section& section, const std::vector<std::string_view>& columns,
                              const std::string& file)
{
    std::vector<CsvPart> parts(1);
    for (std::size_t i = 0; i < columns.size(); ++i) {
        std::string& before = parts.back().before;
        before.append(i > 0 ? "," : "");
        if (columns[i] == kindColumn)
            before.append(section.kind);
        else if (columns[i] == fileColumn)
            before.append(csvField(file));
        parts.back().column = section.column(columns[i]);
        if (parts.back().column)
            parts.emplace_back();
    }
    parts.back().before.append(csvLineEnd);
    return parts;
}

void putCsv(ConfigurationStream& stream, const CellView& cell, NumberTexts& numbers)
{
    if (const auto* text = std::get_if<std::string_view>(&cell)) {
        if (isPlain<',', '"'>(*text)) {
            stream.put(*text);
        } else if (isPlain<'"'>(*text)) {
            stream.put("\"");
            stream.put(*text);
            stream.put("\"");
        } else {
            stream.put(csvField(*text));
        }
    } else if (const auto* number = std::get_if<double>(&cell)) {
        stream.put(numbers.of(*number));
    } else if (!std::holds_alternative<std::monostate>(cell)) {
        withText(cell, [&stream](std::string_view digits) { stream.put(digits); });
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
    NumberTexts numbers;
    std::string scratch;
    for (const Section& section : sections()) {
        const std::vector<CsvPart> parts = csvParts(section, columns, file);
        const std::size_t count = section.count(listing);
        for (std::size_t row = 0; row < count; ++row)
            for (const CsvPart& part : parts) {
                stream.put(part.before);
                if (!part.column)
                    continue;
                scratch.clear();
                putCsv(stream, part.column->cell(listing, row, scratch), numbers);
            }
    }
}

} // namespace tavo
