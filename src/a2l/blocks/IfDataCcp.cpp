// IF_DATA ASAP1B_CCP: the measuring interface CCP, with its rasters and properties.

#include "a2l/PhA2l.h"

#include "a2l/blocks/rate.h"
#include "model/PhList.h"
#include "model/PhValue.h"
#include "model/ownership.h"
#include "topology/PhCommParam.h"
#include "topology/PhRaster.h"

namespace tavo {

namespace {

/// The list of a property that collects entries, made at the first one.
PhList* collection(PhCommParam* commParam, const char* name)
{
    const PhString key(name);
    PhValue* property = commParam->property(key);
    if (!property)
        property = commParam->setProperty(key, new PhList);
    return property->list();
}

/// Appends a value with an empty list of its own to `list`, which then holds it.
PhValue* appendListValue(PhList* list)
{
    const PhHold<PhValue> entry(new PhValue);
    entry->setValue(new PhList);
    list->append(entry.get());
    return entry.get();
}

/// Appends an integer under `name`, which is null for one without a name.
void appendInteger(PhList* list, const char* name, std::int32_t number)
{
    const PhHold<PhValue> entry(new PhValue(number));
    entry->setName(name);
    list->append(entry.get());
}

} // namespace

/// IF_DATA ASAP1B_CCP { ADDRESS_MAPPING x x x | DP_BLOB x x x | KP_BLOB x x x { RASTER x } |
/// /begin block } /end IF_DATA
int PhA2l::parseIfDataCcp(PhObject* owner, PhTokenValue& value)
{
    return parseSection(value, ccpKeywords, "ASAP1B_CCP", [&](int code) {
        switch (code) {
        case ccp::T_ADDRESS_MAPPING:
        case ccp::T_DP_BLOB:
            return afterFields(value, 3);
        case ccp::T_KP_BLOB:
            code = afterFields(value, 3);
            while (code == ccp::T_RASTER)
                code = afterFields(value, 1);
            return code;
        case T_BEGIN:
            return parseCcpBlock(owner, value);
        default:
            return unexpectedToken(value, code);
        }
    });
}

/// The block behind a /begin in an IF_DATA ASAP1B_CCP. It makes the comm param, whatever it is.
int PhA2l::parseCcpBlock(PhObject* owner, PhTokenValue& value)
{
    const PhHold<PhCommParam> commParam(commParamOf(owner, "CCP", PhProtocol::CCP));
    const int code = nextToken(value);
    switch (code) {
    case ccp::T_SOURCE:
        return parseCcpSource(commParam.get(), value);
    case ccp::T_RASTER:
        return parseCcpRaster(commParam.get(), value);
    case ccp::T_EVENT_GROUP:
        return parseCcpEventGroup(commParam.get(), value);
    case ccp::T_SEED_KEY:
        return parseCcpSeedKey(commParam.get(), value);
    case ccp::T_CHECKSUM:
        return parseCcpChecksum(commParam.get(), value);
    case ccp::T_TP_BLOB:
        return parseCcpTpBlob(commParam.get(), value);
    default:
        return unexpectedToken(value, code);
    }
}

/// SOURCE name scalingUnit period { DISPLAY_IDENTIFIER x | QP_BLOB ... | /begin QP_BLOB ... }
/// /end SOURCE
int PhA2l::parseCcpSource(PhCommParam* commParam, PhTokenValue& value)
{
    PhValue* source = appendListValue(collection(commParam, "sources"));
    source->setName(readText(value));
    appendInteger(source->list(), "scaling_unit", readInteger(value));
    appendInteger(source->list(), "period", readInteger(value));
    progress("  Parse IF_DATA ASAP1B_CCP/SOURCE\n");
    return parseOptions(value, ccp::T_SOURCE, [&](int code) {
        switch (code) {
        case ccp::T_DISPLAY_IDENTIFIER:
            return afterFields(value, 1);
        case ccp::T_QP_BLOB:
            return parseCcpQpBlob(false, value);
        case T_BEGIN:
            code = nextToken(value);
            if (code == ccp::T_QP_BLOB)
                return parseCcpQpBlob(true, value);
            break;
        }
        return unexpectedToken(value, code);
    });
}

/// QP_BLOB x { option x } [ /end QP_BLOB ], of which nothing is kept. A blob that `/begin` didn't
/// open has no end of its own: the /end is the one of the SOURCE.
int PhA2l::parseCcpQpBlob(bool begun, PhTokenValue& value)
{
    dropFields(1);
    progress("  Parse IF_DATA ASAP1B_CCP/SOURCE/QP_BLOB\n");
    int code = nextToken(value);
    while (code != T_END && code != T_ERROR) { // a failure of the lexer ends it in silence
        switch (code) {
        case ccp::T_LENGTH:
        case ccp::T_CAN_ID_FIXED:
        case ccp::T_RASTER:
        case ccp::T_EXCLUSIVE:
        case ccp::T_FIRST_PID:
            code = afterFields(value, 1);
            break;
        case ccp::T_CAN_ID_VARIABLE:
        case ccp::T_REDUCTION_ALLOWED:
            code = nextToken(value);
            break;
        default:
            return unexpectedToken(value, code);
        }
    }
    return begun && code == T_END ? expectEnd(value, ccp::T_QP_BLOB) : code;
}

/// RASTER "longName" "name" eventChannel scalingUnit rate { EXCLUSIVE x } /end RASTER
int PhA2l::parseCcpRaster(PhCommParam* commParam, PhTokenValue& value)
{
    const PhHold<PhRaster> raster(new PhRaster);
    commParam->appendRaster(raster.get());
    raster->setLongName(readText(value));
    raster->setName(readText(value));
    raster->setChannel(new PhValue(readInteger(value)));
    const std::int32_t scalingUnit = readInteger(value);
    // The codes begin at a microsecond.
    setCodedRate(raster.get(), scalingUnit, PhTimeUnit::Microseconds, readInteger(value));
    progress("  Parse IF_DATA ASAP1B_CCP/RASTER\n");
    return parseOptions(value, ccp::T_RASTER, [&](int code) {
        return code == ccp::T_EXCLUSIVE ? afterFields(value, 1) : unexpectedToken(value, code);
    });
}

/// EVENT_GROUP "longName" "name" { RASTER number } /end EVENT_GROUP
int PhA2l::parseCcpEventGroup(PhCommParam* commParam, PhTokenValue& value)
{
    PhValue* group = appendListValue(collection(commParam, "event_groups"));
    group->setLongName(readText(value));
    group->setName(readText(value));
    progress("  Parse IF_DATA ASAP1B_CCP/EVENT_GROUP\n");
    PhValue* rasters = nullptr;
    int code = nextToken(value);
    while (code == ccp::T_RASTER) {
        if (!rasters) {
            rasters = appendListValue(group->list());
            rasters->setName("rasters");
        }
        appendInteger(rasters->list(), nullptr, readInteger(value));
        code = nextToken(value);
    }
    if (code == T_END)
        return expectEnd(value, ccp::T_EVENT_GROUP);
    return code == T_ERROR ? code : unexpectedToken(value, code);
}

/// SEED_KEY [ "cal" [ "daq" [ "pgm" ] ] ] /end SEED_KEY
int PhA2l::parseCcpSeedKey(PhCommParam* commParam, PhTokenValue& value)
{
    int code = T_NONE;
    for (const char* property :
         {"seed_key_dll_name_cal", "seed_key_dll_name_daq", "seed_key_dll_name_pgm"}) {
        code = nextToken(value);
        if (code == T_END)
            break;
        commParam->setProperty(property, PhString(token_));
    }
    progress("  Parse IF_DATA ASAP1B_CCP/SEED_KEY\n");
    if (code != T_END)
        code = nextToken(value);
    return code == T_END ? expectEnd(value, ccp::T_SEED_KEY) : unexpectedToken(value, code);
}

/// CHECKSUM "name" /end CHECKSUM
int PhA2l::parseCcpChecksum(PhCommParam* commParam, PhTokenValue& value)
{
    commParam->setProperty("checksum_dll_name", PhString(readText(value)));
    progress("  Parse IF_DATA ASAP1B_CCP/CHECKSUM\n");
    const int code = nextToken(value);
    return code == T_END ? expectEnd(value, ccp::T_CHECKSUM) : unexpectedToken(value, code);
}

/// TP_BLOB version blobVersion masterId slaveId stationAddress byteOrder { option } /end TP_BLOB
int PhA2l::parseCcpTpBlob(PhCommParam* commParam, PhTokenValue& value)
{
    dropFields(2);
    commParam->setMasterId(new PhValue(readInteger(value)));
    commParam->setSlaveId(new PhValue(readInteger(value)));
    commParam->setStationAddress(new PhValue(readInteger(value)));
    dropFields(1); // its byte order: the one of the module counts
    progress("  Parse IF_DATA ASAP1B_CCP/TP_BLOB\n");
    return parseOptions(value, ccp::T_TP_BLOB,
                        [&](int code) { return parseCcpTpBlobOption(commParam, value, code); });
}

int PhA2l::parseCcpTpBlobOption(PhCommParam* commParam, PhTokenValue& value, int code)
{
    switch (code) {
    case ccp::T_BAUDRATE:
        commParam->setProperty("bitrate", readInteger(value));
        return nextToken(value);
    case ccp::T_SAMPLE_POINT:
    case ccp::T_SAMPLE_RATE:
    case ccp::T_BTL_CYCLES:
    case ccp::T_SJW:
    case ccp::T_SYNC_EDGE:
    case ccp::T_CONSISTENCY:
        return afterFields(value, 1);
    case ccp::T_BYTES_ONLY:
    case ccp::T_RESUME_SUPPORTED:
    case ccp::T_STORE_SUPPORTED:
        return nextToken(value);
    case ccp::T_DAQ_MODE:
        commParam->setProperty("daq_mode", readChoice(value, ccp::T_ALTERNATING, ccp::T_BURST));
        return nextToken(value);
    case ccp::T_ADDRESS_EXTENSION:
        commParam->setProperty("address_extension", readChoice(value, ccp::T_DAQ, ccp::T_ODT));
        return nextToken(value);
    case ccp::T_OPTIONAL_CMD:
        appendInteger(collection(commParam, "optional_cmd"), nullptr, readInteger(value));
        return nextToken(value);
    case T_BEGIN:
        return parseCcpTpBlobBlock(value);
    default:
        return unexpectedToken(value, code);
    }
}

/// Reads one of two words: 0 for the first, 1 for the second, and 0 with a warning for another.
std::int32_t PhA2l::readChoice(PhTokenValue& value, int first, int second)
{
    const int code = nextToken(value);
    if (code != first && code != second)
        warnUnexpectedToken(value, code);
    return code == second ? 1 : 0;
}

/// The block behind a /begin in a TP_BLOB, of which nothing is kept.
int PhA2l::parseCcpTpBlobBlock(PhTokenValue& value)
{
    int code = nextToken(value);
    switch (code) {
    case ccp::T_CAN_PARAM:
        code = afterFields(value, 3);
        return expectClosed(value, code, ccp::T_CAN_PARAM);
    case ccp::T_DEFINED_PAGES:
        return parseCcpDefinedPages(value);
    case ccp::T_CHECKSUM_PARAM:
        return parseCcpChecksumParam(value);
    default:
        return unexpectedToken(value, code);
    }
}

/// DEFINED_PAGES x x x x x { word } /end DEFINED_PAGES
int PhA2l::parseCcpDefinedPages(PhTokenValue& value)
{
    dropFields(5);
    progress("  Parse IF_DATA ASAP1B_CCP/TP_BLOB/DEFINED_PAGES\n");
    return parseOptions(value, ccp::T_DEFINED_PAGES, [&](int code) {
        switch (code) {
        case ccp::T_RAM:
        case ccp::T_ROM:
        case ccp::T_FLASH:
        case ccp::T_EEPROM:
        case ccp::T_RAM_INIT_BY_ECU:
        case ccp::T_RAM_INIT_BY_TOOL:
        case ccp::T_AUTO_FLASH_BACK:
        case ccp::T_FLASH_BACK:
        case ccp::T_DEFAULT:
            return nextToken(value);
        default:
            return unexpectedToken(value, code);
        }
    });
}

/// CHECKSUM_PARAM x x { CHECKSUM_CALCULATION x } /end CHECKSUM_PARAM
int PhA2l::parseCcpChecksumParam(PhTokenValue& value)
{
    dropFields(2);
    progress("  Parse IF_DATA ASAP1B_CCP/TP_BLOB/CHECKSUM_PARAM\n");
    return parseOptions(value, ccp::T_CHECKSUM_PARAM, [&](int code) {
        return code == ccp::T_CHECKSUM_CALCULATION ? afterFields(value, 1)
                                                   : unexpectedToken(value, code);
    });
}

} // namespace tavo
