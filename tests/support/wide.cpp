#include "support/wide.h"

#include "asap2/PhAsap2.h"
#include "base/Notices.h"
#include "base/PhLogger.h"
#include "daq/inventoryWriter.h"
#include "daq/losses.h"
#include "inventory/Inventory.h"
#include "support/written.h"

#include <cstdio>

using namespace tavo;

namespace {

class MessageList : public PhLogger
{
public:
    MessageList(std::vector<std::string>& messages, std::string file)
        : messages_(messages), file_(std::move(file))
    {
    }

    void reserved() override {}
    void message(const char*) override {}
    void warning(const char*, ...) override {}
    void error(const char*, ...) override {}
    void report(const Diagnostic& diagnostic) override
    {
        std::string place;
        if (diagnostic.file && diagnostic.file != file_) {
            place = diagnostic.file;
            place = place.substr(place.rfind('/') + 1) + ":";
        }
        messages_.push_back(place + std::to_string(diagnostic.line) + ": " +
                            severityWord(diagnostic.severity) + ": " + diagnostic.text);
    }

private:
    std::vector<std::string>& messages_;
    std::string file_;
};

std::string quoted(std::string_view text) { return std::string(" '").append(text).append("'"); }

std::string number(double value)
{
    char digits[32];
    std::snprintf(digits, sizeof digits, " %.17g", value);
    return digits;
}

template <class Number> std::string number(const std::optional<Number>& value)
{
    return value ? number(static_cast<double>(*value)) : " -";
}

std::string moreOf(const Inventory& inventory, const Quantity& quantity)
{
    const QuantityDetails& details = inventory.detailsOf(quantity);
    std::string text;
    for (const std::uint64_t dimension : details.dimensions)
        text.append("[").append(std::to_string(dimension)).append("]");
    if (!details.layout.empty())
        text += " layout" + quoted(details.layout);
    for (const std::uint32_t event : details.events)
        text += " event " + std::to_string(event);
    if (details.hasSymbol)
        text += " symbol" + quoted(details.symbol) + number(double(details.symbolOffset));
    if (details.hasDisplayName)
        text += " shown as" + quoted(details.displayName);
    if (quantity.isVirtual)
        text += " virtual";
    return text.empty() ? "" : std::string(quantity.name) + text + "\n";
}

std::string moreOf(const Table& table)
{
    std::string text("table");
    text += quoted(table.name) + quoted(table.description) +
            (table.interpolates ? " interpolates" : "");
    for (const TableRow& row : table.rows)
        text.append(",").append(number(row.lower) + number(row.upper) + number(row.number) +
                                quoted(row.text));
    if (table.hasDefaultText)
        text += ", default" + quoted(table.defaultText);
    if (table.hasDefaultNumber)
        text += ", default" + number(table.defaultNumber);
    return text + "\n";
}

std::string moreOf(const Interface& interface)
{
    std::string text;
    for (const Source& source : interface.sources)
        text += "source" + quoted(source.description) + number(source.periodInNanoseconds()) +
                " ns" + quoted(source.direction) + number(double(source.listCount)) +
                number(double(source.priority)) + "\n";
    for (const Transport& way : interface.transports)
        text += std::string("transport ") + transportText(way.kind) + quoted(way.instance) +
                quoted(way.address) + quoted(way.hostName) + quoted(way.ipv6) + number(way.port) +
                number(way.bitRate) + number(way.dataBitRate) + (way.isCanFd ? " FD" : "") + "\n";
    return text;
}

std::string moreOf(const Inventory& inventory)
{
    std::string text;
    for (const Interface& interface : inventory.interfaces)
        text += moreOf(interface);
    inventory.forEachQuantity(
        [&](const Quantity& quantity) { text += moreOf(inventory, quantity); });
    for (const Method& method : inventory.methods)
        if (method.hasFormula || inventory.tableOf(method))
            text += "method" + quoted(method.name) + quoted(method.formula) +
                    quoted(method.inverseFormula) +
                    quoted(inventory.tableOf(method) ? inventory.tableOf(method)->name : "") + "\n";
    for (const Table& table : inventory.tables)
        text += moreOf(table);
    if (inventory.adjustableLeafCount > 0)
        text += std::to_string(inventory.adjustableLeafCount) + " adjustable leaves\n";
    return text;
}

template <class Read> WideReading readWith(const std::string& path, Read read, bool goesOn = false)
{
    WideReading reading;
    MessageList messages(reading.messages, path);
    PhAsap2 reader(path.c_str());
    reader.setLogger(&messages);
    reader.setGoesOn(goesOn);
    Inventory inventory;
    reading.status = read(reader, inventory);
    if (reading.status != 0 && !goesOn)
        return reading;
    Notices losses;
    reportLosses(inventory, losses);
    losses.report([&](Place, const std::string& text) { reading.messages.push_back(text); });
    reading.configuration =
        written([&](ConfigurationStream& stream) { writeInventory(stream, inventory); });
    reading.more = moreOf(inventory);
    return reading;
}

} // namespace

WideReading readWide(std::string_view description, bool verbose)
{
    return readWith("", [&](PhAsap2& reader, Inventory& inventory) {
        reader.setVerbose(verbose);
        return reader.read(description, inventory);
    });
}

WideReading readWideOn(std::string_view description)
{
    return readWith(
        "",
        [&](PhAsap2& reader, Inventory& inventory) { return reader.read(description, inventory); },
        true);
}

WideReading readWideFile(const std::string& path)
{
    return readWith(
        path, [](PhAsap2& reader, Inventory& inventory) { return reader.readFile(inventory); });
}
