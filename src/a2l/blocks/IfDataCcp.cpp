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
    const PhRef<PhValue> entry(new PhValue);
    entry->setValue(new PhList);
    list->append(entry.get());
    return entry.get();
}

/// Appends an integer under `name`, which is null for one without a name.
void appendInteger(PhList* list, const PhString& name, std::int32_t number)
{
    const PhRef<PhValue> entry(new PhValue(number));
    entry->setName(name);
    list->append(entry.get());
}

} // namespace

/// IF_DATA ASAP1B_CCP { ADDRESS_MAPPING x x x | DP_BLOB x x x | KP_BLOB x x x { RASTER x } |
/// /begin block } /end IF_DATA
int PhA2l::parseIfDataCcp(PhObject* owner)
{
    return parseSection(ccpKeywords, "ASAP1B_CCP", [&](int code) {
        switch (code) {
        case ccp::T_ADDRESS_MAPPING:
        case ccp::T_DP_BLOB:
            return afterFields(3);
        case ccp::T_KP_BLOB:
            code = afterFields(3);
            while (code == ccp::T_RASTER)
                code = afterFields(1);
            return code;
        case T_BEGIN:
            return parseCcpBlock(owner);
        default:
            return unexpectedToken();
        }
    });
}

/// The block after a /begin in an IF_DATA ASAP1B_CCP. It makes the comm param, whatever it is.
int PhA2l::parseCcpBlock(PhObject* owner)
{
    const PhRef<PhCommParam> commParam(commParamOf(owner, "CCP", PhProtocol::CCP));
    const int code = nextToken();
    switch (code) {
    case ccp::T_SOURCE:
        return parseCcpSource(commParam.get());
    case ccp::T_RASTER:
        return parseCcpRaster(commParam.get());
    case ccp::T_EVENT_GROUP:
        return parseCcpEventGroup(commParam.get());
    case ccp::T_SEED_KEY:
        return parseCcpSeedKey(commParam.get());
    case ccp::T_CHECKSUM:
        return parseCcpChecksum(commParam.get());
    case ccp::T_TP_BLOB:
        return parseCcpTpBlob(commParam.get());
    default:
        return unexpectedToken();
    }
}

/// SOURCE name scalingUnit period { DISPLAY_IDENTIFIER x | QP_BLOB ... | /begin QP_BLOB ... }
/// /end SOURCE
int PhA2l::parseCcpSource(PhCommParam* commParam)
{
    PhValue* source = appendListValue(collection(commParam, "sources"));
    source->setName(readText());
    appendInteger(source->list(), sharedName("scaling_unit"), readInteger());
    appendInteger(source->list(), sharedName("period"), readInteger());
    progress("  Parse IF_DATA ASAP1B_CCP/SOURCE\n");
    return parseOptions(ccp::T_SOURCE, [&](int code) {
        switch (code) {
        case ccp::T_DISPLAY_IDENTIFIER:
            return afterFields(1);
        case ccp::T_QP_BLOB:
            return parseCcpQpBlob(false);
        case T_BEGIN:
            code = nextToken();
            if (code == ccp::T_QP_BLOB)
                return parseCcpQpBlob(true);
            break;
        }
        return unexpectedToken();
    });
}

/// QP_BLOB x { option x } [ /end QP_BLOB ], of which nothing is kept. A blob that `/begin` didn't
/// open has no end of its own: the /end is the one of the SOURCE.
int PhA2l::parseCcpQpBlob(bool begun)
{
    dropFields(1);
    progress("  Parse IF_DATA ASAP1B_CCP/SOURCE/QP_BLOB\n");
    int code = nextToken();
    while (code != T_END && code != T_ERROR) { // a failure of the lexer ends it in silence
        switch (code) {
        case ccp::T_LENGTH:
        case ccp::T_CAN_ID_FIXED:
        case ccp::T_RASTER:
        case ccp::T_EXCLUSIVE:
        case ccp::T_FIRST_PID:
            code = afterFields(1);
            break;
        case ccp::T_CAN_ID_VARIABLE:
        case ccp::T_REDUCTION_ALLOWED:
            code = nextToken();
            break;
        default:
            return unexpectedToken();
        }
    }
    return begun && code == T_END ? expectEnd(ccp::T_QP_BLOB) : code;
}

/// RASTER "longName" "name" eventChannel scalingUnit rate { EXCLUSIVE x } /end RASTER
int PhA2l::parseCcpRaster(PhCommParam* commParam)
{
    const PhRef<PhRaster> raster(new PhRaster);
    commParam->appendRaster(raster.get());
    raster->setLongName(readText());
    raster->setName(readText());
    raster->setChannel(new PhValue(readInteger()));
    const std::int32_t scalingUnit = readInteger();
    // The codes begin at a microsecond.
    setCodedRate(raster.get(), scalingUnit, PhTimeUnit::Microseconds, readInteger());
    progress("  Parse IF_DATA ASAP1B_CCP/RASTER\n");
    return parseOptions(ccp::T_RASTER, [&](int code) {
        return code == ccp::T_EXCLUSIVE ? afterFields(1) : unexpectedToken();
    });
}

/// EVENT_GROUP "longName" "name" { RASTER number } /end EVENT_GROUP
int PhA2l::parseCcpEventGroup(PhCommParam* commParam)
{
    PhValue* group = appendListValue(collection(commParam, "event_groups"));
    group->setLongName(readText());
    group->setName(readText());
    progress("  Parse IF_DATA ASAP1B_CCP/EVENT_GROUP\n");
    PhValue* rasters = nullptr;
    int code = nextToken();
    while (code == ccp::T_RASTER) {
        if (!rasters) {
            rasters = appendListValue(group->list());
            rasters->setName(sharedName("rasters"));
        }
        appendInteger(rasters->list(), nullptr, readInteger());
        code = nextToken();
    }
    if (code == T_END)
        return expectEnd(ccp::T_EVENT_GROUP);
    return code == T_ERROR ? code : unexpectedToken();
}

/// SEED_KEY [ "cal" [ "daq" [ "pgm" ] ] ] /end SEED_KEY
int PhA2l::parseCcpSeedKey(PhCommParam* commParam)
{
    int code = T_NONE;
    for (const char* property :
         {"seed_key_dll_name_cal", "seed_key_dll_name_daq", "seed_key_dll_name_pgm"}) {
        code = nextToken();
        if (code == T_END)
            break;
        commParam->setProperty(property, PhString(token().text));
    }
    progress("  Parse IF_DATA ASAP1B_CCP/SEED_KEY\n");
    if (code != T_END)
        code = nextToken();
    return code == T_END ? expectEnd(ccp::T_SEED_KEY) : unexpectedToken();
}

/// CHECKSUM "name" /end CHECKSUM
int PhA2l::parseCcpChecksum(PhCommParam* commParam)
{
    commParam->setProperty("checksum_dll_name", PhString(readText()));
    progress("  Parse IF_DATA ASAP1B_CCP/CHECKSUM\n");
    const int code = nextToken();
    return code == T_END ? expectEnd(ccp::T_CHECKSUM) : unexpectedToken();
}

/// TP_BLOB version blobVersion masterId slaveId stationAddress byteOrder { option } /end TP_BLOB
int PhA2l::parseCcpTpBlob(PhCommParam* commParam)
{
    dropFields(2);
    commParam->setMasterId(new PhValue(readInteger()));
    commParam->setSlaveId(new PhValue(readInteger()));
    commParam->setStationAddress(new PhValue(readInteger()));
    dropFields(1); // its byte order: the one of the module counts
    progress("  Parse IF_DATA ASAP1B_CCP/TP_BLOB\n");
    return parseOptions(ccp::T_TP_BLOB,
                        [&](int code) { return parseCcpTpBlobOption(commParam, code); });
}

int PhA2l::parseCcpTpBlobOption(PhCommParam* commParam, int code)
{
    switch (code) {
    case ccp::T_BAUDRATE:
        commParam->setProperty("bitrate", readInteger());
        return nextToken();
    case ccp::T_SAMPLE_POINT:
    case ccp::T_SAMPLE_RATE:
    case ccp::T_BTL_CYCLES:
    case ccp::T_SJW:
    case ccp::T_SYNC_EDGE:
    case ccp::T_CONSISTENCY:
        return afterFields(1);
    case ccp::T_BYTES_ONLY:
    case ccp::T_RESUME_SUPPORTED:
    case ccp::T_STORE_SUPPORTED:
        return nextToken();
    case ccp::T_DAQ_MODE:
        commParam->setProperty("daq_mode", readChoice(ccp::T_ALTERNATING, ccp::T_BURST));
        return nextToken();
    case ccp::T_ADDRESS_EXTENSION:
        commParam->setProperty("address_extension", readChoice(ccp::T_DAQ, ccp::T_ODT));
        return nextToken();
    case ccp::T_OPTIONAL_CMD:
        appendInteger(collection(commParam, "optional_cmd"), nullptr, readInteger());
        return nextToken();
    case T_BEGIN:
        return parseCcpTpBlobBlock();
    default:
        return unexpectedToken();
    }
}

/// Reads one of two words: 0 for the first, 1 for the second, and 0 with a warning for another.
std::int32_t PhA2l::readChoice(int first, int second)
{
    const int code = nextToken();
    if (code != first && code != second)
        warnUnexpectedToken();
    return code == second ? 1 : 0;
}

/// The block after a /begin in a TP_BLOB, of which nothing is kept.
int PhA2l::parseCcpTpBlobBlock()
{
    int code = nextToken();
    switch (code) {
    case ccp::T_CAN_PARAM:
        code = afterFields(3);
        return expectClosed(code, ccp::T_CAN_PARAM);
    case ccp::T_DEFINED_PAGES:
        return parseCcpDefinedPages();
    case ccp::T_CHECKSUM_PARAM:
        return parseCcpChecksumParam();
    default:
        return unexpectedToken();
    }
}

/// DEFINED_PAGES x x x x x { word } /end DEFINED_PAGES
int PhA2l::parseCcpDefinedPages()
{
    dropFields(5);
    progress("  Parse IF_DATA ASAP1B_CCP/TP_BLOB/DEFINED_PAGES\n");
    return parseOptions(ccp::T_DEFINED_PAGES, [&](int code) {
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
            return nextToken();
        default:
            return unexpectedToken();
        }
    });
}

/// CHECKSUM_PARAM x x { CHECKSUM_CALCULATION x } /end CHECKSUM_PARAM
int PhA2l::parseCcpChecksumParam()
{
    dropFields(2);
    progress("  Parse IF_DATA ASAP1B_CCP/TP_BLOB/CHECKSUM_PARAM\n");
    return parseOptions(ccp::T_CHECKSUM_PARAM, [&](int code) {
        return code == ccp::T_CHECKSUM_CALCULATION ? afterFields(1) : unexpectedToken();
    });
}

} // namespace tavo
