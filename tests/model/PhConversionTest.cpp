#include "model/PhConversion.h"
#include "Probe.h"
#include "model/PhRange.h"
#include "model/PhValue.h"
#include "model/ownership.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <limits>
#include <string>
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

/// All that a value is, to the last bit: "int 7; ".
std::string shown(const PhValue& value)
{
    char text[400] = "";
    if (value.isInteger())
        std::snprintf(text, sizeof text, "int %d; ", value.intValue());
    else if (value.isDouble())
        std::snprintf(text, sizeof text, "double %a; ", value.doubleValue());
    else if (value.isText())
        std::snprintf(text, sizeof text, "text '%s'; ", value.text().cStr());
    else
        std::snprintf(text, sizeof text, "infinity %d; ", value.isNegativeInfinity());
    return text;
}

std::string shown(const PhList* values)
{
    std::string text;
    for (const PhValue* value : each<PhValue>(values))
        text += shown(*value);
    return text;
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
        EXPECT_EQ(countOf(conversion.numerator()), numerator.size());
        EXPECT_FALSE(conversion.getLinearFactors(&factor, &offset));
    }
}

TEST(PhConversionTest, RowsAndCoefficientsReadAsIfEachHadBeenAnObject)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const PhString text(std::string(300, 'x'));
    const PhValue values[] = {PhValue(7),        PhValue(-0.0),
                              PhValue(7.0),      PhValue(PhString("")),
                              PhValue(text),     PhValue(PhInfinity::Negative),
                              PhValue(-infinity)};
    for (const int kinds : {3, 5, 7}) // numbers alone, what can be packed, and more
        for (const int asked : {0, 1, 100, 1000}) {
            PhConversion conversion;
            std::string rows;
            std::string numerator;
            std::string denominator;
            for (int i = 0; i < 200; ++i) {
                if (i == asked) {
                    EXPECT_EQ(countOf(conversion.ranges()), static_cast<unsigned>(i));
                    conversion.numerator();
                }
                const PhValue& lower = values[i % 3];
                const PhValue& upper = values[i % 2];
                const PhValue& value = values[i % kinds];
                rows += shown(lower) + shown(upper) + shown(value);
                if (value.isText())
                    conversion.appendRow(lower, upper, value.text().view());
                else
                    conversion.appendRow(lower, upper, value);
                (i % 3 ? numerator : denominator) += shown(value);
                i % 3 ? conversion.appendNumerator(value) : conversion.appendDenominator(value);
            }
            std::string read;
            for (const PhRange* row : each<PhRange>(conversion.ranges())) {
                read += shown(row->lowerLimit()) + shown(row->upperLimit()) + shown(row->result());
                EXPECT_TRUE(row->lowerLimitFlag() && row->upperLimitFlag());
            }
            EXPECT_EQ(read, rows) << kinds << " " << asked;
            EXPECT_EQ(shown(conversion.numerator()), numerator) << kinds << " " << asked;
            EXPECT_EQ(shown(conversion.denominator()), denominator) << kinds << " " << asked;
            conversion.appendRange(new PhRange);
            EXPECT_EQ(countOf(conversion.ranges()), 201U);
        }
}

TEST(PhConversionTest, AChainOfAnyLengthDiesUpToWhatIsHeldElsewhere)
{
    constexpr int length = 1000000;
    const PhRef<PhConversion> end(new PhConversion);
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
