// How a parser reads fields, and what it says of those that are missing.

#include "asap2/Parser.h"

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

/// The field of a kind that is known only now.
bool Parser::readField(char kind, Field& field)
{
    switch (kind) {
    case 's':
        return readField<'s'>(field);
    case 'w':
        return readField<'w'>(field);
    case 'x':
        return readField<'x'>(field);
    case 'i':
        return readField<'i'>(field);
    case 'p':
        return readField<'p'>(field);
    default:
        return readField<'n'>(field);
    }
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
