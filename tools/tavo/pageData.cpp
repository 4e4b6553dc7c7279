#include "pageData.h"

#include "JsonWriter.h"
#include "PageColumn.h"
#include "daq/ConfigurationStream.h"
#include "daq/losses.h"
#include "differences.h"
#include "renderDifferences.h"
#include "version.h"

#include <string>

namespace tavo {

namespace {

/// The largest integer up to which a double holds all.
constexpr std::uint64_t mostExact = std::uint64_t{1} << 53U;

/// Patterns as numbers, or as texts if a double doesn't hold them; "" if 64 bits don't either.
/// Addresses are numbers that are added to the one before.
void putPattern(PageColumn& column, const Pattern64& pattern, std::int64_t* last = nullptr)
{
    const CellView cell = patternCell(pattern);
    const auto* bits = std::get_if<Pattern>(&cell);
    if (bits && bits->bits <= mostExact) {
        const auto number = static_cast<std::int64_t>(bits->bits);
        column.put(last ? number - *last : number);
        if (last)
            *last = number;
    } else if (bits) {
        column.put(std::string_view(std::to_string(bits->bits)));
    } else if (const auto* negative = std::get_if<std::int64_t>(&cell)) {
        column.put(std::string_view(std::to_string(*negative)));
    } else if (pattern.isGiven) {
        column.put(std::string_view());
    } else {
        column.putNone();
    }
}

/// How many characters of ASCII the names begin with in common.
std::size_t commonLength(std::string_view first, std::string_view second)
{
    std::size_t length = 0;
    while (length < first.size() && length < second.size() && first[length] == second[length] &&
           static_cast<unsigned char>(first[length]) < 0x80)
        ++length;
    return length;
}

template <class Numbers> std::string joinedNumbers(const Numbers& numbers, const char* separator)
{
    std::string text;
    for (const auto number : numbers)
        text.append(text.empty() ? "" : separator).append(std::to_string(number));
    return text;
}

class PageData
{
public:
    PageData(ConfigurationStream& stream, const Inventory& inventory)
        : stream_(stream),
          inventory_(inventory),
          conversionNumbers_(inventory.methodNames.size(), noIndex),
          tableNumbers_(inventory.tables.size(), noIndex)
    {
    }

    void putHead(std::string_view title);
    void putInterfaces();
    void putConversions();
    void putNames();
    void putColumns();
    void putDifferences(const PageComparison& comparison);

private:
    /// A column of what `put` puts for each quantity.
    template <class Put> void putColumn(const char* name, Put put)
    {
        PageColumn column(stream_, name);
        inventory_.forEachQuantity([&](const Quantity& quantity) { put(column, quantity); });
    }
    void putTexts();
    void putNumbers();
    void putDetails();
    void putConversion(std::uint32_t name);
    void putTable(const Table& table);
    void putRow();
    void beginArray(const char* name);

    ConfigurationStream& stream_;
    const Inventory& inventory_;
    JsonWriter json_;
    std::vector<std::uint32_t> conversionNumbers_; ///< By the name of the method.
    std::vector<std::uint32_t> tableNumbers_;
    std::vector<std::uint32_t> tables_; ///< In the order of their numbers.
    bool isFirstRow_ = true;
};

void PageData::putHead(std::string_view title)
{
    json_.clear();
    json_.value(title);
    const std::string_view program(versionLine);
    stream_.put("{\"file\":");
    putSafely(stream_, json_.json());
    stream_.put(",\n\"program\":\"");
    stream_.put(program.substr(0, program.find('\n')));
    stream_.put("\",\n\"count\":");
    stream_.put(std::to_string(inventory_.quantityCount()));
}

void PageData::beginArray(const char* name)
{
    stream_.put(",\n\"");
    stream_.put(name);
    stream_.put("\":[");
    isFirstRow_ = true;
    json_.clear();
}

/// Writes what is in the writer as a line of an array.
void PageData::putRow()
{
    stream_.put(isFirstRow_ ? "\n" : ",\n");
    putSafely(stream_, json_.json());
    isFirstRow_ = false;
    json_.clear();
}

void PageData::putInterfaces()
{
    beginArray("interfaces");
    for (const Interface& interface : inventory_.interfaces) {
        putJson(json_, interface);
        putRow();
    }
    stream_.put("]");
    beginArray("sources");
    for (const Interface& interface : inventory_.interfaces)
        for (const Source& source : interface.sources) {
            putJson(json_, interface, source);
            putRow();
        }
    stream_.put("]");
}

/// The conversions that quantities name, numbered in the order of their first use, and their tables
/// in the same manner.
void PageData::putConversions()
{
    std::uint32_t count = 0;
    beginArray("conversions");
    inventory_.forEachQuantity([&](const Quantity& quantity) {
        if (quantity.methodName == noIndex || conversionNumbers_[quantity.methodName] != noIndex)
            return;
        conversionNumbers_[quantity.methodName] = count++;
        putConversion(quantity.methodName);
    });
    stream_.put("]");
    beginArray("tables");
    for (const std::uint32_t table : tables_)
        putTable(inventory_.tables[table]);
    stream_.put("]");
}

void PageData::putConversion(std::uint32_t name)
{
    json_.beginObject();
    json_.member("name", inventory_.methodNames.name(name));
    const std::uint32_t place =
        name < inventory_.methodsByName.size() ? inventory_.methodsByName[name] : noIndex;
    const Method* method = place == noIndex ? nullptr : &inventory_.methods[place];
    const Line line = method ? method->line : Line();
    if (method)
        putMembers(json_, inventory_, *method);
    if (method && inventory_.tableOf(*method)) {
        const std::uint32_t table = inventory_.tablesByName[method->tableName];
        if (tableNumbers_[table] == noIndex) {
            tableNumbers_[table] = static_cast<std::uint32_t>(tables_.size());
            tables_.push_back(table);
        }
        json_.member("rows", std::uint64_t{tableNumbers_[table]});
    }
    if (line.isWritten) {
        json_.member("factor", line.factor);
        json_.member("offset", line.offset);
    }
    json_.endObject();
    putRow();
}

/// A table as arrays of the same length.
void PageData::putTable(const Table& table)
{
    const auto array = [&](const char* name, auto&& part) {
        json_.key(name);
        json_.beginArray();
        for (const TableRow& row : table.rows)
            json_.value(part(row));
        json_.endArray();
    };
    json_.beginObject();
    putDefault(json_, table);
    const bool hasRanges = table.kind == TableKind::Ranges;
    array(hasRanges ? "from" : "raw", [](const TableRow& row) { return row.lower; });
    if (hasRanges)
        array("to", [](const TableRow& row) { return row.upper; });
    if (table.kind == TableKind::Numeric)
        array("physical", [](const TableRow& row) { return row.number; });
    else
        array("text", [](const TableRow& row) { return row.text; });
    json_.endObject();
    putRow();
}

/// Each name as what it has in common with the one before, and its rest.
void PageData::putNames()
{
    stream_.put(",\n\"name\":[");
    std::string_view last;
    bool isFirst = true;
    inventory_.forEachQuantity([&](const Quantity& quantity) {
        const std::size_t length = commonLength(last, quantity.name);
        json_.clear();
        json_.value(quantity.name.substr(length));
        stream_.put(isFirst ? "" : ",");
        stream_.put(std::to_string(length));
        stream_.put(",");
        putSafely(stream_, json_.json());
        last = quantity.name;
        isFirst = false;
    });
    stream_.put("]");
}

void PageData::putTexts()
{
    putColumn("description",
              [](PageColumn& column, const Quantity& q) { column.putText(q.description); });
    putColumn("type",
              [](PageColumn& column, const Quantity& q) { column.putText(dataTypeText(q.type)); });
    putColumn("byte_order", [&](PageColumn& column, const Quantity& q) {
        const char* text = byteOrderText(inventory_.byteOrderOf(q));
        column.putText(text ? std::optional<std::string_view>(text) : std::nullopt);
    });
    putColumn("unit",
              [&](PageColumn& column, const Quantity& q) { column.putText(inventory_.unitOf(q)); });
    putColumn("left_out", [&](PageColumn& column, const Quantity& q) {
        const Obstacle obstacle = obstacleOf(inventory_, q);
        column.putText(obstacle == Obstacle::None
                           ? std::nullopt
                           : std::optional<std::string_view>(obstacleText(obstacle)));
    });
}

void PageData::putNumbers()
{
    const auto putLimit = [](PageColumn& column, const Limit& limit) {
        if (limit.isGiven)
            column.putNumber(limit.value);
        else
            column.putNone();
    };
    std::int64_t last = 0;
    putColumn("address",
              [&](PageColumn& column, const Quantity& q) { putPattern(column, q.address, &last); });
    putColumn("address_extension", [](PageColumn& column, const Quantity& q) {
        putPattern(column, q.addressExtension);
    });
    putColumn("bit_mask",
              [](PageColumn& column, const Quantity& q) { putPattern(column, q.bitMask); });
    putColumn("min", [&](PageColumn& column, const Quantity& q) { putLimit(column, q.lower); });
    putColumn("max", [&](PageColumn& column, const Quantity& q) { putLimit(column, q.upper); });
    putColumn("conversion", [&](PageColumn& column, const Quantity& q) {
        if (q.methodName == noIndex)
            column.putNone();
        else
            column.put(std::int64_t{conversionNumbers_[q.methodName]});
    });
    putColumn("virtual", [](PageColumn& column, const Quantity& q) {
        if (q.isVirtual)
            column.put(std::int64_t{1});
        else
            column.putNone();
    });
}

/// What few quantities have.
void PageData::putDetails()
{
    using Details = const QuantityDetails&;
    const auto putDetail = [this](const char* name, auto put) {
        putColumn(name, [&](PageColumn& column, const Quantity& q) {
            if (!put(column, inventory_.detailsOf(q), q))
                column.putNone();
        });
    };
    const auto putList = [](PageColumn& column, const auto& numbers, const char* separator) {
        if (!numbers.empty())
            column.putText(std::string_view(joinedNumbers(numbers, separator)));
        return !numbers.empty();
    };
    putDetail("dimensions", [&](PageColumn& column, Details details, const Quantity&) {
        return putList(column, details.dimensions, "x");
    });
    putDetail("events", [&](PageColumn& column, Details details, const Quantity&) {
        return putList(column, details.events, " ");
    });
    putDetail("layout", [](PageColumn& column, Details details, const Quantity&) {
        if (!details.layout.empty())
            column.putText(details.layout);
        return !details.layout.empty();
    });
    putDetail("symbol", [](PageColumn& column, Details details, const Quantity& quantity) {
        if (details.hasSymbol && details.symbol == quantity.name)
            column.putTrue();
        else if (details.hasSymbol)
            column.putText(details.symbol);
        return details.hasSymbol;
    });
    putDetail("symbol_offset", [](PageColumn& column, Details details, const Quantity&) {
        const bool isShown = details.hasSymbol && details.symbolOffset != 0;
        if (isShown)
            column.put(details.symbolOffset);
        return isShown;
    });
    putDetail("display_name", [](PageColumn& column, Details details, const Quantity&) {
        if (details.hasDisplayName)
            column.putText(details.displayName);
        return details.hasDisplayName;
    });
}

void PageData::putColumns()
{
    putNames();
    putTexts();
    putNumbers();
    putDetails();
}

/// Each difference as an array: change, kind, name, former name, interface, and for each property
/// that differs an array of its name and its two values.
void PageData::putDifferences(const PageComparison& comparison)
{
    const auto values = [&](const Difference& difference) {
        if (difference.properties == 0)
            return;
        for (const PropertyChange& property : comparison.differences.propertiesOf(difference)) {
            json_.beginArray();
            json_.value(property.name);
            json_.value(textOf(property, property.before));
            json_.value(textOf(property, property.after));
            json_.endArray();
        }
    };
    json_.clear();
    json_.value(comparison.title);
    stream_.put(",\n\"former_file\":");
    putSafely(stream_, json_.json());
    beginArray("differences");
    for (const Difference& difference : comparison.differences.all()) {
        const bool isSource = std::holds_alternative<Pair<Source>>(difference.objects);
        json_.beginArray();
        json_.value(changeText(difference.change));
        json_.value(difference.kind());
        json_.value(difference.name());
        json_.value(difference.change == Change::Renamed ? difference.formerName() : "");
        json_.value(isSource ? interfaceName(difference.protocol) : "");
        values(difference);
        json_.endArray();
        putRow();
    }
    stream_.put("]");
}

} // namespace

void writePageData(ConfigurationStream& stream, const Inventory& inventory, std::string_view title,
                   const PageComparison* comparison)
{
    PageData page(stream, inventory);
    page.putHead(title);
    page.putInterfaces();
    page.putConversions();
    page.putColumns();
    if (comparison)
        page.putDifferences(*comparison);
    stream.put("}");
}

} // namespace tavo
