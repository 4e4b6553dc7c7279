#pragma once

#include "inventory/Interface.h"
#include "inventory/NameTable.h"
#include "inventory/Rows.h"
#include "inventory/TextPool.h"

#include <cstdint>
#include <deque>
#include <limits>
#include <map>
#include <optional>
#include <string_view>
#include <vector>

/// All that a description says about measuring, as plain data and with exact numbers: more than a
/// configuration can express. All texts live in the inventory's pool; they are the bytes of the
/// description.
namespace tavo {

/// How a raw value is stored.
enum class DataType : std::uint8_t
{
    None, ///< Not known.
    UByte,
    SByte,
    UWord,
    SWord,
    ULong,
    SLong,
    UInt64,
    Int64,
    Float16,
    Float32,
    Float64
};

struct DataTypeRow
{
    std::string_view word;
    std::string_view text;
    std::uint32_t size;
};

/// In the order of `DataType`.
inline constexpr DataTypeRow dataTypes[] = {
    {"", "???", 0},
    {"UBYTE", "uint8", 1},
    {"SBYTE", "int8", 1},
    {"UWORD", "uint16", 2},
    {"SWORD", "int16", 2},
    {"ULONG", "uint32", 4},
    {"SLONG", "int32", 4},
    {"A_UINT64", "uint64", 8},
    {"A_INT64", "int64", 8},
    {"FLOAT16_IEEE", "real16", 2},
    {"FLOAT32_IEEE", "real32", 4},
    {"FLOAT64_IEEE", "real64", 8},
};

constexpr const DataTypeRow& rowOf(DataType type)
{
    return dataTypes[static_cast<std::size_t>(type)];
}

/// The word of the file format, "UBYTE" for example; "" for `None`.
constexpr std::string_view dataTypeWord(DataType type) { return rowOf(type).word; }
/// The word in the manner of a configuration: "uint8", "uint64", "real16" and so on; "???" for
/// `None`.
constexpr std::string_view dataTypeText(DataType type) { return rowOf(type).text; }
/// Bytes of one value; 0 for `None`.
constexpr std::uint32_t sizeOf(DataType type) { return rowOf(type).size; }

enum class ByteOrder : std::uint8_t
{
    None,              ///< Not known.
    Motorola,          ///< The most significant byte first.
    Intel,             ///< The least significant byte first.
    MotorolaWordsLast, ///< MSB_FIRST_MSW_LAST
    IntelWordsFirst    ///< MSB_LAST_MSW_FIRST
};

/// "Motorola", "Intel", or for a mixed order the word of the file format; null for `None`.
const char* byteOrderText(ByteOrder order);

/// A limit. An integer of 32 bits with sign keeps its form, everything else is a floating-point
/// number, as exact as a double can be.
struct Limit
{
    double value = 0.0;
    bool isInteger = false;
    bool isGiven = true;
};

/// A 64-bit pattern that may be missing: an address, an address extension, a mask. A negative
/// number of the description is its two's complement.
struct Pattern64
{
    std::uint64_t bits = 0;
    bool isGiven = false;
    bool isNegative = false;
    bool isBeyond64 = false; ///< The description gives a number that has no 64 bits.

    /// True if 32 bits hold the number, or the pattern of a negative one.
    bool fits32() const;
};

/// Dimensions of an array, the first one first; empty for a single value.
using Dimensions = std::vector<std::uint64_t>;

/// What few quantities have.
struct QuantityDetails
{
    Dimensions dimensions;
    std::vector<std::uint32_t> events; ///< Channels that the quantity is bound to.
    std::string_view symbol;           ///< SYMBOL_LINK; the name in the linker's map.
    std::int64_t symbolOffset = 0;     ///< Bytes from there.
    std::string_view displayName;      ///< DISPLAY_IDENTIFIER
    std::string_view layout;           ///< LAYOUT: ROW_DIR, COLUMN_DIR and so on.
    bool hasSymbol = false;
    bool hasDisplayName = false;
};

/// Where there is no entry of a table.
constexpr std::uint32_t noIndex = std::numeric_limits<std::uint32_t>::max();

/// A MEASUREMENT, a TYPEDEF_MEASUREMENT or the leaf of an INSTANCE.
struct Quantity
{
    std::string_view name;
    std::string_view description;
    std::string_view unit; ///< Of the quantity itself (PHYS_UNIT), if `hasUnit`.
    Pattern64 address;
    Pattern64 addressExtension;
    Pattern64 bitMask;
    Limit lower;
    Limit upper;
    std::uint32_t methodName = noIndex; ///< In `Inventory::methodNames`.
    std::uint32_t details = noIndex;    ///< In `Inventory::details`.
    DataType type = DataType::None;
    ByteOrder byteOrder = ByteOrder::None; ///< Its own, if `hasOwnByteOrder`.
    bool hasOwnByteOrder = false;
    bool hasUnit = false;
    bool isVirtual = false; ///< Computed by the tool: it has no address.
    bool isPointer = false; ///< ADDRESS_TYPE: the address is where the address stands.
    bool isEnabled = false; ///< A configuration has it measured. No description says so.
};

/// The first word of a conversion.
enum class MethodKind : std::uint8_t
{
    Other, ///< A word that the standard doesn't have.
    Identical,
    Linear,
    RatFunc,
    TabIntp,
    TabNointp,
    TabVerb,
    Form
};

/// The word of the file format; "" for `Other`.
const char* methodKindWord(MethodKind kind);

/// Which option of a COMPU_METHOD says how to convert.
enum class MethodBasis : std::uint8_t
{
    None,
    Coeffs,
    CoeffsLinear,
    Formula,
    Table
};

/// One COEFFS: raw = (a x^2 + b x + c) / (d x^2 + e x + f) of the physical value x.
struct Coefficients
{
    double a, b, c, d, e, f;
    bool isOffsetInteger; ///< c is written as an integer, which has no negative zero.
};

/// What a configuration says of a conversion.
struct Line
{
    bool isExact = false;  ///< The conversion is this line, and nothing else.
    bool isWritten = true; ///< False: there is no line in the configuration either.
    double factor = 1.0;
    double offset = 0.0;
};

/// A COMPU_METHOD.
struct Method
{
    std::string_view name;
    std::string_view description;
    std::string_view unit;
    std::string_view kindWord;       ///< The first word itself, "" if it isn't known.
    std::string_view formula;        ///< FORMULA: physical from raw.
    std::string_view inverseFormula; ///< FORMULA_INV
    std::vector<Coefficients> coefficients;
    double linearFactor = 1.0; ///< COEFFS_LINEAR
    double linearOffset = 0.0;
    std::uint32_t tableName = noIndex; ///< COMPU_TAB_REF, in `Inventory::tableNames`.
    MethodKind kind = MethodKind::Other;
    bool hasUnit = true;
    bool hasLinear = false;
    bool hasFormula = false;

    Line line; ///< What `lineOf` makes of the rest.

    /// The option that counts: the one of the kind, else the first of the others that is there.
    MethodBasis basis() const;
    /// False if `basis` isn't the option that the kind asks for.
    bool basisFitsKind() const;
};

/// The line that a method is, as far as it is one.
Line lineOf(const Method& method);

/// A row of a table: [lower, upper] becomes a number or a text. In tables without ranges, `upper`
/// is `lower`.
struct TableRow
{
    double lower = 0.0;
    double upper = 0.0;
    double number = 0.0;
    std::string_view text;
};

enum class TableKind : std::uint8_t
{
    Numeric, ///< COMPU_TAB
    Verbal,  ///< COMPU_VTAB
    Ranges   ///< COMPU_VTAB_RANGE
};

struct Table
{
    std::string_view name;
    std::string_view description;
    std::deque<TableRow> rows;
    std::string_view defaultText; ///< DEFAULT_VALUE, if `hasDefaultText`.
    double defaultNumber = 0.0;   ///< DEFAULT_VALUE_NUMERIC, if `hasDefaultNumber`.
    TableKind kind = TableKind::Numeric;
    bool interpolates = false; ///< TAB_INTP
    bool hasDefaultText = false;
    bool hasDefaultNumber = false;
};

/// An INSTANCE that was taken apart: its leaves stand before the quantity of this number.
struct Leaves
{
    std::size_t position = 0;
    std::deque<Quantity> quantities;
};

/// What the first MODULE of a description holds.
class Inventory
{
public:
    Inventory() = default;
    Inventory(const Inventory&) = delete;
    Inventory& operator=(const Inventory&) = delete;

    TextPool texts;
    ByteOrder byteOrder = ByteOrder::None; ///< Of quantities without one of their own.
    NameTable methodNames{texts};
    NameTable tableNames{texts};
    NameTable unitNames{texts};
    std::deque<Interface> interfaces;
    /// Each MEASUREMENT, in the order of the description.
    Rows<Quantity> measurements{texts.arena()};
    std::deque<Leaves> instances; ///< By ascending position.
    Rows<QuantityDetails> details{texts.arena()};
    /// In the order of the description, the first of each name.
    Rows<Method> methods{texts.arena()};
    Rows<Table> tables{texts.arena()};
    /// Leaves of instances that hold adjustable values: they are no measurements.
    std::uint64_t adjustableLeafCount = 0;
    /// The method, or the table, of each name; `noIndex` for a name that none is defined for.
    std::vector<std::uint32_t> methodsByName;
    std::vector<std::uint32_t> tablesByName;

    /// All quantities in their order: measurements, and the leaves of instances in their place.
    template <class Visit> void forEachQuantity(Visit visit) const
    {
        auto instance = instances.begin();
        std::size_t position = 0;
        const auto visitLeaves = [&] {
            for (; instance != instances.end() && instance->position <= position; ++instance)
                for (const Quantity& leaf : instance->quantities)
                    visit(leaf);
        };
        for (const Quantity& quantity : measurements) {
            visitLeaves();
            visit(quantity);
            ++position;
        }
        visitLeaves();
    }
    std::size_t quantityCount() const;
    /// Removes the quantities that `isKept` is false for. It gets each quantity once, in any order,
    /// and may change it.
    template <class IsKept> void keepQuantities(IsKept isKept)
    {
        const auto keep = [&](auto& quantities, auto visitBefore) {
            std::size_t kept = 0;
            for (std::size_t i = 0; i < quantities.size(); ++i) {
                visitBefore(i, kept);
                if (isKept(quantities[i]))
                    quantities[kept++] = quantities[i];
            }
            visitBefore(quantities.size(), kept);
            quantities.resize(kept);
        };
        for (Leaves& instance : instances)
            keep(instance.quantities, [](std::size_t, std::size_t) {});
        auto instance = instances.begin();
        keep(measurements, [&](std::size_t position, std::size_t kept) {
            for (; instance != instances.end() && instance->position <= position; ++instance)
                instance->position = kept;
        });
    }

    ByteOrder byteOrderOf(const Quantity& quantity) const
    {
        return quantity.hasOwnByteOrder ? quantity.byteOrder : byteOrder;
    }
    /// The method of the quantity; null if it names none, or one that isn't defined.
    const Method* methodOf(const Quantity& quantity) const;
    /// The table of a method; null if there is none.
    const Table* tableOf(const Method& method) const;
    /// The unit that counts: of the quantity, else of its method; nothing if there is none.
    std::optional<std::string_view> unitOf(const Quantity& quantity) const;
    const QuantityDetails& detailsOf(const Quantity& quantity) const;
    /// Details that can be changed, made at the first call.
    QuantityDetails& makeDetails(Quantity& quantity);
};

// For each quantity of a description, and therefore worth no call.

inline bool Pattern64::fits32() const
{
    if (isBeyond64)
        return false;
    return isNegative ? bits >= 0xFFFFFFFF80000000U : bits <= 0xFFFFFFFFU;
}

inline const Method* Inventory::methodOf(const Quantity& quantity) const
{
    const std::uint32_t name = quantity.methodName;
    if (name >= methodsByName.size() || methodsByName[name] == noIndex)
        return nullptr;
    return &methods[methodsByName[name]];
}

inline std::optional<std::string_view> Inventory::unitOf(const Quantity& quantity) const
{
    if (quantity.hasUnit)
        return quantity.unit;
    const Method* method = methodOf(quantity);
    return method && method->hasUnit ? std::optional(method->unit) : std::nullopt;
}

/// The standard's name for no conversion at all.
constexpr std::string_view noMethod = "NO_COMPU_METHOD";

} // namespace tavo
