#pragma once

/// The token codes: plain numbers in one space, shared with the single characters that start no
/// token. So the character '#' has the code of ASAP2_VERSION and passes for it, and bytes from 0x80
/// on have negative codes. Hosts rely on the numbers (docs/architecture.md).
///
/// A keyword's enumerator is `T_` plus the word. The core vocabulary stands in the namespace of the
/// library itself, the others in namespaces of their own, since they share words with it.
namespace tavo {

enum Token : int
{
    T_INTEGER = 300,
    T_DOUBLE = 301,
    T_STRING = 302,
    T_IDENTIFIER = 303, ///< A name that is no keyword of the active table.
    T_EOF = 304,
    T_ERROR = 305, ///< The reading has failed, and the failure has been reported.
    T_NONE = -1,   ///< A malformed number or a string without an end.
};

/// What the lexer has in hand before it makes a token of it.
enum ScannedToken : int
{
    ScannedName = 306,    ///< A name that may be a keyword.
    ScannedInteger = 307, ///< The rest are numbers whose value isn't known yet.
    ScannedReal = 308,
    ScannedHexadecimal = 309,
};

enum CoreToken : int
{
#define TAVO_KEYWORD(enumerator, word, code) enumerator = code,
#include "a2l/coreKeywords.def"
};

#define TAVO_KEYWORD(enumerator, word) enumerator,

namespace enumWord {
enum : int
{
    beforeFirst = 1000,
#include "a2l/enumKeywords.def"
};
} // namespace enumWord

#define TAVO_KEYWORD(enumerator, word) enumerator,

namespace ccp {
enum : int
{
    beforeFirst = 3000,
#include "a2l/ccpKeywords.def"
};
} // namespace ccp

#define TAVO_KEYWORD(enumerator, word) enumerator,

namespace xcp {
enum : int
{
    beforeFirst = 2000,
#include "a2l/xcpKeywords.def"
};
} // namespace xcp

#define TAVO_KEYWORD(enumerator, word) enumerator,
#define TAVO_KEYWORD_WITH_CODE(enumerator, word, code) enumerator = code,

namespace kwp {
enum : int
{
    beforeFirst = 4000,
#include "a2l/kwpKeywords.def"
};
} // namespace kwp

// No keyword has the code of another kind of token.
#define TAVO_KEYWORD(enumerator, word, code)                                                       \
    static_assert((code > 0 && code < T_INTEGER) || code > ScannedHexadecimal);
#include "a2l/coreKeywords.def"

// Frozen: the positions of the rows make these numbers.
static_assert(enumWord::T_BIG_ENDIAN == 1001 && enumWord::T_FORM == 1042);
static_assert(ccp::T_ACTIVE_PAGE == 3001 && ccp::T_TP_BLOB == 3051);
static_assert(xcp::T_ADDRESS == 2001 && xcp::T_XCP_WRITE_ACCESS_WITH_ECU_ONLY == 2209);
static_assert(kwp::T_5Baud == 4001 && kwp::T_TP_BLOB == 4028 && kwp::T_WuP == 4039);

} // namespace tavo
