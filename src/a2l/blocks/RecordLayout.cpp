#include "a2l/PhA2l.h"

namespace tavo {

namespace {

/// How many fields follow a keyword of a RECORD_LAYOUT; -1 for a word that it doesn't know.
int layoutFieldCount(int code)
{
    switch (code) {
    case T_FIX_NO_AXIS_PTS_X:
    case T_FIX_NO_AXIS_PTS_Y:
    case T_FIX_NO_AXIS_PTS_Z:
    case T_ALIGNMENT_BYTE:
    case T_ALIGNMENT_WORD:
    case T_ALIGNMENT_LONG:
    case T_ALIGNMENT_FLOAT32_IEEE:
    case T_ALIGNMENT_FLOAT64_IEEE:
        return 1;
    case T_IDENTIFICATION:
    case T_NO_AXIS_PTS_X:
    case T_NO_AXIS_PTS_Y:
    case T_NO_AXIS_PTS_Z:
    case T_NO_RESCALE_X:
    case T_NO_RESCALE_Y:
    case T_NO_RESCALE_Z:
    case T_SRC_ADDR_X:
    case T_SRC_ADDR_Y:
    case T_SRC_ADDR_Z:
    case T_RIP_ADDR_W:
    case T_RIP_ADDR_X:
    case T_RIP_ADDR_Y:
    case T_RIP_ADDR_Z:
    case T_SHIFT_OP_X:
    case T_SHIFT_OP_Y:
    case T_SHIFT_OP_Z:
    case T_OFFSET_X:
    case T_OFFSET_Y:
    case T_OFFSET_Z:
    case T_DIST_OP_X:
    case T_DIST_OP_Y:
    case T_DIST_OP_Z:
    case T_RESERVED:
        return 2;
    case T_FNC_VALUES:
    case T_AXIS_PTS_X:
    case T_AXIS_PTS_Y:
    case T_AXIS_PTS_Z:
        return 4;
    case T_AXIS_RESCALE_X:
    case T_AXIS_RESCALE_Y:
    case T_AXIS_RESCALE_Z:
        return 5;
    default:
        return -1;
    }
}

} // namespace

/// RECORD_LAYOUT name { keyword fields } /end RECORD_LAYOUT, of which nothing is kept.
int PhA2l::parseRecordLayout()
{
    progress("  Parse RECORD_LAYOUT\n");
    dropFields(1);
    return parseOptions(T_RECORD_LAYOUT, [&](int code) {
        const int count = layoutFieldCount(code);
        return count < 0 ? unexpectedToken() : afterFields(count);
    });
}

} // namespace tavo
