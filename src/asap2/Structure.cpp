// TYPEDEF_STRUCTURE and INSTANCE. What an instance holds is worked out when all types are known.

#include "asap2/Parser.h"

#include <array>

namespace tavo {

/// TYPEDEF_STRUCTURE name longIdentifier size { /begin STRUCTURE_COMPONENT ... | option }
/// /end TYPEDEF_STRUCTURE
void Parser::parseTypedefStructure(const Mark& begin)
{
    constexpr std::string_view word = "TYPEDEF_STRUCTURE";
    if (!readPositional<'w', 's', 'i'>(word, {"its name", "its description", "its size"})) {
        leaveOut(word, begin);
        return;
    }
    const std::string name(text(0));
    Structure structure;
    structure.size = number(2).bits();
    parseOptions(Block::Structure, word, begin, [&](Option option, const Mark& place) {
        if (option == Option::Structure_ADDRESS_TYPE)
            structure.isPointer = isPointerWord();
        else
            parseComponent(structure, place);
    });
    types_.define(name, TypeKind::Structure, static_cast<std::uint32_t>(types_.structures.size()));
    types_.structures.push_back(std::move(structure));
}

/// STRUCTURE_COMPONENT name type offset { option } /end STRUCTURE_COMPONENT
void Parser::parseComponent(Structure& structure, const Mark& begin)
{
    constexpr std::string_view word = "STRUCTURE_COMPONENT";
    if (!readPositional<'w', 'w', 'i'>(word, {"its name", "its type", "its offset"})) {
        leaveOut(word, begin);
        return;
    }
    Component component;
    component.name = keep(0);
    component.type = types_.names.number(text(1));
    component.offset = number(2).bits();
    parseOptions(Block::Component, word, begin, [&](Option option, const Mark&) {
        if (option == Option::Component_ADDRESS_TYPE)
            component.isPointer = isPointerWord();
        else if (option == Option::Component_LAYOUT)
            component.layout = keep(0);
        else
            takeDimensions(component.dimensions);
    });
    structure.components.push_back(std::move(component));
}

/// INSTANCE name longIdentifier type address { option } /end INSTANCE
void Parser::parseInstance(const Mark& begin)
{
    constexpr std::string_view word = "INSTANCE";
    if (!readPositional<'w', 's', 'w', 'p'>(
            word, {"its name", "its description", "its type", "its address"})) {
        leaveOut(word, begin);
        return;
    }
    Instance instance;
    instance.position = inventory_.measurements.size();
    instance.place = begin;
    instance.type = types_.names.number(text(2));
    Quantity& quantity = instance.quantity;
    quantity.name = keep(0);
    quantity.description = keep(1);
    quantity.address = patternOf(number(3));
    parseOptions(Block::Instance, word, begin, [&](Option option, const Mark& place) {
        switch (option) {
        case Option::Instance_ECU_ADDRESS_EXTENSION:
            quantity.addressExtension = patternOf(number(0));
            break;
        case Option::Instance_MATRIX_DIM:
            readDimensions(quantity);
            break;
        case Option::Instance_OVERWRITE_block:
            notices_.add(place, "OVERWRITE is ignored", inQuotes(quantity.name));
            skipRest("OVERWRITE", place);
            break;
        default:
            parseCommonOption(option, quantity, place);
        }
    });
    instances_.push_back(instance);
}

/// TYPEDEF_CHARACTERISTIC and the like, of which only the name is kept.
void Parser::parseAdjustable(std::string_view word, const Mark& begin)
{
    if (scanner_.token() == Token::Word)
        types_.define(scanner_.text(), TypeKind::Adjustable, noIndex);
    skipRest(word, begin);
}

} // namespace tavo
