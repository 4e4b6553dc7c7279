#include "comparison.h"

#include "Diagnostics.h"
#include "asap2/PhAsap2.h"
#include "base/Notices.h"
#include "inventory/Inventory.h"

#include <charconv>
#include <map>
#include <optional>
#include <string_view>

namespace tavo {

namespace {

/// Keeps the last error of a reading, and nothing of what it warns of.
class ErrorKeeper : public PhLogger
{
public:
    void reserved() override {}
    void message(const char*) override {}
    void warning(const char*, ...) override {}
    void error(const char*, ...) override {}
    void report(const Diagnostic& diagnostic) override
    {
        if (diagnostic.severity == Severity::Error)
            text_ = diagnostic.text;
    }

    const std::string& text() const { return text_; }

private:
    std::string text_;
};

constexpr const char* nothing = "nothing";

std::string numberText(double number)
{
    char digits[32];
    return {digits, std::to_chars(digits, digits + sizeof digits, number).ptr};
}

std::string hexadecimalText(const Pattern64& pattern)
{
    if (!pattern.isGiven)
        return nothing;
    if (pattern.isBeyond64)
        return "a number beyond 64 bits";
    const std::uint64_t bits =
        pattern.fits32() ? static_cast<std::uint32_t>(pattern.bits) : pattern.bits;
    char digits[24];
    return std::string("0x").append(digits,
                                    std::to_chars(digits, digits + sizeof digits, bits, 16).ptr);
}

std::string textOf(const std::optional<std::string_view>& text)
{
    return text ? joined({"\"", *text, "\""}) : nothing;
}

std::string integerText(const std::optional<std::int64_t>& number)
{
    return number ? std::to_string(*number) : nothing;
}

/// The values of an object by the keys of a configuration.
using Values = std::vector<std::pair<const char*, std::string>>;

Values valuesOf(const Inventory& inventory, const Quantity& quantity)
{
    const auto limit = [](const Limit& value) {
        return value.isGiven ? numberText(value.value) : std::string(nothing);
    };
    const Method* method = inventory.methodOf(quantity);
    const Line line = method ? method->line : Line();
    const char* order = byteOrderText(inventory.byteOrderOf(quantity));
    return {{"Desc", textOf(quantity.description)},
            {"Unit", textOf(inventory.unitOf(quantity))},
            {"ByteOrder", order ? order : nothing},
            {"Type", dataTypeText(quantity.type)},
            {"ECUAddress", hexadecimalText(quantity.address)},
            {"AddressExtension", hexadecimalText(quantity.addressExtension)},
            {"Min", limit(quantity.lower)},
            {"Max", limit(quantity.upper)},
            {"BitMask", hexadecimalText(quantity.bitMask)},
            {"Offset", line.isWritten ? numberText(line.offset) : nothing},
            {"Factor", line.isWritten ? numberText(line.factor) : nothing}};
}

/// Identifiers and channels are compared as the patterns of 32 bits that a configuration has.
Values valuesOf(const Interface& interface)
{
    const auto pattern = [](const std::optional<std::int64_t>& number) {
        return number ? std::optional<std::int64_t>(static_cast<std::uint32_t>(*number)) : number;
    };
    return {{"MasterId", integerText(pattern(interface.masterId))},
            {"SlaveId", integerText(pattern(interface.slaveId))},
            {"StationAddress", integerText(pattern(interface.stationAddress))},
            {"NumSources", std::to_string(interface.sources.size() + 1)}};
}

Values valuesOf(const Source& source)
{
    return {{"TransmissionRate", std::to_string(source.rate())},
            {"EventChannelNo", std::to_string(static_cast<std::uint32_t>(source.channel))}};
}

class Comparison
{
public:
    Comparison(const std::string& file, const Inventory& strict, const Inventory& wide,
               Diagnostics& diagnostics)
        : file_(file), strict_(strict), wide_(wide), diagnostics_(diagnostics)
    {
    }

    void compareInterfaces();
    void compareQuantities();

private:
    void compare(const Values& strict, const Values& wide, std::string_view name);
    void warn(const std::string& text) { diagnostics_.warnAbout(file_, text); }

    const std::string& file_;
    const Inventory& strict_;
    const Inventory& wide_;
    Diagnostics& diagnostics_;
};

void Comparison::compare(const Values& strict, const Values& wide, std::string_view name)
{
    for (std::size_t i = 0; i < strict.size(); ++i)
        if (strict[i].second != wide[i].second)
            warn(joined({strict[i].first, " of ", inQuotes(name), ": strict ", strict[i].second,
                         ", the description says ", wide[i].second}));
}

void Comparison::compareInterfaces()
{
    if (strict_.interfaces.size() != wide_.interfaces.size())
        warn(joined({"Interfaces: strict ", std::to_string(strict_.interfaces.size()),
                     ", the description says ", std::to_string(wide_.interfaces.size())}));
    for (std::size_t i = 0; i < strict_.interfaces.size() && i < wide_.interfaces.size(); ++i) {
        const Interface& strict = strict_.interfaces[i];
        const Interface& wide = wide_.interfaces[i];
        compare(valuesOf(strict), valuesOf(wide), protocolText(strict.protocol));
        for (std::size_t j = 0; j < strict.sources.size() && j < wide.sources.size(); ++j)
            compare(valuesOf(strict.sources[j]), valuesOf(wide.sources[j]), strict.sources[j].name);
    }
}

/// Quantities are the same if they have one name, and come in one order where they share it.
void Comparison::compareQuantities()
{
    std::map<std::string_view, std::vector<const Quantity*>> byName;
    std::map<std::string_view, std::size_t> used;
    wide_.forEachQuantity(
        [&](const Quantity& quantity) { byName[quantity.name].push_back(&quantity); });
    for (const Quantity& strict : strict_.measurements) {
        const auto found = byName.find(strict.name);
        const std::size_t number = used[strict.name]++;
        if (found != byName.end() && number < found->second.size())
            compare(valuesOf(strict_, strict), valuesOf(wide_, *found->second[number]),
                    strict.name);
        else
            warn(joined({inQuotes(strict.name),
                         ": strict has it, but the description doesn't say all that it needs"}));
    }
}

} // namespace

void compareReadings(const std::string& file, const Inventory& strict, Diagnostics& diagnostics)
{
    Inventory wide;
    ErrorKeeper errors;
    PhAsap2 reader(file.c_str());
    reader.setLogger(&errors);
    if (reader.readFile(wide) != 0) {
        diagnostics.warnAbout(file,
                              "Read without --strict, the description is faulty: " + errors.text());
        return;
    }
    Comparison comparison(file, strict, wide, diagnostics);
    comparison.compareInterfaces();
    comparison.compareQuantities();
}

} // namespace tavo
