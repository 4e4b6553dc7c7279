#pragma once

#include "model/PhLazyValues.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace tavo {

class ConfigurationStream;
class PhValue;

/// What a line says after its sign: a number, or any value of the model; or there is no line.
class LineValue
{
public:
    enum Kind : std::uint8_t
    {
        Nothing,
        Integer,
        Real,
        Other
    };

    LineValue() = default;
    LineValue(std::int32_t number) : kind_(Integer), integer_(number) {}
    LineValue(double number) : kind_(Real), real_(number) {}
    /// Nothing for a null `value`; any other one outlives the line, as does that of a field.
    LineValue(const PhValue* value);
    LineValue(const PhFieldContent& field)
    {
        if (field.kind == PhFieldContent::Integer)
            *this = field.content.integer;
        else if (field.kind == PhFieldContent::Double)
            *this = field.content.real;
        else if (field.kind == PhFieldContent::Object)
            *this = field.content.object;
    }

    Kind kind() const { return kind_; }
    std::int32_t integer() const { return integer_; }
    double real() const { return real_; }
    const PhValue& other() const { return *other_; }

private:
    Kind kind_ = Nothing;
    union
    {
        std::int32_t integer_ = 0;
        double real_;
        const PhValue* other_;
    };
};

/// The sections of a configuration, each with what its lines say. Nothing at all, or null, stands
/// for a line that isn't there. Texts go out as they are.

/// A measuring interface.
struct InterfaceSection
{
    std::optional<std::string_view> name;
    const char* protocol = "";
    LineValue masterId;
    LineValue slaveId;
    LineValue stationAddress;
    std::int32_t sourceCount = 0; ///< Its own; the one of all quantities is counted besides.
};

/// A sampling source.
struct SourceSection
{
    std::optional<std::string_view> name;
    LineValue rate;
    LineValue channel;
};

/// A quantity.
struct QuantitySection
{
    std::optional<std::string_view> name;
    std::optional<std::string_view> description;
    std::optional<std::string_view> unit;
    std::string_view byteOrder; ///< "Motorola" or "Intel"; "" for no line.
    std::string_view type = "???";
    LineValue address;
    LineValue addressExtension;
    LineValue lowerLimit;
    LineValue upperLimit;
    LineValue bitMask;
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
