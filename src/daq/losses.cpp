#include "daq/losses.h"

#include "base/Notices.h"
#include "inventory/Inventory.h"
#include "model/decimal.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <string>
#include <vector>

namespace tavo {

namespace {

constexpr const char* obstacleTexts[] = {"",
                                         "64-bit integer",
                                         "16-bit floating-point number",
                                         "mixed byte order",
                                         "address beyond 32 bits",
                                         "address extension beyond 32 bits",
                                         "bit mask beyond 32 bits",
                                         "pointer"};

} // namespace

const char* obstacleText(Obstacle obstacle)
{
    return obstacleTexts[static_cast<std::size_t>(obstacle)];
}

std::size_t expressibleCount(const Inventory& inventory)
{
    std::size_t count = 0;
    forEachExpressible(inventory, [&](const Quantity&) { ++count; });
    return count;
}

namespace {

std::string shortest(double number)
{
    char digits[32];
    return {digits, std::to_chars(digits, digits + sizeof digits, number).ptr};
}

/// Half a millionth is at most so much of a number from 0.5 on. Zero isn't lost either, nor are NaN
/// and infinities.
bool mayBeLost(double number) { return std::fabs(number) < 0.5 && number != 0.0; }

/// True if six decimals say another number: the relative error is above 1e-6.
bool isLost(double number)
{
    const FixedText text(number);
    const double written = parseDouble(text.text(), text.text() + text.length());
    return std::fabs(written - number) > 1e-6 * std::fabs(number);
}

class LossReport
{
public:
    LossReport(const Inventory& inventory, Notices& notices)
        : inventory_(inventory), notices_(notices), isMethodSeen_(inventory.methodNames.size())
    {
        for (std::size_t i = 1; i < std::size(obstacleTexts); ++i)
            obstacles_[i] =
                notices.kind(std::string("Left out of the configuration, ") + obstacleTexts[i]);
    }

    void add(const Quantity& quantity);
    /// Of the quantities that were added.
    std::size_t expressibleCount() const { return expressibleCount_; }

private:
    void addMethod(const Method& method);
    void addNumber(Notices::Kind kind, double number, std::string_view name)
    {
        if (mayBeLost(number) && isLost(number))
            addLost(kind, number, name);
    }
    void addLost(Notices::Kind kind, double number, std::string_view name);

    const Inventory& inventory_;
    Notices& notices_;
    std::vector<bool> isMethodSeen_; ///< By the number of the name.
    std::size_t expressibleCount_ = 0;
    std::array<Notices::Kind, std::size(obstacleTexts)> obstacles_{};
    Notices::Kind arrays_ = notices_.kind("The configuration has the first element of an array");
    Notices::Kind events_ =
        notices_.kind("The configuration doesn't say the event that a quantity is bound to");
    Notices::Kind factors_ = notices_.kind("Six decimals can't hold a factor");
    Notices::Kind offsets_ = notices_.kind("Six decimals can't hold an offset");
    Notices::Kind limits_ = notices_.kind("Six decimals can't hold a limit");
};

void LossReport::add(const Quantity& quantity)
{
    const auto addCase = [&](Notices::Kind kind) {
        notices_.add(kind, {}, notices_.wants(kind) ? inQuotes(quantity.name) : std::string());
    };
    const Obstacle obstacle = obstacleOf(inventory_, quantity);
    if (obstacle != Obstacle::None)
        return addCase(obstacles_[static_cast<std::size_t>(obstacle)]);
    ++expressibleCount_;
    if (quantity.details != noIndex) {
        const QuantityDetails& details = inventory_.detailsOf(quantity);
        if (!details.dimensions.empty())
            addCase(arrays_);
        if (!details.events.empty())
            addCase(events_);
    }
    for (const Limit* limit : {&quantity.lower, &quantity.upper})
        if (limit->isGiven && !limit->isInteger)
            addNumber(limits_, limit->value, quantity.name);
    if (quantity.methodName == noIndex || isMethodSeen_[quantity.methodName])
        return;
    isMethodSeen_[quantity.methodName] = true;
    if (const Method* method = inventory_.methodOf(quantity))
        addMethod(*method);
}

/// What is lost of a method, once for all quantities.
void LossReport::addMethod(const Method& method)
{
    const Line& line = method.line;
    if (!line.isExact) {
        const char* kind = methodKindWord(method.kind);
        notices_.add({},
                     std::string("The configuration has no line for a conversion of the kind ") +
                         (*kind ? kind : "unknown"),
                     inQuotes(method.name));
    }
    if (line.isWritten) {
        addNumber(factors_, line.factor, method.name);
        addNumber(offsets_, line.offset, method.name);
    }
}

void LossReport::addLost(Notices::Kind kind, double number, std::string_view name)
{
    std::string subject;
    if (notices_.wants(kind))
        subject = inQuotes(name) + ", which is " + shortest(number) + " and is written as " +
                  FixedText(number).text();
    notices_.add(kind, {}, subject);
}

void reportTransport(const Interface& interface, const Transport& transport, Notices& notices)
{
    if (transport.kind == TransportKind::Can)
        return;
    std::string where;
    for (const std::string_view host : {transport.address, transport.hostName, transport.ipv6})
        if (!host.empty())
            where += std::string(" ") + inQuotes(host);
    if (transport.port)
        where += std::string(" port ") + std::to_string(*transport.port);
    notices.add({}, std::string("The configuration doesn't say how to reach ") +
                        protocolText(interface.protocol) + " over " +
                        transportText(transport.kind) + where);
}

} // namespace

std::size_t reportLosses(const Inventory& inventory, Notices& notices)
{
    for (const Interface& interface : inventory.interfaces)
        for (const Transport& transport : interface.transports)
            reportTransport(interface, transport, notices);
    LossReport report(inventory, notices);
    inventory.forEachQuantity([&](const Quantity& quantity) { report.add(quantity); });
    return report.expressibleCount();
}

} // namespace tavo
