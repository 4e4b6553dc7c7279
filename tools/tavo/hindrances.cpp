// What keeps an inventory from being written as a strict description.

#include "normalized.h"

#include "a2l/Lexer.h"
#include "base/Notices.h"
#include "daq/losses.h"
#include "inventory/Inventory.h"

#include <optional>
#include <set>
#include <utility>

namespace tavo {

namespace {

/// The byte that ends the file for the strict lexer.
constexpr char endByte = '\xFF';

/// True if the strict lexer reads the word as one name or number with this text.
bool isReadable(std::string_view name)
{
    Lexer lexer([](const char*) {});
    lexer.openMemory(name);
    const int code = lexer.next();
    const bool isName = code == T_IDENTIFIER || code == T_INTEGER || code == T_DOUBLE ||
                        lexer.vocabulary().keywordName(code) != nullptr;
    if (!isName || lexer.token().text != name)
        return false;
    return lexer.next() == T_EOF && name.find(endByte) == std::string_view::npos;
}

class Hindrances
{
public:
    explicit Hindrances(const Inventory& inventory) : inventory_(inventory) {}

    std::vector<std::string> find();

private:
    void findInInterface(const Interface& interface);
    void findInQuantity(const Quantity& quantity);
    void checkName(const char* what, std::string_view name);
    void checkText(const char* what, std::string_view text);
    void add(std::string line);

    const Inventory& inventory_;
    std::set<std::uint32_t> seenMethods_;
    std::vector<std::string> lines_;
    std::size_t furtherCount_ = 0;
};

std::vector<std::string> Hindrances::find()
{
    std::size_t xcpCount = 0;
    for (const Interface& interface : inventory_.interfaces) {
        xcpCount += interface.protocol != Protocol::Ccp;
        findInInterface(interface);
    }
    if (xcpCount > 1)
        add("The interfaces XCP and XCPplus would become one");
    forEachExpressible(inventory_, [this](const Quantity& quantity) { findInQuantity(quantity); });
    if (furtherCount_ > 0)
        lines_.push_back(joined({"and ", std::to_string(furtherCount_), " more of this kind"}));
    return std::move(lines_);
}

void Hindrances::findInInterface(const Interface& interface)
{
    const int identifierCount = interface.masterId.has_value() + interface.slaveId.has_value() +
                                interface.stationAddress.has_value();
    if (interface.protocol == Protocol::Ccp && identifierCount % 3 != 0)
        add("The interface CCP has only some of its identifiers");
    for (const Source& source : interface.sources) {
        checkText("source", source.name);
        checkText("description of a source", source.description);
    }
}

void Hindrances::findInQuantity(const Quantity& quantity)
{
    checkName("measurement", quantity.name);
    checkText("description of a measurement", quantity.description);
    if (const std::optional<std::string_view> unit = inventory_.unitOf(quantity))
        checkText("unit", *unit);
    const Method* method = inventory_.methodOf(quantity);
    if (method && seenMethods_.insert(quantity.methodName).second) {
        checkName("conversion", method->name);
        checkText("description of a conversion", method->description);
    }
}

void Hindrances::checkName(const char* what, std::string_view name)
{
    if (!isReadable(name))
        add(joined({"The name of the ", what, " ", inQuotes(name), " can't be read strictly"}));
}

void Hindrances::checkText(const char* what, std::string_view text)
{
    if (text.find(endByte) != std::string_view::npos)
        add(joined({"The ", what, " ", inQuotes(text), " holds a byte 255"}));
}

void Hindrances::add(std::string line)
{
    constexpr std::size_t most = 100;
    if (lines_.size() < most)
        lines_.push_back(std::move(line));
    else
        ++furtherCount_;
}

} // namespace

std::vector<std::string> hindrancesOf(const Inventory& inventory)
{
    return Hindrances(inventory).find();
}

} // namespace tavo
