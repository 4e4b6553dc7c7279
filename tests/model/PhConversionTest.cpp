#include "model/PhConversion.h"
#include "Probe.h"
#include "model/PhRange.h"
#include "model/PhUnit.h"
#include "model/PhValue.h"
#include "model/ownership.h"
#include "topology/objects.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

using namespace tavo;

namespace {

/// The coefficients of a polynomial, highest power first.
using Coefficients = std::vector<PhValue>;

void fill(PhConversion& conversion, const Coefficients& numerator, const Coefficients& denominator)
{
    for (const PhValue& coefficient : numerator)
        conversion.appendNumerator(coefficient);
    for (const PhValue& coefficient : denominator)
        conversion.appendDenominator(coefficient);
}

PhValue I(int number) { return PhValue(number); }
PhValue D(double number) { return PhValue(number); }
PhValue T() { return PhValue(PhString("2")); }

} // namespace

TEST(PhConversionTest, ReadsFactorAndOffsetFromLinearFunctions)
{
    struct
    {
        Coefficients numerator;
        Coefficients denominator;
        double factor;
        double offset;
    } const cases[] = {
        {{}, {}, 1.0, 0.0},
        {{}, {I(4)}, 0.25, 0.0},
        {{I(7)}, {I(2)}, 0.5, 3.5},
        {{I(2), I(3)}, {}, 2.0, 3.0},
        {{I(2), I(3)}, {I(4)}, 0.5, 0.75},
        {{D(2.0), D(3.0)}, {D(4.0)}, 0.5, 0.75},
        {{I(2), I(3)}, {I(0)}, 2.0, 3.0},
        {{I(2), I(3)}, {D(-0.0)}, 2.0, 3.0},
        {{I(2), I(3)}, {T()}, 2.0, 3.0},
        {{I(1), D(-0.0)}, {I(5)}, 0.2, -0.0},
    };
    for (const auto& row : cases) {
        PhConversion conversion;
        fill(conversion, row.numerator, row.denominator);
        double factor = -1.0;
        double offset = -1.0;
        SCOPED_TRACE(&row - cases);
        EXPECT_TRUE(conversion.getLinearFactors(&factor, &offset));
        EXPECT_EQ(row.factor, factor);
        EXPECT_EQ(row.offset, offset);
        EXPECT_EQ(std::signbit(row.offset), std::signbit(offset));
    }
}

TEST(PhConversionTest, EmptyListsCountAsMissingOnes)
{
    PhConversion conversion;
    conversion.createNumerator();
    EXPECT_EQ(conversion.createDenominator(), conversion.createDenominator());
    double factor = 0.0;
    double offset = 1.0;
    EXPECT_TRUE(conversion.getLinearFactors(&factor, &offset));
    EXPECT_EQ(1.0, factor);
    EXPECT_EQ(0.0, offset);
}

TEST(PhConversionTest, OtherShapesHaveNoFactors)
{
    for (const auto& [numerator, denominator] :
         {std::pair<Coefficients, Coefficients>{{I(1), I(2), I(3)}, {}},
          {{I(0), I(2), I(3)}, {I(1)}},
          {{I(2), I(3)}, {I(1), I(2)}},
          {{}, {I(0), I(1)}}}) {
        PhConversion conversion;
        fill(conversion, numerator, denominator);
        double factor = -1.0;
        double offset = -2.0;
        EXPECT_FALSE(conversion.getLinearFactors(&factor, &offset));
        EXPECT_EQ(-1.0, factor);
        EXPECT_EQ(-2.0, offset);
    }
}

TEST(PhConversionTest, AppendStoresACopy)
{
    PhValue coefficient(2);
    coefficient.setName("name");
    PhConversion conversion;
    conversion.appendNumerator(coefficient);
    coefficient = 3;
    ASSERT_EQ(1U, conversion.numerator()->count());
    const auto* stored = static_cast<PhValue*>(conversion.numerator()->first());
    EXPECT_EQ(2, stored->intValue());
    EXPECT_TRUE(stored->name().isNull());
    EXPECT_EQ(0, coefficient.refCount());
    EXPECT_EQ(nullptr, conversion.denominator());
}

TEST(PhConversionTest, ConvertEvaluatesTheQuotient)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    struct
    {
        Coefficients numerator;
        Coefficients denominator;
        PhValue x;
        double y;
    } const cases[] = {
        {{I(2), I(3)}, {I(1)}, I(5), 13.0},
        {{D(2.0), D(3.0)}, {I(1)}, D(5.0), 13.0},
        {{I(2), I(3)}, {I(4)}, I(5), 3.25},
        {{I(1), I(2), I(3)}, {I(2), I(1)}, I(10), 123.0 / 21.0},
        {{I(1)}, {I(1), I(0), I(0)}, I(4), 1.0 / 16.0},
        {{I(1), I(0)}, {}, I(4), 4.0},
        // A denominator that holds no divisor counts as 1.
        {{I(2), I(3)}, {I(0)}, I(5), 13.0},
        {{I(2), I(3)}, {I(0), D(0.0), T()}, I(5), 13.0},
        {{I(2), I(3)}, {I(0)}, D(infinity), infinity},
        // One that comes to zero doesn't.
        {{I(1)}, {I(1), I(0)}, I(0), infinity},
        {{I(-1)}, {I(1), I(-5)}, I(5), -infinity},
        // Powers of an integer wrap: 65536 squared is 0.
        {{I(1), I(0), I(7)}, {I(1)}, I(65536), 7.0},
    };
    for (const auto& row : cases) {
        PhConversion conversion;
        fill(conversion, row.numerator, row.denominator);
        PhValue y(PhString("before"));
        y.setName("y");
        conversion.convert(row.x, y);
        SCOPED_TRACE(&row - cases);
        EXPECT_TRUE(y.isDouble());
        EXPECT_FALSE(y.isText());
        EXPECT_EQ(row.y, y.doubleValue());
        EXPECT_STREQ("y", y.name());
    }
}

TEST(PhConversionTest, ConvertWithoutANumeratorGivesZeroOrNothing)
{
    for (const Coefficients& numerator : {Coefficients{}, Coefficients{I(0)}}) {
        PhConversion divided;
        fill(divided, numerator, {I(2)});
        PhValue y(1);
        divided.convert(I(5), y);
        EXPECT_TRUE(y.isDouble());
        EXPECT_EQ(0.0, y.doubleValue());

        PhConversion plain;
        fill(plain, numerator, {});
        plain.convert(I(5), y);
        EXPECT_FALSE(y.isValid());
    }
}

TEST(PhConversionTest, ConvertTakesOneValueForBoth)
{
    PhConversion conversion;
    fill(conversion, {I(1), I(1), I(1)}, {});
    PhValue value(3);
    conversion.convert(value, value);
    EXPECT_EQ(13.0, value.doubleValue());
}

TEST(PhConversionTest, ReleasesItsListsAndThenItsReferences)
{
    Holder<PhConversion> conversion(9);
    conversion.ref(&PhConversion::setUnit, &PhConversion::unit, "unit")
        .ref(&PhConversion::setConversion, &PhConversion::conversion, "further")
        .list(&PhConversion::appendRange, &PhConversion::ranges, "range");
    conversion->createDenominator()->append(conversion.deaths().mortal("below"));
    conversion->createNumerator()->append(conversion.deaths().mortal("above"));
    EXPECT_EQ("range1 range2 above below further unit", conversion.releaseOrder());
}

TEST(PhConversionTest, AChainOfAnyLengthDiesUpToWhatIsHeldElsewhere)
{
    constexpr int length = 1000000;
    const PhHold<PhConversion> end(new PhConversion);
    PhConversion* middle = nullptr;
    PhConversion* chain = end.get();
    for (int i = 0; i < length; ++i) {
        auto* conversion = new PhConversion;
        conversion->setConversion(chain);
        conversion->createNumerator()->append(i == length / 4 ? new Probe : nullptr);
        chain = conversion;
        if (i == length / 2)
            middle = conversion;
    }
    PhObject::link(middle);
    PhObject::unlink(chain);
    EXPECT_EQ(1, middle->refCount());
    EXPECT_EQ(1, Probe::alive);
    PhObject::unlink(middle);
    EXPECT_EQ(0, Probe::alive);
    EXPECT_EQ(1, end->refCount());
}
