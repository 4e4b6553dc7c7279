#include "comparison.h"

#include "Description.h"
#include "Diagnostics.h"
#include "Input.h"
#include "asap2/PhAsap2.h"
#include "base/Notices.h"
#include "inventory/Inventory.h"

#include <charconv>
#include <deque>
#include <map>
#include <optional>
#include <string_view>

namespace tavo {

namespace {

/// Keeps the last error of a reading with its place, and nothing of what it warns of.
class ErrorKeeper : public PhLogger
{
public:
    void reserved() override {}
    void message(const char*) override {}
    void warning(const char*, ...) override {}
    void error(const char*, ...) override {}
    void report(const Diagnostic& diagnostic) override
    {
        if (diagnostic.severity != Severity::Error)
            return;
        text_ = diagnostic.text;
        if (diagnostic.line > 0)
            text_ = joined({diagnostic.file, ":", std::to_string(diagnostic.line), ": ", text_});
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
            {"Type", std::string(dataTypeText(quantity.type))},
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

std::vector<const Interface*> interfacesOf(const Inventory& inventory, Protocol protocol)
{
    std::vector<const Interface*> found;
    for (const Interface& interface : inventory.interfaces)
        if (interface.protocol == protocol)
            found.push_back(&interface);
    return found;
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
    void compareInterface(const Interface& strict, const Interface& wide);
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

/// Those of one kind of section are compared one by one if there are as many of them.
void Comparison::compareInterfaces()
{
    constexpr std::pair<Protocol, const char*> protocols[] = {
        {Protocol::Ccp, "CCP"}, {Protocol::Xcp, "XCP"}, {Protocol::XcpPlus, "XCPplus"}};
    for (const auto& [protocol, name] : protocols) {
        const auto strict = interfacesOf(strict_, protocol);
        const auto wide = interfacesOf(wide_, protocol);
        if (strict.size() != wide.size())
            warn(joined({"Interfaces of ", name, ": strict ", std::to_string(strict.size()),
                         ", the description says ", std::to_string(wide.size())}));
        else
            for (std::size_t i = 0; i < strict.size(); ++i)
                compareInterface(*strict[i], *wide[i]);
    }
}

void Comparison::compareInterface(const Interface& strict, const Interface& wide)
{
    compare(valuesOf(strict), valuesOf(wide), protocolText(strict.protocol));
    for (std::size_t i = 0; i < strict.sources.size() && i < wide.sources.size(); ++i)
        compare(valuesOf(strict.sources[i]), valuesOf(wide.sources[i]), strict.sources[i].name);
}

/// Quantities are the same if they have one name, and come in one order where they share it.
void Comparison::compareQuantities()
{
    std::map<std::string_view, std::deque<const Quantity*>> missing; // in strict reading
    wide_.forEachQuantity(
        [&](const Quantity& quantity) { missing[quantity.name].push_back(&quantity); });
    std::size_t missingCount = wide_.quantityCount();
    for (const Quantity& strict : strict_.measurements) {
        const auto found = missing.find(strict.name);
        if (found == missing.end() || found->second.empty()) {
            warn(joined({inQuotes(strict.name),
                         ": strict has it, but the description doesn't say all that it needs"}));
            continue;
        }
        compare(valuesOf(strict_, strict), valuesOf(wide_, *found->second.front()), strict.name);
        found->second.pop_front();
        --missingCount;
    }
    if (missingCount > 0)
        warn("Measurements: strict lacks " + std::to_string(missingCount) +
             " that the description has");
}

} // namespace

bool isReadWide(const Input& input)
{
    Inventory wide;
    ErrorKeeper errors;
    PhAsap2 reader(input.name().c_str());
    reader.setLogger(&errors);
    return readWide(reader, input, wide) == 0;
}

void compareReadings(const Input& input, const Inventory& strict, Diagnostics& diagnostics)
{
    Inventory wide;
    ErrorKeeper errors;
    const std::string& file = input.name();
    PhAsap2 reader(file.c_str());
    reader.setLogger(&errors);
    if (readWide(reader, input, wide) != 0) {
        diagnostics.warnAbout(file,
                              "Read without --strict, the description is faulty: " + errors.text());
        return;
    }
    Comparison comparison(file, strict, wide, diagnostics);
    comparison.compareInterfaces();
    comparison.compareQuantities();
}

} // namespace tavo
