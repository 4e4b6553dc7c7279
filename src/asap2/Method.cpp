// COMPU_METHOD, and the tables that it refers to.

#include "asap2/Parser.h"

#include <algorithm>

namespace tavo {

namespace {

MethodKind methodKindOf(std::string_view word)
{
    for (MethodKind kind = MethodKind::Identical; kind <= MethodKind::Form;
         kind = static_cast<MethodKind>(static_cast<int>(kind) + 1))
        if (word == methodKindWord(kind))
            return kind;
    return MethodKind::Other;
}

/// Makes `index` the entry of a name, unless it has one.
void define(std::vector<std::uint32_t>& entries, std::uint32_t name, std::size_t index)
{
    if (name >= entries.size())
        entries.resize(name + std::size_t{1}, noIndex);
    if (entries[name] == noIndex)
        entries[name] = static_cast<std::uint32_t>(index);
}

} // namespace

/// COMPU_METHOD name longIdentifier conversionType format unit
/// { COEFFS a b c d e f | COEFFS_LINEAR a b | COMPU_TAB_REF name | /begin FORMULA ... | ... }
/// /end COMPU_METHOD
void Parser::parseMethod(const Mark& begin)
{
    constexpr std::string_view word = "COMPU_METHOD";
    if (!readPositional<'w', 's', 'w', 's', 's'>(
            word, {"its name", "its description", "its type", "its format", "its unit"})) {
        leaveOut(word, begin);
        return;
    }
    Method method;
    const std::uint32_t name = inventory_.methodNames.number(text(0));
    method.name = inventory_.methodNames.name(name);
    method.description = keep(1);
    method.kind = methodKindOf(text(2));
    method.kindWord =
        method.kind == MethodKind::Other ? keep(2) : std::string_view(methodKindWord(method.kind));
    if (method.kind == MethodKind::Other)
        notices_.add(begin, joined({"Conversion type ", inQuotes(text(2)), " is not known"}),
                     inQuotes(method.name));
    method.unit = inventory_.unitNames.name(inventory_.unitNames.number(text(4)));
    isSetWrong_ = false;
    parseOptions(Block::Method, word, begin, [&](Option option, const Mark& place) {
        parseMethodOption(option, method, place);
    });
    if (isSetWrong_) {
        reportLeftOut(begin, word,
                      joined({word, " ", inQuotes(method.name),
                              " is left out: a coefficient is missing or no number"}));
        return;
    }
    if (method.kind != MethodKind::Other && !method.basisFitsKind())
        notices_.add(begin, "Conversions go by an option that isn't their type's",
                     inQuotes(method.name));
    method.line = lineOf(method);
    define(inventory_.methodsByName, name, inventory_.methods.size());
    if (inventory_.methodsByName[name] == inventory_.methods.size())
        inventory_.methods.push_back(std::move(method));
}

void Parser::parseMethodOption(Option option, Method& method, const Mark& begin)
{
    switch (option) {
    case Option::Method_COEFFS: {
        const Number& c = number(2);
        method.coefficients.push_back({number(0).real, number(1).real, c.real, number(3).real,
                                       number(4).real, number(5).real, c.isInteger});
        break;
    }
    case Option::Method_COEFFS_LINEAR:
        method.linearFactor = number(0).real;
        method.linearOffset = number(1).real;
        method.hasLinear = true;
        break;
    case Option::Method_COMPU_TAB_REF:
        method.tableName = inventory_.tableNames.number(text(0));
        break;
    case Option::Method_FORMULA:
        method.formula = keep(0);
        method.hasFormula = true;
        break;
    case Option::Method_FORMULA_block:
        parseFormula(method, begin);
        break;
    default:
        break;
    }
}

/// FORMULA "formula" { FORMULA_INV "formula" } /end FORMULA
void Parser::parseFormula(Method& method, const Mark& begin)
{
    if (readField<'s'>(fields_[0])) {
        method.formula = keep(0);
        method.hasFormula = true;
    } else {
        notices_.add(begin, "A FORMULA without a text is ignored");
    }
    parseOptions(Block::Formula, "FORMULA", begin,
                 [&](Option, const Mark&) { method.inverseFormula = keep(0); });
}

/// COMPU_TAB name longIdentifier { TAB_INTP | TAB_NOINTP } count { input output } { option } |
/// COMPU_VTAB name longIdentifier TAB_VERB count { input "text" } { option } |
/// COMPU_VTAB_RANGE name longIdentifier count { minimum maximum "text" } { option }
void Parser::parseTable(TableKind kind, std::string_view word, const Mark& begin)
{
    const bool hasType = kind != TableKind::Ranges;
    const bool isRead =
        hasType ? readPositional<'w', 's', 'w', 'i'>(
                      word, {"its name", "its description", "its type", "its number of rows"})
                : readPositional<'w', 's', 'i'>(
                      word, {"its name", "its description", "its number of rows"});
    if (!isRead) {
        leaveOut(word, begin);
        return;
    }
    const Number rowCount = number(hasType ? 3 : 2);
    const std::uint32_t name = inventory_.tableNames.number(text(0));
    define(inventory_.tablesByName, name, inventory_.tables.size());
    if (inventory_.tablesByName[name] != inventory_.tables.size()) {
        leaveOut(word, begin);
        return;
    }
    Table& table = inventory_.tables.emplace_back();
    table.name = inventory_.tableNames.name(name);
    table.description = keep(1);
    table.kind = kind;
    table.interpolates = hasType && text(2) == "TAB_INTP";
    readRows(table);
    if (rowCount.isNegative || rowCount.magnitude != table.rows.size())
        notices_.add(begin, "Tables have another number of rows than they say",
                     inQuotes(table.name));
    parseOptions(Block::Table, word, begin, [&](Option option, const Mark&) {
        // Old descriptions give the default of a table of numbers as a number.
        const std::optional<Number> value =
            table.kind == TableKind::Numeric ? parseNumber(text(0)) : std::nullopt;
        table.hasDefaultNumber = option == Option::Table_DEFAULT_VALUE_NUMERIC || value;
        table.hasDefaultText = !table.hasDefaultNumber;
        table.defaultNumber = value ? value->real : number(0).real;
        table.defaultText = table.hasDefaultText ? keep(0) : "";
    });
}

/// The rows of a table, as many as come. One that breaks off is left out.
void Parser::readRows(Table& table)
{
    const auto readNumber = [this](double& value) {
        if (!readField<'n'>(fields_[0]))
            return false;
        value = number(0).real;
        return true;
    };
    const auto isNumber = [this] {
        return scanner_.token() == Token::Word && parseNumber(scanner_.text());
    };
    while (isNumber()) {
        TableRow row;
        const Place place = scanner_.place();
        bool isComplete = readNumber(row.lower);
        row.upper = row.lower;
        if (table.kind == TableKind::Ranges)
            isComplete = isComplete && readNumber(row.upper);
        if (table.kind == TableKind::Numeric)
            isComplete = isComplete && readNumber(row.number);
        else if (isComplete && readField<'s'>(fields_[0]))
            row.text = keep(0);
        else
            isComplete = false;
        if (isComplete)
            table.rows.push_back(row);
        else
            notices_.add(place, "Rows of tables that break off are left out", inQuotes(table.name));
    }
}

/// Names of conversions that quantities have and that no COMPU_METHOD defines.
void Parser::reportUndefinedMethods()
{
    const Notices::Kind undefined =
        notices_.kind("Conversions that are not defined count as factor 1 and offset 0");
    const auto& numbers = inventory_.methodsByName;
    const bool isComplete = numbers.size() == inventory_.methodNames.size() &&
                            std::find(numbers.begin(), numbers.end(), noIndex) == numbers.end();
    if (isComplete)
        return;
    inventory_.forEachQuantity([&](const Quantity& quantity) {
        if (quantity.methodName != noIndex && !inventory_.methodOf(quantity))
            notices_.add(undefined, {}, inQuotes(inventory_.methodNames.name(quantity.methodName)));
    });
}

} // namespace tavo
