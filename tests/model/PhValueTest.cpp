#include "model/PhValue.h"
#include "Probe.h"
#include "model/PhList.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

using namespace tavo;

namespace {

constexpr int lowest = std::numeric_limits<int>::min();
constexpr int highest = std::numeric_limits<int>::max();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// All that a value holds, as in "int 5 text abc".
std::string show(const PhValue& value)
{
    testing::Message message;
    if (value.isInteger())
        message << "int " << value.intValue() << ' ';
    if (value.isDouble())
        message << "double " << value.doubleValue() << ' ';
    if (value.isText())
        message << "text " << value.text().cStr() << ' ';
    if (value.isList())
        message << "list " << (value.list() ? static_cast<int>(value.list()->count()) : -1) << ' ';
    message << (value.isPositiveInfinity() ? "+INF " : "")
            << (value.isNegativeInfinity() ? "-INF " : "") << (value.isBlob() ? "blob " : "")
            << (value.isMarked() ? "marked " : "");
    std::string text = message.GetString();
    EXPECT_EQ(value.isValid(), !text.empty());
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

/// Adds a marker, a text and a list of one probe to a value.
void fillUp(PhValue& value)
{
    value.setMarked();
    value = PhString("abc");
    value.setValue(new PhList);
    value.list()->append(new Probe);
}

} // namespace

TEST(PhValueTest, ConstructorsTellTheKind)
{
    EXPECT_EQ(show(PhValue()), "");
    EXPECT_EQ(show(PhValue(4294967295U)), "int -1");
    EXPECT_EQ(show(PhValue(0.5)), "double 0.5");
    EXPECT_EQ(show(PhValue(PhString("abc"))), "text abc");
    EXPECT_EQ(show(PhValue("abc", 3)), "blob");
    EXPECT_EQ(show(PhValue("abc", 0)), "");
    EXPECT_EQ(show(PhValue(nullptr, 3)), "");
    EXPECT_EQ(show(PhValue(static_cast<PhList*>(nullptr))), "list -1");
    EXPECT_EQ(show(PhValue(PhInfinity::Positive)), "+INF");
    EXPECT_EQ(show(PhValue(static_cast<PhInfinity>(2))), "");
}

TEST(PhValueTest, AStoreReplacesTheNumberAndLeavesTheRest)
{
    PhValue value("bytes", 5);
    fillUp(value);
    value = 7;
    EXPECT_EQ(show(value), "int 7 text abc list 1 blob marked");
    value = 1.5;
    EXPECT_EQ(show(value), "double 1.5 text abc list 1 blob marked");
    value.setValue(value.list());
    EXPECT_EQ(Probe::alive, 1);
    EXPECT_EQ(show(value), "text abc list 1 blob marked");
    value.setValue(static_cast<PhList*>(nullptr));
    EXPECT_EQ(Probe::alive, 0);
    value = 7;
    value.clearMarked();
    value.setValue(PhString("new"));
    EXPECT_EQ(show(value), "text new list -1 blob");
    value = PhInfinity::Negative;
    EXPECT_EQ(show(value), "-INF");
    value = 1.0;
    EXPECT_EQ(show(value), "double 1");
}

TEST(PhValueTest, ACopySharesElementsAndTextButHasAnIdentityOfItsOwn)
{
    const char* const content = "int 3 text abc list 1 blob marked";
    auto* source = new PhValue("bytes", 5);
    fillUp(*source);
    *source = 3;
    source->setName("name");
    PhValue copy(*source);
    PhValue assigned(new PhList);
    assigned.setName("assigned");
    const std::uint32_t id = assigned.id();
    assigned = *source;
    assigned = *&assigned;
    EXPECT_EQ(show(copy), content);
    EXPECT_EQ(show(assigned), content);
    EXPECT_TRUE(copy.name().isNull());
    EXPECT_EQ(assigned.id(), id);
    EXPECT_STREQ(assigned.name(), "assigned");
    EXPECT_EQ(copy.text().cStr(), source->text().cStr());
    EXPECT_NE(copy.list(), source->list());
    EXPECT_EQ(copy.list()->first()->refCount(), 3);
    PhObject::unlink(source);
    EXPECT_EQ(show(copy), content);
    assigned.list()->append(new PhValue(PhString("element")));
    assigned = *static_cast<PhValue*>(assigned.list()->last());
    EXPECT_EQ(show(assigned), "text element");
    assigned = PhValue();
    EXPECT_EQ(show(assigned), "");
    EXPECT_EQ(assigned.list(), nullptr);
    EXPECT_EQ(copy.list()->first()->refCount(), 1);
}

TEST(PhValueTest, SetNumberTakesThePointForTheSignOfADouble)
{
    const std::pair<const char*, const char*> cases[] = {
        {"15", "int 15"},
        {"1.5", "double 1.5"},
        {"1e3", "int 1"},
        {"1.e3", "double 1000"},
        {" \t\r\n\v\f-7x", "int -7"},
        {"", "int 0"},
        {"x.", "double 0"},
        {"99999999999", "int 2147483647"},
        {"1.0e999", "double inf"},
    };
    for (const auto& [text, expected] : cases) {
        PhValue value(PhInfinity::Positive);
        EXPECT_TRUE(value.setNumber(text));
        EXPECT_EQ(show(value), expected) << text;
    }
    PhValue value(7);
    EXPECT_FALSE(value.setNumber(nullptr));
    EXPECT_EQ(show(value), "int 7");
}

TEST(PhValueTest, ReadingsTruncateAndSaturate)
{
    const std::tuple<PhValue, int, unsigned> cases[] = {
        {PhValue(3000000000U), -1294967296, 3000000000U},
        {PhValue(-2.9), -2, 0},
        {PhValue(3e9), highest, 3000000000U},
        {PhValue(1e300), highest, 4294967295U},
        {PhValue(-1e300), lowest, 0},
        {PhValue(notANumber), 0, 0},
        {PhValue(PhInfinity::Positive), 0, 0},
        {PhValue(PhString("5")), 0, 0},
    };
    for (const auto& [value, asInt, asUnsigned] : cases) {
        EXPECT_EQ(value.intValue(), asInt) << show(value);
        EXPECT_EQ(value.unsignedValue(), asUnsigned) << show(value);
    }
    EXPECT_EQ(PhValue(4294967295U).doubleValue(), -1.0);
    EXPECT_EQ(PhValue(PhString("5")).doubleValue(), 0.0);
    for (const PhValue& zero : {PhValue(0), PhValue(-0.0)})
        EXPECT_TRUE(zero.isZero() && !zero.isOne()) << show(zero);
    for (const PhValue& one : {PhValue(1), PhValue(1.0)})
        EXPECT_TRUE(one.isOne() && !one.isZero()) << show(one);
    for (const PhValue& neither : {PhValue(), PhValue(notANumber), PhValue(1e-320)})
        EXPECT_FALSE(neither.isZero() || neither.isOne()) << show(neither);
}

TEST(PhValueTest, ArithmeticWithAValue)
{
    const PhValue none;
    const PhValue plus(PhInfinity::Positive);
    struct
    {
        PhValue left;
        char operation;
        PhValue right;
        const char* expected;
    } const cases[] = {
        {PhValue(2), '*', PhValue(1.5), "double 3"},
        {PhValue(highest), '+', PhValue(2), "int -2147483647"},
        {PhValue(lowest), '*', PhValue(-1), "int -2147483648"},
        // Neutral operands.
        {PhValue(2), '*', PhValue(1.0), "int 2"},
        {PhValue(5), '+', PhValue(-0.0), "int 5"},
        {PhValue(-0.0), '+', PhValue(0), "double -0"},
        {plus, '+', PhValue(0), "+INF"},
        // What is no number counts as zero.
        {PhValue(5), '+', none, "double 5"},
        {PhValue(5), '*', plus, "double 0"},
        {PhValue(PhString("t")), '+', PhValue(2), "double 2 text t"},
        {PhValue(1), '/', PhValue(-0.0), "double -inf"},
    };
    for (const auto& [left, operation, right, expected] : cases) {
        PhValue value(left);
        const PhValue& result = operation == '*'   ? value *= right
                                : operation == '+' ? value += right
                                                   : value /= right;
        EXPECT_EQ(&result, &value);
        EXPECT_EQ(show(value), expected) << show(left) << ' ' << operation << ' ' << show(right);
    }
    PhValue itself(3);
    itself *= itself;
    itself += itself;
    EXPECT_EQ(show(itself), "int 18");
}

TEST(PhValueTest, ArithmeticInPlaceKeepsTheKind)
{
    struct
    {
        PhValue value;
        char operation;
        int operand;
        const char* expected;
    } const cases[] = {
        {PhValue(highest), '*', 2, "int -2"},
        {PhValue(highest), '+', 1, "int -2147483648"},
        {PhValue(-0.0), '+', 0, "double -0"},
        {PhValue(lowest), '-', 1, "int 2147483647"},
        {PhValue(-7.0), '/', 2, "double -3.5"},
        {PhValue(lowest), '/', -1, "int -2147483648"},
        {PhValue(0.0), '/', -1, "double -0"},
        {PhValue(0), '/', 0, "+INF"},
        {PhValue(-1.0), '/', 0, "-INF"},
        {PhValue(notANumber), '/', 0, "+INF"},
        {PhValue(PhString("t")), '/', 0, "text t"},
        {PhValue(PhInfinity::Negative), '/', -1, "-INF"},
    };
    for (const auto& [initial, operation, operand, expected] : cases) {
        PhValue value(initial);
        const PhValue& result = operation == '*'   ? value.multiply(operand)
                                : operation == '+' ? value.add(operand)
                                : operation == '-' ? value.subtract(operand)
                                                   : value.divide(operand);
        EXPECT_EQ(&result, &value);
        EXPECT_EQ(show(value), expected) << show(initial) << ' ' << operation << ' ' << operand;
    }
}
