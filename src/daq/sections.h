#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tavo {

class ConfigurationStream;
class PhValue;

/// The sections of a configuration, each with what its lines say. Nothing at all, or null, stands
/// for a line that isn't there. Texts go out as they are.

/// A measuring interface.
struct InterfaceSection
{
    std::optional<std::string_view> name;
    const char* protocol = "";
    const PhValue* masterId = nullptr;
    const PhValue* slaveId = nullptr;
    const PhValue* stationAddress = nullptr;
    std::int32_t sourceCount = 0; ///< Its own; the one of all quantities is counted besides.
};

/// A sampling source.
struct SourceSection
{
    std::optional<std::string_view> name;
    const PhValue* rate = nullptr;
    const PhValue* channel = nullptr;
};

/// A quantity.
struct QuantitySection
{
    std::optional<std::string_view> name;
    std::optional<std::string_view> description;
    std::optional<std::string_view> unit;
    const char* byteOrder = nullptr; ///< "Motorola" or "Intel".
    const char* type = "???";
    const PhValue* address = nullptr;
    const PhValue* addressExtension = nullptr;
    const PhValue* lowerLimit = nullptr;
    const PhValue* upperLimit = nullptr;
    const PhValue* bitMask = nullptr;
    bool isEnabled = false;
    bool hasFactor = false; ///< The two lines below.
    double factor = 1.0;
    double offset = 0.0;
};

/// The number of the next source section. It is state of the process, because a module without any
/// source of its own takes the number that the conversion before has left: 0 when the library is
/// loaded, set back by `tavoInitialize` and `tavoDeinitialize`, and counted by `putSource`.
extern std::int32_t daqSourceIndex;

void putInterface(ConfigurationStream& stream, std::int32_t index, const InterfaceSection& section);
/// Takes the next number of a source.
void putSource(ConfigurationStream& stream, const SourceSection& section);
/// The source that holds all quantities.
void putUnassignedSource(ConfigurationStream& stream, std::int32_t quantityCount);
void putQuantity(ConfigurationStream& stream, std::int32_t index, const QuantitySection& section);

/// A value in its own form: an integer without a fraction, a double with six decimals.
void printValue(ConfigurationStream& stream, const PhValue& value);
/// The same, but an integer as its 32-bit pattern in hexadecimal.
void printHexValue(ConfigurationStream& stream, const PhValue& value);

} // namespace tavo
