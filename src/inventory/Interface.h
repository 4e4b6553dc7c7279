#pragma once

#include <compare>
#include <cstdint>
#include <deque>
#include <optional>
#include <string_view>
#include <vector>

/// How an ECU is measured: its interfaces, what samples, and what carries it.
namespace tavo {

enum class Protocol : std::uint8_t
{
    Ccp,
    Xcp,
    XcpPlus ///< An interface of its own, which is called XCP as well.
};

/// A RASTER or an EVENT.
struct Source
{
    std::string_view name;
    std::string_view description;
    std::int64_t channel = 0;
    std::int64_t cycle = 0;
    std::int64_t unitCode = 0;
    std::int64_t priority = 0; ///< EVENT only, as are the next two.
    std::string_view direction;
    std::int64_t listCount = 0;
    Protocol protocol = Protocol::Ccp;

    /// The cycle in the decimal unit of its code, as a configuration gives it.
    std::int64_t rate() const;
    /// The time from one sample to the next; nothing if the code counts something else, or if the
    /// cycle is 0.
    std::optional<double> periodInNanoseconds() const;
    /// By all that they hold.
    friend auto operator<=>(const Source&, const Source&) = default;
};

enum class TransportKind : std::uint8_t
{
    Can,
    Udp,
    Tcp,
    Usb,
    Serial,
    FlexRay
};

/// "CAN", "UDP", "TCP", "USB", "SxI", "FlexRay"
const char* transportText(TransportKind kind);

/// How an interface is reached. Numbers that aren't given are missing.
struct Transport
{
    TransportKind kind = TransportKind::Can;
    std::string_view instance; ///< TRANSPORT_LAYER_INSTANCE, "" if not given.
    std::string_view address;  ///< ADDRESS, HOST_NAME and IPV6, "" if not given.
    std::string_view hostName;
    std::string_view ipv6;
    std::optional<std::int64_t> port;
    std::optional<std::int64_t> masterId; ///< CAN identifiers; bit 31 marks one of 29 bits.
    std::optional<std::int64_t> slaveId;
    std::optional<std::int64_t> bitRate;
    std::optional<std::int64_t> dataBitRate; ///< CAN_FD_DATA_TRANSFER_BAUDRATE
    bool isCanFd = false;
};

/// A measuring interface: all sections IF_DATA of one name in the module.
struct Interface
{
    Protocol protocol = Protocol::Ccp;
    std::optional<std::int64_t> masterId; ///< The last ones that are given.
    std::optional<std::int64_t> slaveId;
    std::optional<std::int64_t> stationAddress;
    std::deque<Source> sources;
    std::vector<Transport> transports;
};

/// "CCP" or "XCP", which is the name in the configuration as well.
const char* protocolText(Protocol protocol);

} // namespace tavo
