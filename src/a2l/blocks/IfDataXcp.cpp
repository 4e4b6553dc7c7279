// IF_DATA XCP: the measuring interface XCP over CAN, with its events.

#include "a2l/PhA2l.h"

#include "a2l/blocks/rate.h"
#include "model/PhValue.h"
#include "model/ownership.h"
#include "topology/PhCommParam.h"
#include "topology/PhRaster.h"

namespace tavo {

/// IF_DATA XCP { /begin block } /end IF_DATA
int PhA2l::parseIfDataXcp(PhObject* owner)
{
    return parseSection(xcpKeywords, "XCP", [&](int code) {
        return code == T_BEGIN ? parseXcpBlock(owner) : unexpectedToken();
    });
}

/// The block after a /begin in an IF_DATA XCP. It makes the comm param, whatever it is.
int PhA2l::parseXcpBlock(PhObject* owner)
{
    const int code = nextToken();
    const PhRef<PhCommParam> commParam(commParamOf(owner, "XCP", PhProtocol::XCP));
    switch (code) {
    case xcp::T_XCP_ON_CAN:
        return parseXcpOnCan(commParam.get());
    case xcp::T_DAQ:
        return parseXcpDaq(commParam.get());
    case xcp::T_PAG:
    case xcp::T_PGM:
    case xcp::T_SEGMENT:
    case xcp::T_PROTOCOL_LAYER:
        return skipBlock(code);
    default:
        return unexpectedToken();
    }
}

/// XCP_ON_CAN version { option } /end XCP_ON_CAN
int PhA2l::parseXcpOnCan(PhCommParam* commParam)
{
    dropFields(1);
    progress("  Parse IF_DATA XCP_ON_CAN\n");
    return parseOptions(xcp::T_XCP_ON_CAN, [&](int code) {
        switch (code) {
        case xcp::T_BAUDRATE:
            commParam->setProperty("bitrate", readInteger());
            return nextToken();
        case xcp::T_CAN_ID_MASTER:
            commParam->setMasterId(new PhValue(readInteger()));
            return nextToken();
        case xcp::T_CAN_ID_SLAVE:
            commParam->setSlaveId(new PhValue(readInteger()));
            return nextToken();
        case xcp::T_CAN_ID_BROADCAST:
        case xcp::T_SAMPLE_POINT:
        case xcp::T_SAMPLE_RATE:
        case xcp::T_BTL_CYCLES:
        case xcp::T_SJW:
        case xcp::T_SYNC_EDGE:
            return afterFields(1);
        case xcp::T_MAX_DLC_REQUIRED:
            return nextToken();
        case T_BEGIN:
            code = nextToken();
            if (code == xcp::T_DAQ_LIST_CAN_ID)
                return parseXcpDaqListCanId();
            break;
        }
        return unexpectedToken();
    });
}

/// DAQ_LIST_CAN_ID x [ VARIABLE ] [ FIXED x ] /end DAQ_LIST_CAN_ID, of which nothing is kept.
int PhA2l::parseXcpDaqListCanId()
{
    int code = afterFields(1);
    if (code == xcp::T_VARIABLE)
        code = nextToken();
    if (code == xcp::T_FIXED)
        code = afterFields(1);
    return expectClosed(code, xcp::T_DAQ_LIST_CAN_ID);
}

/// DAQ x x x x x x x x x x { option } /end DAQ
int PhA2l::parseXcpDaq(PhCommParam* commParam)
{
    dropFields(10);
    progress("  Parse IF_DATA DAQ\n");
    return parseOptions(xcp::T_DAQ, [&](int code) {
        switch (code) {
        case xcp::T_PID_OFF_SUPPORTED:
        case xcp::T_PRESCALER_SUPPORTED:
        case xcp::T_RESUME_SUPPORTED:
            return nextToken();
        case T_BEGIN:
            return parseXcpDaqBlock(commParam);
        default:
            return unexpectedToken();
        }
    });
}

/// The block after a /begin in a DAQ:
/// STIM x x [ BIT_STIM_SUPPORTED ] /end STIM |
/// TIMESTAMP_SUPPORTED x x x [ TIMESTAMP_FIXED ] /end TIMESTAMP_SUPPORTED | DAQ_LIST ... | EVENT
/// ...
int PhA2l::parseXcpDaqBlock(PhCommParam* commParam)
{
    const int code = nextToken();
    switch (code) {
    case xcp::T_STIM:
        return parseXcpFlagged(2, xcp::T_BIT_STIM_SUPPORTED, code);
    case xcp::T_TIMESTAMP_SUPPORTED:
        return parseXcpFlagged(3, xcp::T_TIMESTAMP_FIXED, code);
    case xcp::T_DAQ_LIST:
        return parseXcpDaqList();
    case xcp::T_EVENT:
        return parseXcpEvent(commParam);
    default:
        return unexpectedToken();
    }
}

/// { x } [ FLAG ] /end KEYWORD, with a fixed number of fields; nothing is kept.
int PhA2l::parseXcpFlagged(int fieldCount, int flag, int keyword)
{
    int code = afterFields(fieldCount);
    if (code == flag)
        code = nextToken();
    return expectClosed(code, keyword);
}

/// DAQ_LIST number { option x | /begin ODT x { ODT_ENTRY x x x x x } /end ODT } /end DAQ_LIST, of
/// which nothing is kept.
int PhA2l::parseXcpDaqList()
{
    progress("  Parse IF_DATA DAQ_LIST\n");
    dropFields(1);
    return parseOptions(xcp::T_DAQ_LIST, [&](int code) {
        switch (code) {
        case xcp::T_DAQ_LIST_TYPE:
        case xcp::T_MAX_ODT:
        case xcp::T_MAX_ODT_ENTRIES:
        case xcp::T_FIRST_PID:
        case xcp::T_EVENT_FIXED:
            return afterFields(1);
        case T_BEGIN:
            code = nextToken();
            if (code != xcp::T_ODT)
                break;
            code = afterFields(1);
            while (code == xcp::T_ODT_ENTRY)
                code = afterFields(5);
            return expectClosed(code, xcp::T_ODT);
        }
        return unexpectedToken();
    });
}

/// EVENT "longName" "name" channel direction maxDaqList timeCycle timeUnit priority /end EVENT
///
/// A token that isn't the /end goes back to the DAQ, which takes it for an option of its own.
int PhA2l::parseXcpEvent(PhCommParam* commParam)
{
    progress("  Parse IF_DATA EVENT\n");
    const PhRef<PhRaster> raster(new PhRaster);
    commParam->appendRaster(raster.get());
    raster->setLongName(readText());
    raster->setName(readText());
    raster->setChannel(new PhValue(readInteger()));
    dropFields(2); // direction and number of DAQ lists
    const std::int32_t cycle = readInteger();
    // The codes begin at a nanosecond.
    setCodedRate(raster.get(), readInteger(), PhTimeUnit::Nanoseconds, cycle);
    const int code = afterFields(1); // after the priority
    return code == T_END ? expectEnd(xcp::T_EVENT) : code;
}

} // namespace tavo
