#include "jsonListing.h"

#include "JsonWriter.h"
#include "daq/ConfigurationStream.h"
#include "daq/losses.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

namespace tavo {

namespace {

/// The object with those of its members alone that are asked for. It is one that this program has
/// made, on one line.
std::string membersOf(std::string_view object, const std::vector<std::string>& names)
{
    std::string kept = "{";
    std::size_t depth = 0;
    std::size_t begin = 1; // of a member
    bool isInText = false;
    for (std::size_t i = 0; i < object.size(); ++i) {
        const char c = object[i];
        if (isInText) {
            i += c == '\\';
            isInText = c != '"';
            continue;
        }
        isInText = c == '"';
        depth += c == '{' || c == '[';
        const bool isEnd = (c == ',' && depth == 1) || i + 1 == object.size();
        if (isEnd && i > begin) {
            const std::string_view member = object.substr(begin, i - begin);
            const std::string_view name = member.substr(1, member.find('"', 1) - 1);
            if (std::find(names.begin(), names.end(), name) != names.end())
                kept.append(kept.size() > 1 ? "," : "").append(member);
            begin = i + 1;
        }
        depth -= c == '}' || c == ']';
    }
    return kept.append("}");
}

class JsonListing
{
public:
    /// `members` are those of the objects; empty for all.
    JsonListing(ConfigurationStream& stream, const Inventory& inventory,
                const std::vector<std::string>& members)
        : stream_(stream), inventory_(inventory), members_(members)
    {
    }

    void putFile(const std::string& file)
    {
        json_.clear();
        json_.value(std::string_view(file));
        stream_.put("{\n  \"file\": ");
        stream_.put(json_.json());
        isFirstSection_ = false;
    }

    void put(const Interface& interface);
    void put(const Interface& interface, const Source& source);
    void put(const Quantity& quantity);
    void put(const Method& method);

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
    struct MethodTexts
    {
        std::string line;       ///< Members.
        std::string conversion; ///< An object.
        bool isMade = false;
    };

    void beginRow();
    void endRow();
    void member(const char* key, const Pattern64& pattern);
    void member(const char* key, const Limit& limit);
    void putDetails(const Quantity& quantity);
    void putConversion(const Quantity& quantity);
    void putMethod(const Method& method);
    void putLine(const Line& line);
    const MethodTexts& textsOf(const Quantity& quantity, const Method& method);
    void putTable(const Table& table);

    ConfigurationStream& stream_;
    const Inventory& inventory_;
    const std::vector<std::string>& members_;
    JsonWriter json_;
    std::vector<MethodTexts> methodTexts_; ///< By the number of the name.
    std::size_t tableRowCount_ = 0;
    bool isFirstSection_ = true;
    bool isFirstRow_ = true;
};

void JsonListing::beginRow() { json_.clear(); }

void JsonListing::endRow()
{
    stream_.put(isFirstRow_ ? "\n    " : ",\n    ");
    if (members_.empty())
        stream_.put(json_.json());
    else
        stream_.put(membersOf(json_.json(), members_));
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
    if (method) {
        const std::string& line = textsOf(quantity, *method).line;
        if (!line.empty())
            json_.raw(line);
    } else {
        putLine(Line());
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

void JsonListing::put(const Method& method)
{
    beginRow();
    json_.beginObject();
    json_.member("name", method.name);
    json_.member("description", method.description);
    if (method.hasUnit)
        json_.member("unit", method.unit);
    putLine(method.line);
    putMethod(method);
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
    const Method* method = inventory_.methodOf(quantity);
    if (method && !textsOf(quantity, *method).conversion.empty()) {
        json_.raw(textsOf(quantity, *method).conversion);
        return;
    }
    json_.beginObject();
    json_.member("name", *name);
    if (method)
        putMethod(*method);
    json_.endObject();
}

void JsonListing::putLine(const Line& line)
{
    if (!line.isWritten)
        return;
    json_.member("factor", line.factor);
    json_.member("offset", line.offset);
}

/// What quantities show of a method, which is made once. One with a table has only its line here.
const JsonListing::MethodTexts& JsonListing::textsOf(const Quantity& quantity, const Method& method)
{
    if (methodTexts_.empty())
        methodTexts_.resize(inventory_.methodNames.size());
    MethodTexts& texts = methodTexts_[quantity.methodName];
    if (texts.isMade)
        return texts;
    JsonWriter made;
    std::swap(made, json_);
    putLine(method.line);
    texts.line = json_.json();
    json_.clear();
    if (!inventory_.tableOf(method)) {
        json_.beginObject();
        json_.member("name", inventory_.methodNames.name(quantity.methodName));
        putMethod(method);
        json_.endObject();
        texts.conversion = json_.json();
    }
    std::swap(made, json_);
    texts.isMade = true;
    return texts;
}

void JsonListing::putMethod(const Method& method)
{
    putMembers(json_, inventory_, method);
    if (const Table* table = inventory_.tableOf(method))
        putTable(*table);
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

void renderJson(ConfigurationStream& stream, const Listing& listing, const ListingForm& form,
                const std::string& file)
{
    JsonListing json(stream, listing.inventory, form.columns);
    if (form.hasFiles)
        json.putFile(file);
    const auto putSection = [&](ListedKind kind, const auto& objects, auto put) {
        const auto number = static_cast<std::size_t>(kind);
        if (!listing.kinds[number])
            return;
        json.beginSection(sections()[number].plural);
        for (const auto& object : objects)
            put(object);
        json.endSection();
    };
    putSection(ListedKind::Interfaces, listing.interfaces,
               [&](const Interface* interface) { json.put(*interface); });
    putSection(ListedKind::Sources, listing.sources,
               [&](const ListedSource& listed) { json.put(*listed.interface, *listed.source); });
    putSection(ListedKind::Measurements, listing.measurements,
               [&](const Quantity* quantity) { json.put(*quantity); });
    putSection(ListedKind::Methods, listing.methods,
               [&](const Method* method) { json.put(*method); });
    json.end();
}

} // namespace tavo
