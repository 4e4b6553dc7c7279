// MEASUREMENT and TYPEDEF_MEASUREMENT, and what INSTANCE has in common with them.

#include "asap2/Parser.h"

namespace tavo {

namespace {

DataType dataTypeOf(std::string_view word)
{
    for (DataType type = DataType::UByte; type <= DataType::Float64;
         type = static_cast<DataType>(static_cast<int>(type) + 1))
        if (sameBytes(word, dataTypeWord(type)))
            return type;
    return DataType::None;
}

} // namespace

/// MEASUREMENT ... /end MEASUREMENT
void Parser::parseMeasurement(const Mark& begin)
{
    // It is read in its place, which is cheaper than to copy it there.
    Rows<Quantity>& measurements = inventory_.measurements;
    static constexpr Quantity blank;
    const std::size_t count = measurements.size();
    Quantity& quantity = measurements.emplace_back(blank);
    bool isRead = false;
    try {
        isRead = parseQuantity("MEASUREMENT", begin, quantity);
    } catch (...) {
        measurements.resize(count);
        throw;
    }
    if (!isRead)
        return measurements.resize(count);
    if (!quantity.address.isGiven && !quantity.isVirtual && blobAddress_.isGiven) {
        quantity.address = blobAddress_;
        if (!quantity.addressExtension.isGiven)
            quantity.addressExtension = blobExtension_;
    }
}

/// TYPEDEF_MEASUREMENT ... /end TYPEDEF_MEASUREMENT
void Parser::parseTypedefMeasurement(const Mark& begin)
{
    Quantity quantity;
    if (!parseQuantity("TYPEDEF_MEASUREMENT", begin, quantity))
        return;
    types_.define(quantity.name, TypeKind::Measurement,
                  static_cast<std::uint32_t>(types_.measurements.size()));
    types_.measurements.push_back(quantity);
}

/// name longIdentifier dataType conversion resolution accuracy lowerLimit upperLimit { option }
/// /end word
///
/// False if the quantity is left out.
bool Parser::parseQuantity(std::string_view word, const Mark& begin, Quantity& quantity)
{
    blobAddress_ = {};
    blobExtension_ = {};
    hasMatrix_ = false;
    if (!readPositional<'W', 'S', 'w', 'm', 'n', 'n', 'n', 'n'>(
            word, {"its name", "its description", "its data type", "its conversion",
                   "its resolution", "its accuracy", "its lower limit", "its upper limit"})) {
        leaveOut(word, begin);
        return false;
    }
    quantity.type = dataTypeOf(text(2));
    if (quantity.type == DataType::None) {
        reportLeftOut(begin, word,
                      joined({word, " ", inQuotes(text(0)), " is left out: its data type ",
                              inQuotes(text(2)), " is not known"}));
        leaveOut(word, begin);
        return false;
    }
    quantity.name = text(0);
    quantity.description = text(1);
    if (!sameBytes(text(3), noMethod))
        quantity.methodName = inventory_.methodNames.number(text(3), fields_[3].prepared);
    quantity.lower = limitOf(number(6));
    quantity.upper = limitOf(number(7));
    parseOptions(Block::Measurement, word, begin, [&](Option option, const Mark& place) {
        parseQuantityOption(option, quantity, place);
    });
    return true;
}

void Parser::parseQuantityOption(Option option, Quantity& quantity, const Mark& begin)
{
    switch (option) {
    case Option::Measurement_ECU_ADDRESS:
        quantity.address = patternOf(number(0));
        break;
    case Option::Measurement_ECU_ADDRESS_EXTENSION:
        quantity.addressExtension = patternOf(number(0));
        break;
    case Option::Measurement_BIT_MASK:
        quantity.bitMask = patternOf(number(0));
        break;
    case Option::Measurement_BYTE_ORDER:
        quantity.byteOrder = byteOrderOf(text(0));
        quantity.hasOwnByteOrder = true;
        break;
    case Option::Measurement_PHYS_UNIT:
        quantity.unit = inventory_.unitNames.name(inventory_.unitNames.number(text(0)));
        quantity.hasUnit = true;
        break;
    case Option::Measurement_ARRAY_SIZE:
        // MATRIX_DIM counts, wherever it stands.
        if (!hasMatrix_)
            readDimensions(quantity);
        break;
    case Option::Measurement_MATRIX_DIM:
        hasMatrix_ |= readDimensions(quantity);
        break;
    case Option::Measurement_VIRTUAL:
        quantity.isVirtual = true;
        break;
    case Option::Measurement_VIRTUAL_block:
        quantity.isVirtual = true;
        skipRest("VIRTUAL", begin);
        break;
    default:
        parseCommonOption(option, quantity, begin);
    }
}

/// The options of a quantity that an INSTANCE has, too.
void Parser::parseCommonOption(Option option, Quantity& quantity, const Mark& begin)
{
    switch (option) {
    case Option::Measurement_ADDRESS_TYPE:
    case Option::Instance_ADDRESS_TYPE:
        quantity.isPointer = isPointerWord();
        break;
    case Option::Measurement_LAYOUT:
    case Option::Instance_LAYOUT:
        inventory_.makeDetails(quantity).layout = keep(0);
        break;
    case Option::Measurement_DISPLAY_IDENTIFIER:
    case Option::Instance_DISPLAY_IDENTIFIER: {
        QuantityDetails& details = inventory_.makeDetails(quantity);
        details.displayName = keep(0);
        details.hasDisplayName = true;
        break;
    }
    case Option::Measurement_SYMBOL_LINK:
    case Option::Instance_SYMBOL_LINK: {
        QuantityDetails& details = inventory_.makeDetails(quantity);
        // Most symbols have the name of their quantity.
        details.symbol = text(0) == quantity.name ? quantity.name : keep(0);
        details.symbolOffset = integer(1);
        details.hasSymbol = true;
        break;
    }
    case Option::Measurement_IF_DATA_block:
    case Option::Instance_IF_DATA_block:
        parseQuantityIfData(quantity, begin);
        break;
    default:
        break;
    }
}

bool Parser::isPointerWord() const { return text(0) != "DIRECT"; }

/// The dimensions that were read last. False, with a warning, if one is below 0.
bool Parser::takeDimensions(Dimensions& dimensions)
{
    Dimensions taken = {number(0).magnitude};
    bool isNegative = number(0).isNegative;
    for (const Number& further : fields_[0].further) {
        const std::optional<Number> dimension = further.asInteger();
        isNegative |= !dimension || dimension->isNegative;
        taken.push_back(dimension ? dimension->magnitude : 0);
    }
    if (isNegative) {
        notices_.add(lineOfFields(), "Dimensions that are no counts are ignored");
        return false;
    }
    while (!taken.empty() && taken.back() <= 1)
        taken.pop_back();
    dimensions = std::move(taken);
    return true;
}

bool Parser::readDimensions(Quantity& quantity)
{
    Dimensions dimensions;
    if (!takeDimensions(dimensions))
        return false;
    if (!dimensions.empty() || quantity.details != noIndex)
        inventory_.makeDetails(quantity).dimensions = std::move(dimensions);
    return true;
}

/// IF_DATA { ASAP1B_CCP ... | ASAP1B_KWP2000 ... | XCP ... | name ... } /end IF_DATA
void Parser::parseQuantityIfData(Quantity& quantity, const Mark& begin)
{
    const auto isName = [this](std::string_view name) { return scanner_.isWord(name); };
    const bool isCcp = isName("ASAP1B_CCP");
    if (isCcp || isName("ASAP1B_KWP2000")) {
        scanner_.advance();
        parseOptions(isCcp ? Block::QuantityCcp : Block::QuantityKwp, "IF_DATA", begin,
                     [this](Option option, const Mark& place) { parseBlob(option, place); });
    } else if (isName("XCP") || isName("XCPplus")) {
        scanner_.advance();
        parseOptions(Block::QuantityXcp, "IF_DATA", begin,
                     [&](Option, const Mark& place) { parseDaqEvent(quantity, place); });
    } else {
        skipRest("IF_DATA", begin);
    }
}

/// KP_BLOB extension address size, of CCP, or KP_BLOB address place size, of KWP; plain or as a
/// block. The first one that is complete counts.
void Parser::parseBlob(Option option, const Mark& begin)
{
    const bool isCcp =
        option == Option::QuantityCcp_KP_BLOB || option == Option::QuantityCcp_KP_BLOB_block;
    const bool isBlock =
        option == Option::QuantityCcp_KP_BLOB_block || option == Option::QuantityKwp_KP_BLOB_block;
    const auto readBlock = [&] {
        return isCcp ? readPositional<'p', 'p', 'x'>("KP_BLOB",
                                                     {"its extension", "its address", "its size"})
                     : readPositional<'p', 'x', 'x'>("KP_BLOB",
                                                     {"its address", "its place", "its size"});
    };
    const bool isComplete = !isBlock || readBlock();
    if (isComplete && !blobAddress_.isGiven) {
        blobAddress_ = patternOf(number(isCcp ? 1 : 0));
        if (isCcp)
            blobExtension_ = patternOf(number(0));
    }
    if (isBlock)
        skipRest("KP_BLOB", begin);
}

/// DAQ_EVENT { FIXED_EVENT_LIST { EVENT channel } |
/// VARIABLE { DEFAULT_EVENT_LIST { EVENT channel } | AVAILABLE_EVENT_LIST ... } } /end DAQ_EVENT,
/// with each list plain or as a block
void Parser::parseDaqEvent(Quantity& quantity, const Mark& begin)
{
    bool isBinding = false; // the plain list in hand
    parseOptions(Block::DaqEvent, "DAQ_EVENT", begin, [&](Option option, const Mark& place) {
        switch (option) {
        case Option::DaqEvent_EVENT:
            if (isBinding)
                bindEvent(quantity);
            break;
        case Option::DaqEvent_FIXED_EVENT_LIST:
        case Option::DaqEvent_DEFAULT_EVENT_LIST:
            isBinding = true;
            break;
        case Option::DaqEvent_AVAILABLE_EVENT_LIST:
        case Option::DaqEvent_CONSISTENCY_EVENT_LIST:
            isBinding = false;
            break;
        case Option::DaqEvent_FIXED_EVENT_LIST_block:
            parseEventList("FIXED_EVENT_LIST", quantity, place);
            break;
        case Option::DaqEvent_DEFAULT_EVENT_LIST_block:
            parseEventList("DEFAULT_EVENT_LIST", quantity, place);
            break;
        default:
            break;
        }
    });
}

/// { EVENT channel } /end word
void Parser::parseEventList(std::string_view word, Quantity& quantity, const Mark& begin)
{
    parseOptions(Block::EventList, word, begin, [&](Option, const Mark&) { bindEvent(quantity); });
}

void Parser::bindEvent(Quantity& quantity)
{
    if (number(0).isNegative || number(0).magnitude > 0xFFFFFFFFU) {
        notices_.add(lineOfFields(), "An event channel beyond 32 bits is ignored");
        return;
    }
    inventory_.makeDetails(quantity).events.push_back(
        static_cast<std::uint32_t>(number(0).magnitude));
}

} // namespace tavo
