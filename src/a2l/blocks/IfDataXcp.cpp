// IF_DATA XCP: the measuring interface XCP over CAN, with its events.

#include "a2l/PhA2l.h"

#include "a2l/blocks/rate.h"
#include "model/PhValue.h"
#include "model/ownership.h"
#include "topology/PhCommParam.h"
#include "topology/PhRaster.h"

namespace tavo {

/// IF_DATA XCP { /begin block } /end IF_DATA
int PhA2l::parseIfDataXcp(PhObject* owner, PhTokenValue& value)
{
    return parseSection(value, xcpKeywords, "XCP", [&](int code) {
        return code == T_BEGIN ? parseXcpBlock(owner, value) : unexpectedToken(value, code);
    });
}

/// The block behind a /begin in an IF_DATA XCP. It makes the comm param, whatever it is.
int PhA2l::parseXcpBlock(PhObject* owner, PhTokenValue& value)
{
    const int code = nextToken(value);
    const PhHold<PhCommParam> commParam(commParamOf(owner, "XCP", PhProtocol::XCP));
    switch (code) {
    case xcp::T_XCP_ON_CAN:
        return parseXcpOnCan(commParam.get(), value);
    case xcp::T_DAQ:
        return parseXcpDaq(commParam.get(), value);
    case xcp::T_PAG:
    case xcp::T_PGM:
    case xcp::T_SEGMENT:
    case xcp::T_PROTOCOL_LAYER:
        return skipBlock(value, code);
    default:
        return unexpectedToken(value, code);
    }
}

/// XCP_ON_CAN version { option } /end XCP_ON_CAN
int PhA2l::parseXcpOnCan(PhCommParam* commParam, PhTokenValue& value)
{
    dropFields(1);
    progress("  Parse IF_DATA XCP_ON_CAN\n");
    return parseOptions(value, xcp::T_XCP_ON_CAN, [&](int code) {
        switch (code) {
        case xcp::T_BAUDRATE:
            commParam->setProperty("bitrate", readInteger(value));
            return nextToken(value);
        case xcp::T_CAN_ID_MASTER:
            commParam->setMasterId(new PhValue(readInteger(value)));
            return nextToken(value);
        case xcp::T_CAN_ID_SLAVE:
            commParam->setSlaveId(new PhValue(readInteger(value)));
            return nextToken(value);
        case xcp::T_CAN_ID_BROADCAST:
        case xcp::T_SAMPLE_POINT:
        case xcp::T_SAMPLE_RATE:
        case xcp::T_BTL_CYCLES:
        case xcp::T_SJW:
        case xcp::T_SYNC_EDGE:
            return afterFields(value, 1);
        case xcp::T_MAX_DLC_REQUIRED:
            return nextToken(value);
        case T_BEGIN:
            code = nextToken(value);
            if (code == xcp::T_DAQ_LIST_CAN_ID)
                return parseXcpDaqListCanId(value);
            break;
        }
        return unexpectedToken(value, code);
    });
}

/// DAQ_LIST_CAN_ID x [ VARIABLE ] [ FIXED x ] /end DAQ_LIST_CAN_ID, of which nothing is kept.
int PhA2l::parseXcpDaqListCanId(PhTokenValue& value)
{
    int code = afterFields(value, 1);
    if (code == xcp::T_VARIABLE)
        code = nextToken(value);
    if (code == xcp::T_FIXED)
        code = afterFields(value, 1);
    return expectClosed(value, code, xcp::T_DAQ_LIST_CAN_ID);
}

/// DAQ x x x x x x x x x x { option } /end DAQ
int PhA2l::parseXcpDaq(PhCommParam* commParam, PhTokenValue& value)
{
    dropFields(10);
    progress("  Parse IF_DATA DAQ\n");
    return parseOptions(value, xcp::T_DAQ, [&](int code) {
        switch (code) {
        case xcp::T_PID_OFF_SUPPORTED:
        case xcp::T_PRESCALER_SUPPORTED:
        case xcp::T_RESUME_SUPPORTED:
            return nextToken(value);
        case T_BEGIN:
            return parseXcpDaqBlock(commParam, value);
        default:
            return unexpectedToken(value, code);
        }
    });
}

/// The block behind a /begin in a DAQ:
/// STIM x x [ BIT_STIM_SUPPORTED ] /end STIM |
/// TIMESTAMP_SUPPORTED x x x [ TIMESTAMP_FIXED ] /end TIMESTAMP_SUPPORTED | DAQ_LIST ... | EVENT
/// ...
int PhA2l::parseXcpDaqBlock(PhCommParam* commParam, PhTokenValue& value)
{
    const int code = nextToken(value);
    switch (code) {
    case xcp::T_STIM:
        return parseXcpFlagged(value, 2, xcp::T_BIT_STIM_SUPPORTED, code);
    case xcp::T_TIMESTAMP_SUPPORTED:
        return parseXcpFlagged(value, 3, xcp::T_TIMESTAMP_FIXED, code);
    case xcp::T_DAQ_LIST:
        return parseXcpDaqList(value);
    case xcp::T_EVENT:
        return parseXcpEvent(commParam, value);
    default:
        return unexpectedToken(value, code);
    }
}

/// { x } [ FLAG ] /end KEYWORD, with a fixed number of fields; nothing is kept.
int PhA2l::parseXcpFlagged(PhTokenValue& value, int fieldCount, int flag, int keyword)
{
    int code = afterFields(value, fieldCount);
    if (code == flag)
        code = nextToken(value);
    return expectClosed(value, code, keyword);
}

/// DAQ_LIST number { option x | /begin ODT x { ODT_ENTRY x x x x x } /end ODT } /end DAQ_LIST, of
/// which nothing is kept.
int PhA2l::parseXcpDaqList(PhTokenValue& value)
{
    progress("  Parse IF_DATA DAQ_LIST\n");
    dropFields(1);
    return parseOptions(value, xcp::T_DAQ_LIST, [&](int code) {
        switch (code) {
        case xcp::T_DAQ_LIST_TYPE:
        case xcp::T_MAX_ODT:
        case xcp::T_MAX_ODT_ENTRIES:
        case xcp::T_FIRST_PID:
        case xcp::T_EVENT_FIXED:
            return afterFields(value, 1);
        case T_BEGIN:
            code = nextToken(value);
            if (code != xcp::T_ODT)
                break;
            code = afterFields(value, 1);
            while (code == xcp::T_ODT_ENTRY)
                code = afterFields(value, 5);
            return expectClosed(value, code, xcp::T_ODT);
        }
        return unexpectedToken(value, code);
    });
}

/// EVENT "longName" "name" channel direction maxDaqList timeCycle timeUnit priority /end EVENT
///
/// A token that isn't the /end goes back to the DAQ, which takes it for an option of its own.
int PhA2l::parseXcpEvent(PhCommParam* commParam, PhTokenValue& value)
{
    progress("  Parse IF_DATA EVENT\n");
    const PhHold<PhRaster> raster(new PhRaster);
    commParam->appendRaster(raster.get());
    raster->setLongName(readText(value));
    raster->setName(readText(value));
    raster->setChannel(new PhValue(readInteger(value)));
    dropFields(2); // direction and number of DAQ lists
    const std::int32_t cycle = readInteger(value);
    // The codes begin at a nanosecond.
    setCodedRate(raster.get(), readInteger(value), PhTimeUnit::Nanoseconds, cycle);
    const int code = afterFields(value, 1); // behind the priority
    return code == T_END ? expectEnd(value, xcp::T_EVENT) : code;
}

} // namespace tavo
