#include "normalized.h"

#include "base/Notices.h"
#include "daq/ConfigurationStream.h"
#include "daq/losses.h"
#include "inventory/Inventory.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <map>
#include <optional>
#include <set>
#include <utility>

namespace tavo {

namespace {

/// A conversion and the unit that goes with it, as one COMPU_METHOD has them both.
using MethodKey = std::pair<const Method*, std::optional<std::string_view>>;

class NormalizedWriter
{
public:
    NormalizedWriter(ConfigurationStream& stream, const Inventory& inventory)
        : stream_(stream), inventory_(inventory)
    {
    }

    void write();

private:
    void writeInterface(const Interface& interface);
    void writeCcp(const Interface& interface);
    void writeXcp(const Interface& interface);
    void writeMethod(const MethodKey& key, const std::string& name);
    void writeConversion(const Method& method);
    void writeMeasurement(const Quantity& quantity);
    MethodKey keyOf(const Quantity& quantity) const;
    void nameMethods();

    void put(std::string_view text) { stream_.put(text); }
    void putText(std::string_view text);
    void putInteger(std::int64_t number);
    void putPattern(const char* word, const Pattern64& pattern);
    void putHexadecimal(std::int64_t pattern);
    void putReal(double number);
    void putLimit(const Limit& limit);

    ConfigurationStream& stream_;
    const Inventory& inventory_;
    std::map<MethodKey, std::string> methodNames_;
    std::vector<MethodKey> methods_; ///< In the order of their first use.
};

void NormalizedWriter::write()
{
    put("ASAP2_VERSION 1 60\n/begin PROJECT normalized \"\"\n/begin MODULE normalized \"\"\n");
    for (const Interface& interface : inventory_.interfaces)
        writeInterface(interface);
    nameMethods();
    for (const MethodKey& key : methods_)
        writeMethod(key, methodNames_.at(key));
    forEachExpressible(inventory_,
                       [this](const Quantity& quantity) { writeMeasurement(quantity); });
    put("/end MODULE\n/end PROJECT\n");
}

void NormalizedWriter::writeInterface(const Interface& interface)
{
    const bool isCcp = interface.protocol == Protocol::Ccp;
    put(isCcp ? "/begin IF_DATA ASAP1B_CCP\n" : "/begin IF_DATA XCP\n");
    if (isCcp)
        writeCcp(interface);
    else
        writeXcp(interface);
    put("/end IF_DATA\n");
}

void NormalizedWriter::writeCcp(const Interface& interface)
{
    if (interface.masterId && interface.slaveId && interface.stationAddress) {
        put("  /begin TP_BLOB 0 0");
        for (const auto& number : {interface.masterId, interface.slaveId, interface.stationAddress})
            putHexadecimal(*number);
        put(" 0 /end TP_BLOB\n");
    } else {
        put("  /begin SEED_KEY /end SEED_KEY\n"); // a block, without which there is no interface
    }
    for (const Source& source : interface.sources) {
        put("  /begin RASTER");
        putText(source.description);
        putText(source.name);
        putHexadecimal(source.channel);
        constexpr std::int64_t seconds = 6; // and all that isn't a power of ten of a microsecond
        putInteger(source.unitCode < 0 ? seconds : std::min(source.unitCode, seconds));
        putInteger(source.cycle);
        put(" /end RASTER\n");
    }
}

void NormalizedWriter::writeXcp(const Interface& interface)
{
    put("  /begin XCP_ON_CAN 0");
    if (interface.masterId) {
        put(" CAN_ID_MASTER");
        putHexadecimal(*interface.masterId);
    }
    if (interface.slaveId) {
        put(" CAN_ID_SLAVE");
        putHexadecimal(*interface.slaveId);
    }
    put(" /end XCP_ON_CAN\n  /begin DAQ DYNAMIC 0 0 0 OPTIMISATION_TYPE_DEFAULT "
        "ADDRESS_EXTENSION_FREE IDENTIFICATION_FIELD_TYPE_ABSOLUTE "
        "GRANULARITY_ODT_ENTRY_SIZE_DAQ_BYTE 0 NO_OVERLOAD_INDICATION\n");
    for (const Source& source : interface.sources) {
        put("    /begin EVENT");
        putText(source.description);
        putText(source.name);
        putHexadecimal(source.channel);
        put(" DAQ 0");
        putInteger(source.cycle);
        constexpr std::int64_t seconds = 9; // and all that isn't a power of ten of a nanosecond
        putInteger(source.unitCode < 0 ? seconds : std::min(source.unitCode, seconds));
        put(" 0 /end EVENT\n");
    }
    put("  /end DAQ\n");
}

MethodKey NormalizedWriter::keyOf(const Quantity& quantity) const
{
    return {inventory_.methodOf(quantity), inventory_.unitOf(quantity)};
}

/// Gives each different conversion a name: its own, or, if it comes with other units, one with a
/// number.
void NormalizedWriter::nameMethods()
{
    std::set<std::string, std::less<>> taken = {std::string(noMethod)};
    for (std::uint32_t i = 0; i < inventory_.methodNames.size(); ++i)
        taken.emplace(inventory_.methodNames.name(i));
    std::map<std::string_view, std::uint64_t> numbers;
    forEachExpressible(inventory_, [&](const Quantity& quantity) {
        const MethodKey key = keyOf(quantity);
        if ((!key.first && !key.second) || methodNames_.count(key) > 0)
            return;
        std::string name;
        if (key.first && key.second == key.first->unit) {
            name = key.first->name;
        } else {
            const std::string_view base = key.first ? key.first->name : "unit";
            do
                name = joined({base, "_", std::to_string(++numbers[base])});
            while (!taken.insert(name).second);
        }
        methodNames_.emplace(key, name);
        methods_.push_back(key);
    });
}

void NormalizedWriter::writeMethod(const MethodKey& key, const std::string& name)
{
    const auto& [method, unit] = key;
    put("/begin COMPU_METHOD ");
    put(name);
    putText(method ? method->description : "");
    const MethodKind kind = method ? method->kind : MethodKind::RatFunc;
    const bool isKnown = kind >= MethodKind::RatFunc;
    put(" ");
    put(isKnown ? methodKindWord(kind) : "RAT_FUNC");
    put(" \"%1.6\"");
    putText(unit.value_or(""));
    if (method)
        writeConversion(*method);
    put(" /end COMPU_METHOD\n");
}

/// COEFFS for the line of the method. A method that is no set of coefficients has none:
/// factor 1 and offset 0.
void NormalizedWriter::writeConversion(const Method& method)
{
    // An integer zero has no sign; with one, the offset would be a negative zero.
    const auto putOffset = [this](double number, bool isInteger) {
        if (isInteger && number == 0.0)
            put(" 0");
        else
            putReal(number);
    };
    if (method.basis() == MethodBasis::CoeffsLinear) {
        put(" COEFFS 0 1");
        const bool isPositiveZero =
            method.linearOffset == 0.0 && !std::signbit(method.linearOffset);
        putOffset(-method.linearOffset, isPositiveZero);
        put(" 0 0");
        putReal(method.linearFactor);
    } else if (method.basis() == MethodBasis::Coeffs) {
        for (const Coefficients& set : method.coefficients) {
            put(" COEFFS");
            putReal(set.a);
            putReal(set.b);
            putOffset(set.c, set.isOffsetInteger);
            for (const double coefficient : {set.d, set.e, set.f})
                putReal(coefficient);
        }
    }
}

void NormalizedWriter::writeMeasurement(const Quantity& quantity)
{
    put("/begin MEASUREMENT ");
    put(quantity.name);
    putText(quantity.description);
    put(" ");
    put(dataTypeWord(quantity.type));
    put(" ");
    const auto name = methodNames_.find(keyOf(quantity));
    put(name == methodNames_.end() ? noMethod : std::string_view(name->second));
    put(" 0 0");
    putLimit(quantity.lower);
    putLimit(quantity.upper);
    putPattern(" ECU_ADDRESS", quantity.address);
    putPattern(" ECU_ADDRESS_EXTENSION", quantity.addressExtension);
    putPattern(" BIT_MASK", quantity.bitMask);
    const ByteOrder order = inventory_.byteOrderOf(quantity);
    if (order != ByteOrder::None)
        put(order == ByteOrder::Motorola ? " BYTE_ORDER MSB_FIRST" : " BYTE_ORDER MSB_LAST");
    put(" /end MEASUREMENT\n");
}

/// A text in quotes. A line feed after a carriage return is escaped, because the two would be read
/// as one line end.
void NormalizedWriter::putText(std::string_view text)
{
    put(" \"");
    char previous = 0;
    for (const char c : text) {
        if (c == '"' || c == '\\' || (c == '\n' && previous == '\r'))
            put("\\");
        put({&c, 1});
        previous = c;
    }
    put("\"");
}

void NormalizedWriter::putInteger(std::int64_t number)
{
    put(" ");
    put(std::to_string(number));
}

/// The pattern of 32 bits.
void NormalizedWriter::putHexadecimal(std::int64_t pattern)
{
    put(" ");
    stream_.putHexadecimal(static_cast<std::uint32_t>(pattern));
}

void NormalizedWriter::putPattern(const char* word, const Pattern64& pattern)
{
    if (!pattern.isGiven)
        return;
    put(word);
    putHexadecimal(static_cast<std::int64_t>(pattern.bits));
}

/// A floating-point number in a form that reads back exactly, with a digit before the point.
void NormalizedWriter::putReal(double number)
{
    char digits[40];
    char* end = std::to_chars(digits, digits + 32, number).ptr;
    std::string_view text(digits, static_cast<std::size_t>(end - digits));
    put(" ");
    if (std::isinf(number)) {
        put(number < 0 ? "-1e999" : "1e999");
        return;
    }
    put(text);
    if (text.find_first_of(".e") == std::string_view::npos)
        put(".0");
}

void NormalizedWriter::putLimit(const Limit& limit)
{
    if (limit.isInteger)
        putInteger(static_cast<std::int64_t>(limit.value));
    else
        putReal(limit.value);
}

} // namespace

void writeNormalized(ConfigurationStream& stream, const Inventory& inventory)
{
    NormalizedWriter(stream, inventory).write();
}

} // namespace tavo
