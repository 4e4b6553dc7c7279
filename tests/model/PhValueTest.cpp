#include "model/PhValue.h"
#include "Probe.h"
#include "model/PhList.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

using namespace tavo;

namespace {

constexpr int lowest = std::numeric_limits<int>::min();
constexpr int highest = std::numeric_limits<int>::max();
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// All that a value holds, as in "int 5 text abc".
std::string show(const PhValue& value)
{
    testing::Message message;
    if (value.isInteger())
        message << "int " << value.intValue() << ' ';
    if (value.isDouble())
        message << "double " << value.doubleValue() << ' ';
    if (value.isPositiveInfinity())
        message << "+INF ";
    if (value.isNegativeInfinity())
        message << "-INF ";
    if (value.isText())
        message << "text " << value.text().cStr() << ' ';
    if (value.isBlob())
        message << "blob ";
    if (value.isList())
        message << "list " << (value.list() ? static_cast<int>(value.list()->count()) : -1) << ' ';
    if (value.isMarked())
        message << "marked ";
    std::string text = message.GetString();
    EXPECT_EQ(value.isValid(), !text.empty());
    if (!text.empty())
        text.pop_back();
    return text;
}

/// Adds a marker, a text and a list of one probe to a value.
void fillUp(PhValue& value)
{
    value.setMarked();
    value = PhString("abc");
    auto* list = new PhList;
    list->append(new Probe);
    value.setValue(list);
}

} // namespace

TEST(PhValueTest, ConstructorsTellTheKind)
{
    EXPECT_EQ("", show(PhValue()));
    EXPECT_EQ("int -1", show(PhValue(4294967295U)));
    EXPECT_EQ("double 0.5", show(PhValue(0.5)));
    EXPECT_EQ("text abc", show(PhValue(PhString("abc"))));
    EXPECT_EQ("blob", show(PhValue("abc", 3)));
    EXPECT_EQ("", show(PhValue("abc", 0)));
    EXPECT_EQ("", show(PhValue("abc", -1)));
    EXPECT_EQ("", show(PhValue(nullptr, 3)));
    EXPECT_EQ("list 0", show(PhValue(new PhList)));
    EXPECT_EQ("list -1", show(PhValue(static_cast<PhList*>(nullptr))));
    EXPECT_EQ("+INF", show(PhValue(PhInfinity::Positive)));
    EXPECT_EQ("-INF", show(PhValue(PhInfinity::Negative)));
    EXPECT_EQ("", show(PhValue(static_cast<PhInfinity>(2))));
}

TEST(PhValueTest, AStoreReplacesTheNumberAndLeavesTheRest)
{
    PhValue value("bytes", 5);
    fillUp(value);
    value = 7;
    EXPECT_EQ("int 7 text abc blob list 1 marked", show(value));
    value = 1.5;
    EXPECT_EQ("double 1.5 text abc blob list 1 marked", show(value));
    value.setValue(3000000000U);
    EXPECT_EQ("int -1294967296 text abc blob list 1 marked", show(value));
    value.setValue(PhString("new"));
    EXPECT_EQ("text new blob list 1 marked", show(value));
    value.setValue(2.5);
    EXPECT_EQ("double 2.5 text new blob list 1 marked", show(value));
    value.setValue(static_cast<PhList*>(nullptr));
    EXPECT_EQ("text new blob list -1 marked", show(value));
    EXPECT_EQ(0, Probe::alive);
    value.clearMarked();
    EXPECT_EQ("text new blob list -1", show(value));
}

TEST(PhValueTest, AnInfinityReplacesAllAndIsReplacedByANumber)
{
    PhValue value;
    fillUp(value);
    value = PhInfinity::Negative;
    EXPECT_EQ("-INF", show(value));
    value = 1.0;
    EXPECT_EQ("double 1", show(value));
    fillUp(value);
    value = -3;
    EXPECT_EQ("-INF", show(value.divide(0)));
    value = PhString("new");
    EXPECT_EQ("text new", show(value));
    value = static_cast<PhInfinity>(-1);
    EXPECT_EQ("", show(value));
}

TEST(PhValueTest, KeepsTheListThatItAlreadyHolds)
{
    PhValue value;
    fillUp(value);
    PhList* list = value.list();
    value.setValue(list);
    EXPECT_EQ(list, value.list());
    EXPECT_EQ(1, Probe::alive);
}

TEST(PhValueTest, ACopySharesElementsAndTextButHasAnIdentityOfItsOwn)
{
    const char* const content = "int 3 text abc blob list 1 marked";
    auto* source = new PhValue("bytes", 5);
    fillUp(*source);
    *source = 3;
    source->setName("name");
    const PhValue copy(*source);
    PhValue assigned(PhInfinity::Positive);
    assigned.setName("assigned");
    const std::uint32_t id = assigned.id();
    assigned = *source;

    EXPECT_EQ(content, show(copy));
    EXPECT_EQ(content, show(assigned));
    EXPECT_NE(source->id(), copy.id());
    EXPECT_TRUE(copy.name().isNull());
    EXPECT_EQ(id, assigned.id());
    EXPECT_STREQ("assigned", assigned.name());
    EXPECT_EQ(source->text().cStr(), copy.text().cStr());
    EXPECT_NE(source->list(), copy.list());
    EXPECT_EQ(3, copy.list()->first()->refCount());

    PhObject::unlink(source);
    EXPECT_EQ(content, show(copy));
    assigned = PhValue();
    EXPECT_EQ("", show(assigned));
    EXPECT_TRUE(assigned.text().isNull());
    EXPECT_EQ(nullptr, assigned.list());
    EXPECT_EQ(1, copy.list()->first()->refCount());
}

TEST(PhValueTest, AssignmentTakesItselfAndItsOwnElement)
{
    PhValue value;
    fillUp(value);
    value = *&value;
    EXPECT_EQ("text abc list 1 marked", show(value));
    EXPECT_EQ(1, Probe::alive);
    value.list()->append(new PhValue(PhString("element")));
    value = *static_cast<PhValue*>(value.list()->last());
    EXPECT_EQ("text element", show(value));
    EXPECT_EQ(0, Probe::alive);
}

TEST(PhValueTest, SetNumberTakesThePointForTheSignOfADouble)
{
    struct
    {
        const char* text;
        const char* expected;
    } const cases[] = {
        {"15", "int 15"},
        {"1.5", "double 1.5"},
        {"1e3", "int 1"},
        {"1.e3", "double 1000"},
        {" \t\r\n\v\f-7x", "int -7"},
        {"\n+.5", "double 0.5"},
        {"", "int 0"},
        {"x.", "double 0"},
        {"10 .", "double 10"},
        {"99999999999", "int 2147483647"},
        {"1.0e999", "double inf"},
        {"-1.0e-999", "double -0"},
    };
    for (const auto& [text, expected] : cases) {
        PhValue value(PhInfinity::Positive);
        EXPECT_TRUE(value.setNumber(text));
        EXPECT_EQ(expected, show(value)) << text;
    }
    PhValue value(7);
    EXPECT_FALSE(value.setNumber(nullptr));
    EXPECT_EQ("int 7", show(value));
}

TEST(PhValueTest, ReadingsTruncateAndSaturate)
{
    struct
    {
        PhValue value;
        int asInt;
        unsigned asUnsigned;
    } const cases[] = {
        {PhValue(-1), -1, 4294967295U},
        {PhValue(3000000000U), -1294967296, 3000000000U},
        {PhValue(2.9), 2, 2},
        {PhValue(-2.9), -2, 0},
        {PhValue(-0.9), 0, 0},
        {PhValue(3e9), highest, 3000000000U},
        {PhValue(1e300), highest, 4294967295U},
        {PhValue(-1e300), lowest, 0},
        {PhValue(-infinity), lowest, 0},
        {PhValue(notANumber), 0, 0},
        {PhValue(PhInfinity::Positive), 0, 0},
        {PhValue(PhString("5")), 0, 0},
    };
    for (const auto& [value, asInt, asUnsigned] : cases) {
        EXPECT_EQ(asInt, value.intValue()) << show(value);
        EXPECT_EQ(asUnsigned, value.unsignedValue()) << show(value);
    }
    EXPECT_EQ(-1.0, PhValue(4294967295U).doubleValue());
    EXPECT_EQ(0.0, PhValue(PhString("5")).doubleValue());
}

TEST(PhValueTest, ZeroAndOneAreExact)
{
    for (const PhValue& zero : {PhValue(0), PhValue(0.0), PhValue(-0.0)})
        EXPECT_TRUE(zero.isZero() && !zero.isOne()) << show(zero);
    for (const PhValue& one : {PhValue(1), PhValue(1.0)})
        EXPECT_TRUE(one.isOne() && !one.isZero()) << show(one);
    for (const PhValue& neither : {PhValue(), PhValue(PhString("0")), PhValue(notANumber),
                                   PhValue(1e-320), PhValue(1.0 + 1e-15)})
        EXPECT_FALSE(neither.isZero() || neither.isOne()) << show(neither);

    PhValue stale(0);
    stale = PhString("text");
    EXPECT_FALSE(stale.isZero());
}

TEST(PhValueTest, ArithmeticWithAValue)
{
    const PhValue none;
    const PhValue text(PhString("t"));
    const PhValue plus(PhInfinity::Positive);
    struct
    {
        PhValue left;
        char operation;
        PhValue right;
        const char* expected;
    } const cases[] = {
        {PhValue(2), '*', PhValue(3), "int 6"},
        {PhValue(2), '+', PhValue(3), "int 5"},
        {PhValue(6), '/', PhValue(3), "double 2"},
        {PhValue(2), '*', PhValue(1.5), "double 3"},
        {PhValue(1.5), '+', PhValue(2), "double 3.5"},
        // Neutral operands.
        {PhValue(2), '*', PhValue(1.0), "int 2"},
        {PhValue(2), '/', PhValue(1), "int 2"},
        {PhValue(5), '+', PhValue(0), "int 5"},
        {PhValue(5), '+', PhValue(-0.0), "int 5"},
        {PhValue(-0.0), '+', PhValue(0), "double -0"},
        {none, '*', PhValue(1), ""},
        {none, '+', PhValue(0.0), ""},
        {plus, '/', PhValue(1.0), "+INF"},
        {plus, '+', PhValue(0), "+INF"},
        {PhValue(5), '+', PhValue(1), "int 6"},
        // What is no number counts as zero.
        {PhValue(5), '+', none, "double 5"},
        {none, '+', PhValue(2), "double 2"},
        {none, '*', PhValue(2), "double 0"},
        {PhValue(5), '*', plus, "double 0"},
        {plus, '+', PhValue(2), "double 2"},
        {text, '+', PhValue(2), "double 2 text t"},
        {PhValue(2), '+', text, "double 2"},
        // Division by zero.
        {PhValue(1.0), '/', PhValue(0), "double inf"},
        {PhValue(-1), '/', none, "double -inf"},
        {PhValue(1), '/', PhValue(-0.0), "double -inf"},
        // Wrapping.
        {PhValue(highest), '+', PhValue(2), "int -2147483647"},
        {PhValue(65536), '*', PhValue(65537), "int 65536"},
        {PhValue(lowest), '*', PhValue(-1), "int -2147483648"},
    };
    for (const auto& [left, operation, right, expected] : cases) {
        PhValue value(left);
        PhValue& result = operation == '*'   ? value *= right
                          : operation == '+' ? value += right
                                             : value /= right;
        EXPECT_EQ(&value, &result);
        EXPECT_EQ(expected, show(value)) << show(left) << ' ' << operation << ' ' << show(right);
    }
    PhValue zero(0.0);
    zero /= PhValue(0);
    EXPECT_TRUE(zero.isDouble() && std::isnan(zero.doubleValue()));
    PhValue itself(3);
    itself *= itself;
    itself += itself;
    EXPECT_EQ("int 18", show(itself));
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
        {PhValue(7), '*', 3, "int 21"},
        {PhValue(1.5), '*', 3, "double 4.5"},
        {PhValue(7), '+', -9, "int -2"},
        {PhValue(7), '-', 9, "int -2"},
        {PhValue(1.5), '-', 2, "double -0.5"},
        {PhValue(-0.0), '+', 0, "double -0"},
        {PhValue(-7), '/', 2, "int -3"},
        {PhValue(-7.0), '/', 2, "double -3.5"},
        {PhValue(highest), '*', 2, "int -2"},
        {PhValue(highest), '+', 1, "int -2147483648"},
        {PhValue(lowest), '-', 1, "int 2147483647"},
        {PhValue(lowest), '/', -1, "int -2147483648"},
        {PhValue(1.5), '/', -1, "double -1.5"},
        {PhValue(1), '/', 0, "+INF"},
        {PhValue(0), '/', 0, "+INF"},
        {PhValue(-1), '/', 0, "-INF"},
        {PhValue(-1.0), '/', 0, "-INF"},
        {PhValue(-0.0), '/', 0, "+INF"},
        {PhValue(notANumber), '/', 0, "+INF"},
        {PhValue(), '+', 5, ""},
        {PhValue(), '/', 0, ""},
        {PhValue(PhString("t")), '/', 0, "text t"},
        {PhValue(PhInfinity::Negative), '/', 0, "-INF"},
    };
    for (const auto& [initial, operation, operand, expected] : cases) {
        PhValue value(initial);
        PhValue& result = operation == '*'   ? value.multiply(operand)
                          : operation == '+' ? value.add(operand)
                          : operation == '-' ? value.subtract(operand)
                                             : value.divide(operand);
        EXPECT_EQ(&value, &result);
        EXPECT_EQ(expected, show(value)) << show(initial) << ' ' << operation << ' ' << operand;
    }
}

TEST(PhValueTest, NegateChangesTheSignOfNumbers)
{
    EXPECT_EQ("int -5", show(PhValue(5).negate()));
    EXPECT_EQ("int -2147483648", show(PhValue(lowest).negate()));
    EXPECT_EQ("double -0", show(PhValue(0.0).negate()));
    EXPECT_EQ("+INF", show(PhValue(PhInfinity::Positive).negate()));
    EXPECT_EQ("", show(PhValue().negate()));
}
