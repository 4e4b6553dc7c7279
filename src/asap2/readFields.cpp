// How a parser reads fields, and what it says of those that are missing.

#include "asap2/Parser.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tavo {

/// Reads the fields of an option by their kinds. False if one is missing or of another kind, which
/// is current then.
bool Parser::readFields(Block block, const OptionRow& row)
{
    std::size_t i = 0;
    for (const char* kinds = row.fields; *kinds; ++kinds) {
        if (kinds[1] == '*' && *kinds == 'w') {
            while (scanner_.token() == Token::Word &&
                   findOption(block, scanner_.text()).option == Option::Unknown)
                scanner_.advance();
            return true;
        }
        // A word without effect isn't worth one that has an effect.
        const bool isOption = row.option == Option::Known && *kinds == 'w' &&
                              scanner_.token() == Token::Word &&
                              findOption(block, scanner_.text()).option > Option::Known;
        if (isOption || !readField(*kinds, fields_[i]))
            return false;
        fields_[i].further.clear();
        if (kinds[1] == '*') {
            readMoreNumbers(fields_[i]);
            return true;
        }
        ++i;
    }
    return true;
}

/// A field of one of the kinds of `options.def`, or of these: S and W are s and w of which the text
/// is kept in the inventory, and m is the name of a method, which is looked up soon.
bool Parser::readField(char kind, Field& field)
{
    const Token token = scanner_.token();
    if (token != Token::Word && token != Token::Text)
        return false;
    const std::string_view word = scanner_.text();
    const bool isText = token == Token::Text;
    const auto store = [&] {
        field.storage.assign(word);
        field.text = field.storage;
    };
    switch (kind) {
    case 's':
        if (!isText)
            return false;
        store();
        break;
    case 'S':
        if (!isText)
            return false;
        field.text = inventory_.texts.keep(word);
        break;
    case 'm':
    case 'w':
    case 'W':
        if (!isText && parseNumber(word))
            return false;
        if (kind == 'm')
            field.prepared = inventory_.methodNames.prepare(word);
        if (kind == 'W')
            field.text = inventory_.texts.keep(word);
        else
            store();
        break;
    case 'x':
        store();
        break;
    default: {
        Number& number = field.number;
        if (!readNumber(word, number))
            return false;
        if (kind == 'i') {
            const std::optional<Number> integer = number.asInteger();
            if (!integer)
                return false;
            number = *integer;
        }
        if (kind == 'p' && number.real != std::floor(number.real))
            return false;
    }
    }
    if (isText && kind != 's' && kind != 'S' && kind != 'x')
        notices_.add(scanner_.place(), "Quotes around a word or a number are ignored");
    scanner_.advance();
    return true;
}

/// The numbers after a field, as many as come.
void Parser::readMoreNumbers(Field& field)
{
    constexpr std::size_t most = 64; // Dimensions beyond these are no array's.
    while (scanner_.token() == Token::Word) {
        const std::optional<Number> number = parseNumber(scanner_.text());
        if (!number)
            return;
        if (field.further.size() < most)
            field.further.push_back(*number);
        scanner_.advance();
    }
}

std::int64_t Parser::integer(std::size_t field) const
{
    return number(field).asSigned().value_or(std::numeric_limits<std::int64_t>::max());
}

/// Reads the positional fields of a block by their kinds; `names` says what each one is. False,
/// with a warning that has the block's name if that was read, if one is missing or of another kind.
bool Parser::readPositional(std::string_view word, const char* kinds,
                            std::initializer_list<const char*> names)
{
    const auto isName = [](std::string_view name) { return name == "its name"; };
    for (const auto* name = names.begin(); name != names.end(); ++name) {
        const auto i = static_cast<std::size_t>(name - names.begin());
        if (!readField(kinds[i], fields_[i])) {
            const auto* const called = std::find_if(names.begin(), name, isName);
            const auto place = static_cast<std::size_t>(called - names.begin());
            reportMissing(word, called != name ? text(place) : "", *name);
            return false;
        }
    }
    return true;
}

/// Something is left out because of the current token, which is no `field`.
void Parser::reportMissing(std::string_view word, std::string_view name, const char* field)
{
    const bool isToken = scanner_.token() == Token::Word || scanner_.token() == Token::Text;
    std::string text(word);
    if (!name.empty())
        text = joined({word, " ", inQuotes(name)});
    if (isToken)
        text = joined({text, " is left out: ", field, " can't be ", inQuotes(scanner_.text())});
    else
        text = joined({text, " is left out: ", field, " is missing"});
    reportLeftOut(scanner_.place(), word, text);
}

/// A warning for one thing that is left out, with a name. Beyond a hundred, there is one for all of
/// the same block.
void Parser::reportLeftOut(Place place, std::string_view word, const std::string& text)
{
    constexpr unsigned mostOfTheirOwn = 100;
    if (++leftOutCount_ <= mostOfTheirOwn)
        notices_.add(place, text);
    else
        notices_.add(place,
                     joined({"A further ", word, " is left out: a field is missing or wrong"}));
}

} // namespace tavo
