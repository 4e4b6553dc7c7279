#include "Selection.h"

#include "text.h"

#include <algorithm>
#include <charconv>
#include <sstream>
#include <stdexcept>

namespace tavo {

namespace {

DataType typeOf(const std::string& word)
{
    const std::string small = smallLetters(word);
    for (int i = static_cast<int>(DataType::UByte); i <= static_cast<int>(DataType::Float64); ++i) {
        const auto type = static_cast<DataType>(i);
        if (small == dataTypeText(type) || small == smallLetters(dataTypeWord(type)))
            return type;
    }
    throw std::invalid_argument("'" + word + "' is no type, such as uint8, real32 or SWORD");
}

std::uint64_t addressOf(const std::string& text)
{
    const bool isHexadecimal = text.starts_with("0x") || text.starts_with("0X");
    const char* const begin = text.data() + (isHexadecimal ? 2 : 0);
    const char* const end = text.data() + text.size();
    std::uint64_t address = 0;
    const auto [stop, error] = std::from_chars(begin, end, address, isHexadecimal ? 16 : 10);
    if (error != std::errc() || stop != end)
        throw std::invalid_argument("'" + text + "' is no address, such as 0x1000 or 4096");
    return address;
}

bool isAny(const std::vector<NameTest>& tests, std::string_view text)
{
    return std::any_of(tests.begin(), tests.end(),
                       [text](const NameTest& test) { return test(text); });
}

} // namespace

TypeSet typesOf(const std::string& list)
{
    TypeSet types;
    std::istringstream words(list);
    for (std::string word; std::getline(words, word, ',');)
        types.set(static_cast<std::size_t>(typeOf(word)));
    return types;
}

AddressRange addressRangeOf(const std::string& text)
{
    AddressRange range;
    const std::size_t dash = text.find('-');
    range.first = addressOf(text.substr(0, dash));
    if (dash == std::string::npos)
        range.last = range.first;
    else
        range.last = dash + 1 == text.size() ? ~std::uint64_t{0} : addressOf(text.substr(dash + 1));
    if (range.last < range.first)
        throw std::invalid_argument("'" + text + "' ends before it begins");
    return range;
}

Selection::Selection(const SelectionOptions& options)
    : options_(options), names_(options.patterns, options.files, options.style)
{
    for (const std::string& pattern : options.excluded)
        excluded_.push_back(nameTest(pattern, options.style));
    for (const std::string& unit : options.units)
        units_.push_back(nameTest(unit, {false, options.style.ignoresCase}));
    isAll_ = options.patterns.empty() && options.files.empty() && excluded_.empty() &&
             units_.empty() && options.types.none() && options.addresses.empty();
}

/// A list without any name chooses nothing.
bool Selection::hasOnlyName(std::string_view name)
{
    const bool isAnyName = options_.patterns.empty() && options_.files.empty();
    const bool isAsked = isAnyName || names_.contains(name);
    return isAsked && !isAny(excluded_, name);
}

bool Selection::hasName(std::string_view name)
{
    return hasOnlyName(name) && units_.empty() && options_.types.none() &&
           options_.addresses.empty();
}

bool Selection::has(const Inventory& inventory, const Quantity& quantity)
{
    if (isAll_)
        return true;
    if (!hasOnlyName(quantity.name))
        return false;
    if (options_.types.any() && !options_.types[static_cast<std::size_t>(quantity.type)])
        return false;
    if (!options_.addresses.empty() && !hasAddress(quantity))
        return false;
    return units_.empty() || isAny(units_, inventory.unitOf(quantity).value_or(""));
}

bool Selection::hasAddress(const Quantity& quantity) const
{
    const Pattern64& pattern = quantity.address;
    if (!pattern.isGiven || pattern.isBeyond64)
        return false;
    const std::uint64_t address =
        pattern.fits32() ? static_cast<std::uint32_t>(pattern.bits) : pattern.bits;
    return std::any_of(options_.addresses.begin(), options_.addresses.end(),
                       [address](const AddressRange& range) {
                           return address >= range.first && address <= range.last;
                       });
}

NearestName nearestNameIn(const Inventory& inventory)
{
    NearestName nearest;
    inventory.forEachQuantity([&](const Quantity& quantity) { nearest.add(quantity.name); });
    return nearest;
}

} // namespace tavo
