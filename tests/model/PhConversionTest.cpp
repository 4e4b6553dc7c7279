#include "model/PhConversion.h"
#include "Probe.h"
#include "model/PhRange.h"
#include "model/PhValue.h"
#include "model/ownership.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

using namespace tavo;

namespace {

/// The coefficients of a polynomial, highest power first.
using Coefficients = std::vector<PhValue>;

/// Appends copies, which outlive the coefficients.
void fill(PhConversion& conversion, Coefficients numerator, Coefficients denominator)
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

TEST(PhConversionTest, FactorAndOffsetOfWhatIsLinear)
{
    struct
    {
        Coefficients numerator;
        Coefficients denominator;
        bool linear;
        double factor;
        double offset;
    } const cases[] = {
        {{}, {}, true, 1.0, 0.0},
        {{I(7)}, {I(2)}, true, 0.5, 3.5},
        {{I(2), I(3)}, {}, true, 2.0, 3.0},
        {{I(2), D(3.0)}, {I(4)}, true, 0.5, 0.75},
        {{I(2), I(3)}, {D(-0.0)}, true, 2.0, 3.0},
        {{I(2), I(3)}, {T()}, true, 2.0, 3.0},
        {{I(1), D(-0.0)}, {I(5)}, true, 0.2, -0.0},
        {{I(0), I(2), I(3)}, {I(1)}, false, -1.0, -2.0},
        {{I(2), I(3)}, {I(1), I(2)}, false, -1.0, -2.0},
        {{}, {I(0), I(1)}, false, -1.0, -2.0},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(&row - cases);
        PhConversion conversion;
        conversion.createNumerator(); // an empty list counts as a missing one
        fill(conversion, row.numerator, row.denominator);
        double factor = -1.0;
        double offset = -2.0;
        EXPECT_EQ(conversion.getLinearFactors(&factor, &offset), row.linear);
        EXPECT_EQ(factor, row.factor);
        EXPECT_EQ(offset, row.offset);
        EXPECT_EQ(std::signbit(offset), std::signbit(row.offset));
    }
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
        {{I(2), I(3)}, {I(4)}, I(5), 3.25},
        {{I(1), I(2), I(3)}, {I(2), I(1)}, I(10), 123.0 / 21.0},
        {{I(1)}, {I(1), I(0), I(0)}, I(4), 1.0 / 16.0},
        {{I(1), I(0)}, {}, I(4), 4.0},
        {{}, {I(2)}, I(5), 0.0},
        // A denominator that holds no divisor counts as 1; one that comes to zero doesn't.
        {{I(2), I(3)}, {I(0), D(0.0), T()}, I(5), 13.0},
        {{I(1)}, {I(1), I(0)}, I(0), infinity},
        // Powers of an integer wrap: 65536 squared is 0.
        {{I(1), I(0), I(7)}, {I(1)}, I(65536), 7.0},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(&row - cases);
        PhConversion conversion;
        fill(conversion, row.numerator, row.denominator);
        PhValue y(PhString("before"));
        conversion.convert(row.x, y);
        EXPECT_TRUE(y.isDouble() && !y.isText());
        EXPECT_EQ(y.doubleValue(), row.y);
        PhValue x(row.x);
        conversion.convert(x, x);
        EXPECT_EQ(x.doubleValue(), row.y);
    }
    PhValue y(1);
    PhConversion().convert(I(5), y);
    EXPECT_FALSE(y.isValid());
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
    EXPECT_EQ(middle->refCount(), 1);
    EXPECT_EQ(Probe::alive, 1);
    PhObject::unlink(middle);
    EXPECT_EQ(Probe::alive, 0);
    EXPECT_EQ(end->refCount(), 1);
}
