#include "inventory/Interface.h"

namespace tavo {

const char* transportText(TransportKind kind)
{
    constexpr const char* texts[] = {"CAN", "UDP", "TCP", "USB", "SxI", "FlexRay"};
    return texts[static_cast<std::size_t>(kind)];
}

const char* protocolText(Protocol protocol) { return protocol == Protocol::Ccp ? "CCP" : "XCP"; }

namespace {

/// Codes of time units: nanoseconds for a decimal power, with some of their own after them.
std::optional<double> unitInNanoseconds(const Source& source)
{
    constexpr double second = 1e9;
    constexpr double powers[] = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9};
    const std::int64_t code = source.unitCode;
    if (source.protocol == Protocol::Ccp) {
        constexpr double longer[] = {10 * second, 60 * second, 3600 * second, 86400 * second};
        if (code >= 0 && code <= 6) // from a microsecond to a second
            return powers[code + 3];
        if (code >= 7 && code <= 10)
            return longer[code - 7];
        return std::nullopt;
    }
    if (code >= 0 && code <= 9) // from a nanosecond to a second
        return powers[code];
    if (code >= 10 && code <= 12) // one, ten and a hundred picoseconds
        return powers[code - 10] / 1000;
    return std::nullopt;
}

} // namespace

std::int64_t Source::rate() const
{
    // Three codes for each unit: once, ten times and a hundred times of it.
    const std::int64_t codesBelowSecond = protocol == Protocol::Ccp ? 6 : 9;
    if (unitCode < 0 || unitCode >= codesBelowSecond)
        return cycle;
    constexpr std::int64_t factors[] = {1, 10, 100};
    return cycle * factors[unitCode % 3];
}

std::optional<double> Source::periodInNanoseconds() const
{
    const std::optional<double> unit = unitInNanoseconds(*this);
    if (!unit || cycle == 0)
        return std::nullopt;
    return *unit * static_cast<double>(cycle);
}

} // namespace tavo
