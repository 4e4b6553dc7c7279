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
        message << " int " << value.intValue();
    if (value.isDouble())
        message << " double " << value.doubleValue();
    if (value.isText())
        message << " text " << value.text().cStr();
    if (value.isList())
        message << " list " << (value.list() ? static_cast<int>(value.list()->count()) : -1);
    message << (value.isPositiveInfinity() ? " +INF" : "")
            << (value.isNegativeInfinity() ? " -INF" : "") << (value.isBlob() ? " blob" : "")
            << (value.isMarked() ? " marked" : "");
    const std::string text = message.GetString();
    EXPECT_EQ(value.isValid(), !text.empty());
    return text.empty() ? text : text.substr(1);
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

TEST(PhValueTest, AStoreReplacesTheNumberAndLeavesTheRest)
{
    EXPECT_EQ(show(PhValue("abc", 0)), "");
    EXPECT_EQ(show(PhValue(nullptr, 3)), "");
    EXPECT_EQ(show(PhValue(static_cast<PhInfinity>(2))), "");
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
    value.clearMarked();
    value.setValue(4294967295U);
    EXPECT_EQ(show(value), "int -1 text abc list -1 blob");
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
    assigned = *source;
    assigned = *&assigned;
    EXPECT_EQ(show(copy), content);
    EXPECT_EQ(show(assigned), content);
    EXPECT_TRUE(copy.name().isNull());
    EXPECT_STREQ(assigned.name(), "assigned");
    EXPECT_EQ(copy.text().cStr(), source->text().cStr());
    EXPECT_NE(copy.list(), source->list());
    EXPECT_EQ(copy.list()->first()->refCount(), 3);
    PhObject::unlink(source);
    EXPECT_EQ(show(copy), content);
    assigned.list()->append(new PhValue(PhString("element")));
    assigned = *static_cast<PhValue*>(assigned.list()->last());
    EXPECT_EQ(show(assigned), "text element");
    EXPECT_EQ(copy.list()->first()->refCount(), 1);
}

TEST(PhValueTest, AReferenceToTheTextLastsThroughEveryStore)
{
    PhValue value(7);
    const PhString& text = value.text();
    EXPECT_TRUE(text.isNull());
    EXPECT_EQ(show(value), "int 7");
    value = PhString("first");
    EXPECT_STREQ(text, "first");
    for (const PhValue& other : {PhValue(3), PhValue(PhString("third")), PhValue(),
                                 PhValue(PhInfinity::Positive), PhValue(new PhList), value}) {
        value = other;
        EXPECT_EQ(show(value), show(other));
        EXPECT_TRUE(sameText(text, other.text()));
    }
    value = PhString("last");
    EXPECT_STREQ(text, "last");
}

TEST(PhValueTest, ReadingsTruncateAndSaturate)
{
    const std::tuple<PhValue, int, unsigned> cases[] = {
        {PhValue(3000000000U), -1294967296, 3000000000U},
        {PhValue(-2.9), -2, 0},
        {PhValue(3e9), highest, 3000000000U},
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
    EXPECT_TRUE(PhValue(0).isZero() && PhValue(-0.0).isZero() && !PhValue(1e-320).isZero());
    EXPECT_TRUE(PhValue(1).isOne() && PhValue(1.0).isOne() && !PhValue().isOne());
}

TEST(PhValueTest, ArithmeticWithAValueGivesADoubleUnlessBothAreIntegers)
{
    const auto times = [](PhValue value, const PhValue& factor) { return show(value *= factor); };
    const auto plus = [](PhValue value, const PhValue& summand) { return show(value += summand); };
    const auto by = [](PhValue value, const PhValue& divisor) { return show(value /= divisor); };
    const PhValue none;
    const PhValue infinite(PhInfinity::Positive);
    EXPECT_EQ(by(PhValue(6), PhValue(3)), "double 2");
    EXPECT_EQ(times(PhValue(2), PhValue(1.5)), "double 3");
    EXPECT_EQ(plus(PhValue(highest), PhValue(2)), "int -2147483647");
    EXPECT_EQ(times(PhValue(lowest), PhValue(-1)), "int -2147483648");
    // Neutral operands.
    EXPECT_EQ(times(PhValue(2), PhValue(1.0)), "int 2");
    EXPECT_EQ(by(PhValue(2), PhValue(1)), "int 2");
    EXPECT_EQ(plus(PhValue(-0.0), PhValue(0)), "double -0");
    EXPECT_EQ(plus(infinite, PhValue(-0.0)), "+INF");
    // What is no number counts as zero.
    EXPECT_EQ(plus(PhValue(5), none), "double 5");
    EXPECT_EQ(plus(PhValue(PhString("t")), PhValue(2)), "double 2 text t");
    EXPECT_EQ(by(PhValue(-1), infinite), "double -inf");
}
