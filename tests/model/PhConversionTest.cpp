#include "model/PhConversion.h"
#include "Probe.h"
#include "model/PhRange.h"
#include "model/PhValue.h"
#include "model/ownership.h"

#include <gtest/gtest.h>

#include <limits>
#include <tuple>
#include <vector>

using namespace tavo;

namespace {

using Integers = std::vector<int>; // the coefficients of a polynomial, highest power first

void fill(PhConversion& conversion, const Integers& numerator, const Integers& denominator)
{
    for (const int coefficient : numerator)
        conversion.appendNumerator(PhValue(coefficient));
    for (const int coefficient : denominator)
        conversion.appendDenominator(PhValue(coefficient));
}

} // namespace

TEST(PhConversionTest, OtherShapesHaveNoFactors)
{
    for (const auto& [numerator, denominator] :
         {std::pair<Integers, Integers>{{0, 2, 3}, {1}}, {{2, 3}, {1, 2}}, {{}, {0, 1}}}) {
        PhConversion conversion;
        fill(conversion, numerator, denominator);
        double factor = -1.0;
        double offset = -2.0;
        EXPECT_FALSE(conversion.getLinearFactors(&factor, &offset));
        EXPECT_EQ(factor, -1.0);
        EXPECT_EQ(offset, -2.0);
    }
}

TEST(PhConversionTest, ConvertEvaluatesTheQuotient)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const std::tuple<Integers, Integers, int, double> cases[] = {
        {{2, 3}, {4}, 5, 3.25},
        {{1, 2, 3}, {2, 1}, 10, 123.0 / 21.0},
        {{1, 0}, {}, 4, 4.0},
        {{}, {2}, 5, 0.0},
        // A denominator that holds no divisor counts as 1; one that comes to zero doesn't.
        {{2, 3}, {0, 0}, 5, 13.0},
        {{1}, {1, 0}, 0, infinity},
        // Powers of an integer wrap: 65536 squared is 0.
        {{1, 0, 7}, {1}, 65536, 7.0},
    };
    for (const auto& [numerator, denominator, x, expected] : cases) {
        PhConversion conversion;
        fill(conversion, numerator, denominator);
        PhValue y(x);
        conversion.convert(y, y);
        EXPECT_TRUE(y.isDouble());
        EXPECT_EQ(y.doubleValue(), expected) << x;
    }
    PhValue y(1);
    PhConversion().convert(PhValue(5), y);
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
