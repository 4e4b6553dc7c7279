// IF_DATA of a module: the measuring interfaces and their sources.

#include "asap2/Parser.h"

#include <limits>

namespace tavo {

/// IF_DATA { ASAP1B_CCP ... | XCP ... | XCPplus ... | name ... } /end IF_DATA
void Parser::parseIfData(const Mark& begin)
{
    if (scanner_.isWord("ASAP1B_CCP")) {
        scanner_.advance();
        parseCcp(begin);
    } else if (scanner_.isWord("XCP") || scanner_.isWord("XCPplus")) {
        const bool isPlus = scanner_.isWord("XCPplus");
        scanner_.advance();
        parseXcp(isPlus ? Protocol::XcpPlus : Protocol::Xcp, begin);
    } else {
        skipRest("IF_DATA", begin);
    }
}

/// The interface of a protocol, made at the first block in one of its sections.
Interface& Parser::interfaceOf(Protocol protocol)
{
    for (Interface& interface : inventory_.interfaces)
        if (interface.protocol == protocol)
            return interface;
    Interface& interface = inventory_.interfaces.emplace_back();
    interface.protocol = protocol;
    return interface;
}

/// ASAP1B_CCP { /begin block | option } /end IF_DATA
void Parser::parseCcp(const Mark& begin)
{
    section_ = Protocol::Ccp;
    parseOptions(Block::Ccp, "IF_DATA", begin, [this](Option option, const Mark& place) {
        Interface& interface = interfaceOf(Protocol::Ccp);
        if (option == Option::Ccp_TP_BLOB_block)
            parseTpBlob(interface, place);
        else
            parseRaster(interface, place);
    });
}

/// TP_BLOB version blobVersion masterId slaveId stationAddress byteOrder { option } /end TP_BLOB
void Parser::parseTpBlob(Interface& interface, const Mark& begin)
{
    constexpr std::string_view word = "TP_BLOB";
    if (!readPositional<'x', 'x', 'i', 'i', 'i'>(
            word, {"its version", "its version", "the master's identifier",
                   "the slave's identifier", "its station address"})) {
        leaveOut(word, begin);
        return;
    }
    giveIdentifier(interface.masterId, number(2), word);
    giveIdentifier(interface.slaveId, number(3), word);
    giveIdentifier(interface.stationAddress, number(4), word);
    // The byte order, of which nothing is taken: the one of the module counts.
    Field byteOrder;
    readField<'n'>(byteOrder);
    parseOptions(Block::TpBlob, word, begin, [](Option, const Mark&) {});
}

/// Stores an identifier or a station address, unless it is beyond 32 bits.
void Parser::giveIdentifier(std::optional<std::int64_t>& identifier, const Number& number,
                            std::string_view where)
{
    if (patternOf(number).fits32())
        identifier = number.asSigned();
    else
        notices_.add(lineOfFields(), joined({"A number beyond 32 bits in ", where, " is ignored"}));
}

/// RASTER "longName" "name" eventChannel scalingUnit rate { EXCLUSIVE x } /end RASTER
void Parser::parseRaster(Interface& interface, const Mark& begin)
{
    constexpr std::string_view word = "RASTER";
    if (!readPositional<'s', 's', 'i', 'i', 'i'>(
            word, {"its description", "its name", "its event channel", "its unit", "its cycle"})) {
        leaveOut(word, begin);
        return;
    }
    Source source;
    source.description = keep(0);
    source.name = keep(1);
    source.channel = integer(2);
    source.unitCode = integer(3);
    source.cycle = integer(4);
    if (isExpressible(source, word))
        interface.sources.push_back(source);
    parseOptions(Block::Raster, word, begin, [](Option, const Mark&) {});
}

/// False, with a warning, for a source with a number that a configuration has no room for.
bool Parser::isExpressible(const Source& source, std::string_view word)
{
    const auto fits = [](std::int64_t number, std::int64_t most) {
        return number >= std::numeric_limits<std::int32_t>::min() && number <= most;
    };
    constexpr std::int64_t highest = std::numeric_limits<std::int32_t>::max();
    // A channel may be the pattern of 32 bits.
    const bool isRight = fits(source.channel, std::numeric_limits<std::uint32_t>::max()) &&
                         fits(source.cycle, highest) && fits(source.rate(), highest);
    if (!isRight)
        notices_.add(lineOfFields(),
                     joined({"Each ", word, " with a number beyond 32 bits is left out"}),
                     inQuotes(source.name));
    return isRight;
}

/// XCP { /begin block } /end IF_DATA
void Parser::parseXcp(Protocol protocol, const Mark& begin)
{
    section_ = protocol;
    parseOptions(Block::Xcp, "IF_DATA", begin, [this, protocol](Option option, const Mark& place) {
        parseXcpBlock(option, interfaceOf(protocol), place);
    });
}

void Parser::parseXcpBlock(Option option, Interface& interface, const Mark& begin)
{
    switch (option) {
    case Option::Xcp_DAQ_block:
        return parseDaq(interface, false, begin);
    case Option::Xcp_XCP_ON_CAN_block:
        return parseCan(interface, begin);
    case Option::Xcp_XCP_ON_UDP_IP_block:
        return parseEthernet(interface, TransportKind::Udp, "XCP_ON_UDP_IP", begin);
    case Option::Xcp_XCP_ON_TCP_IP_block:
        return parseEthernet(interface, TransportKind::Tcp, "XCP_ON_TCP_IP", begin);
    case Option::Xcp_XCP_ON_USB_block:
        return parseOtherTransport(interface, TransportKind::Usb, "XCP_ON_USB", begin);
    case Option::Xcp_XCP_ON_SxI_block:
        return parseOtherTransport(interface, TransportKind::Serial, "XCP_ON_SxI", begin);
    case Option::Xcp_XCP_ON_FLX_block:
        return parseOtherTransport(interface, TransportKind::FlexRay, "XCP_ON_FLX", begin);
    default:
        return;
    }
}

bool KnownSources::has(const Interface& interface, const Source& source)
{
    for (; count_ < interface.sources.size(); ++count_)
        sources_.insert(&interface.sources[count_]);
    return sources_.contains(&source);
}

/// DAQ x x x x x x x x x x { option } /end DAQ
void Parser::parseDaq(Interface& interface, bool isInTransport, const Mark& begin)
{
    passOverFields(Block::Daq, 10);
    parseOptions(Block::Daq, "DAQ", begin,
                 [&](Option, const Mark& place) { parseEvent(interface, isInTransport, place); });
}

/// EVENT "longName" "name" channel direction maxDaqList timeCycle timeUnit priority { option }
/// /end EVENT
void Parser::parseEvent(Interface& interface, bool isInTransport, const Mark& begin)
{
    constexpr std::string_view word = "EVENT";
    if (!readPositional<'s', 's', 'i', 'w', 'i', 'i', 'i', 'i'>(
            word, {"its description", "its name", "its channel", "its direction",
                   "its number of lists", "its cycle", "its unit", "its priority"})) {
        leaveOut(word, begin);
        return;
    }
    Source source;
    source.protocol = Protocol::Xcp;
    source.description = keep(0);
    source.name = keep(1);
    source.channel = integer(2);
    source.direction = keep(3);
    source.listCount = integer(4);
    source.cycle = integer(5);
    source.unitCode = integer(6);
    source.priority = integer(7);
    // Each transport repeats the events of the interface.
    const bool isRepeated =
        isInTransport && knownSources_[interface.protocol].has(interface, source);
    if (!isRepeated && isExpressible(source, word))
        interface.sources.push_back(source);
    parseOptions(Block::Event, word, begin, [](Option, const Mark&) {});
}

/// XCP_ON_CAN version { option } /end XCP_ON_CAN
void Parser::parseCan(Interface& interface, const Mark& begin)
{
    constexpr std::string_view word = "XCP_ON_CAN";
    passOverFields(Block::Can, 1);
    Transport transport;
    parseOptions(Block::Can, word, begin, [&](Option option, const Mark& place) {
        switch (option) {
        case Option::Can_BAUDRATE:
            transport.bitRate = integer(0);
            break;
        case Option::Can_CAN_ID_MASTER:
            giveIdentifier(transport.masterId, number(0), word);
            break;
        case Option::Can_CAN_ID_SLAVE:
            giveIdentifier(transport.slaveId, number(0), word);
            break;
        case Option::Can_TRANSPORT_LAYER_INSTANCE:
            transport.instance = keep(0);
            break;
        case Option::Can_CAN_FD:
            transport.isCanFd = true;
            break;
        case Option::Can_CAN_FD_block:
            transport.isCanFd = true;
            parseOptions(Block::CanFd, "CAN_FD", place,
                         [&](Option, const Mark&) { transport.dataBitRate = integer(0); });
            break;
        default:
            parseDaq(interface, true, place);
        }
    });
    if (transport.masterId)
        interface.masterId = transport.masterId;
    if (transport.slaveId)
        interface.slaveId = transport.slaveId;
    interface.transports.push_back(transport);
}

/// XCP_ON_UDP_IP version port { option } /end XCP_ON_UDP_IP, and the same for TCP
void Parser::parseEthernet(Interface& interface, TransportKind kind, std::string_view word,
                           const Mark& begin)
{
    Transport transport;
    transport.kind = kind;
    if (readField<'n'>(fields_[0]) && readField<'i'>(fields_[1]))
        transport.port = integer(1);
    parseOptions(Block::Ethernet, word, begin, [&](Option option, const Mark& place) {
        switch (option) {
        case Option::Ethernet_ADDRESS:
            transport.address = keep(0);
            break;
        case Option::Ethernet_HOST_NAME:
            transport.hostName = keep(0);
            break;
        case Option::Ethernet_IPV6:
            transport.ipv6 = keep(0);
            break;
        case Option::Ethernet_TRANSPORT_LAYER_INSTANCE:
            transport.instance = keep(0);
            break;
        default:
            parseDaq(interface, true, place);
        }
    });
    interface.transports.push_back(transport);
}

/// A transport of which the kind alone is taken.
void Parser::parseOtherTransport(Interface& interface, TransportKind kind, std::string_view word,
                                 const Mark& begin)
{
    Transport transport;
    transport.kind = kind;
    passOverFields(Block::OtherTransport, std::numeric_limits<int>::max());
    parseOptions(Block::OtherTransport, word, begin, [&](Option option, const Mark& place) {
        if (option == Option::OtherTransport_DAQ_block)
            parseDaq(interface, true, place);
        else
            transport.instance = keep(0);
    });
    interface.transports.push_back(transport);
}

} // namespace tavo
