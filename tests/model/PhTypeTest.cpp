#include "model/PhType.h"
#include "model/PhConversion.h"
#include "model/PhParameter.h"
#include "model/PhRange.h"
#include "model/PhSignal.h"
#include "model/PhStructure.h"
#include "model/PhUnit.h"
#include "model/PhValue.h"
#include "model/ownership.h"
#include "topology/objects.h"

#include <gtest/gtest.h>

using namespace tavo;

TEST(PhTypeTest, IsBigEndianAndOtherwiseUnsetAtFirst)
{
    const PhType type;
    EXPECT_EQ(PhEndian::BigEndian, type.endian());
    EXPECT_EQ(PhBaseType::BtUndefined, type.baseType());
    EXPECT_EQ(0, type.bitCount());
    EXPECT_EQ(nullptr, type.bitMask());
    EXPECT_EQ(nullptr, type.unit());
    EXPECT_EQ(nullptr, type.conversion());
}

TEST(PhTypeTest, AConversionDiesWithTheLastOfItsTypes)
{
    const PhHold<PhConversion> conversion(new PhConversion);
    {
        PhType first;
        first.setConversion(conversion.get());
        {
            PhType second;
            second.setConversion(conversion.get());
            EXPECT_EQ(3, conversion->refCount());
        }
        EXPECT_EQ(2, conversion->refCount());
    }
    EXPECT_EQ(1, conversion->refCount());
}

TEST(PhTypeTest, ReplacingAPlaceholderReleasesIt)
{
    const PhHold<PhConversion> placeholder(new PhConversion);
    PhType type;
    type.setConversion(placeholder.get());
    type.setConversion(new PhConversion);
    EXPECT_EQ(1, placeholder->refCount());
    EXPECT_EQ(1, type.conversion()->refCount());
}

TEST(PhTypeTest, ReleasesItsReferencesInOrder)
{
    Holder<PhType> holder(4);
    holder.ref(&PhType::setBitMask, &PhType::bitMask, "bitMask")
        .ref(&PhType::setUnit, &PhType::unit, "unit")
        .ref(&PhType::setConversion, &PhType::conversion, "conversion");
    EXPECT_EQ("unit conversion bitMask", holder.releaseOrder());
}

TEST(PhRangeTest, HasFourValuesWithoutContentAtFirst)
{
    const PhRange range;
    for (const PhValue* value :
         {&range.lowerLimit(), &range.upperLimit(), &range.result(), &range.inverseValue()})
        EXPECT_FALSE(value->isValid());
    EXPECT_EQ(0, range.lowerLimitFlag());
    EXPECT_EQ(0, range.upperLimitFlag());
}

TEST(PhRangeTest, CopiesWhatItIsGivenIntoItsOwnValues)
{
    PhRange range;
    const std::uint32_t id = range.result().id();
    range.setLowerLimit(PhValue(1));
    range.setUpperLimit(PhValue(2.5));
    range.setResult(PhValue(PhString("text")));
    range.setInverseValue(PhValue(PhInfinity::Negative));
    range.setLowerLimitFlag(1);
    range.setUpperLimitFlag(255);
    EXPECT_EQ(1, range.lowerLimit().intValue());
    EXPECT_EQ(2.5, range.upperLimit().doubleValue());
    EXPECT_STREQ("text", range.result().text());
    EXPECT_EQ(id, range.result().id());
    EXPECT_TRUE(range.inverseValue().isNegativeInfinity());
    EXPECT_EQ(1, range.lowerLimitFlag());
    EXPECT_EQ(255, range.upperLimitFlag());
}

TEST(PhRangeTest, ReleasesItsReferencesInOrder)
{
    Holder<PhRange> holder(12);
    holder.ref(&PhRange::setAuxRef, &PhRange::auxRef, "auxRef")
        .ref(&PhRange::setConversion, &PhRange::conversion, "conversion");
    EXPECT_EQ("conversion auxRef", holder.releaseOrder());
}

TEST(PhUnitTest, TellsAnEmptyLabelFromNone)
{
    PhUnit unit;
    EXPECT_TRUE(unit.label().isNull());
    unit.setLabel("");
    EXPECT_FALSE(unit.label().isNull());
    EXPECT_EQ(0U, unit.label().length());
    EXPECT_TRUE(unit.name().isNull());
}

TEST(PhSignalTest, ReleasesItsReferences)
{
    Holder<PhSignal> holder(5);
    holder.ref(&PhSignal::setType, &PhSignal::type, "type")
        .ref(&PhSignal::setAuxRef1, &PhSignal::auxRef1, "auxRef1")
        .ref(&PhSignal::setAuxRef2, &PhSignal::auxRef2, "auxRef2")
        .ref(&PhSignal::setAuxRef3, &PhSignal::auxRef3, "auxRef3");
    EXPECT_EQ("type auxRef1 auxRef2 auxRef3", holder.releaseOrder());
}

TEST(PhParameterTest, ReleasesItsReferences)
{
    Holder<PhParameter> holder(13);
    holder.ref(&PhParameter::setAuxRef1, &PhParameter::auxRef1, "auxRef1")
        .ref(&PhParameter::setType, &PhParameter::type, "type")
        .ref(&PhParameter::setAuxRef2, &PhParameter::auxRef2, "auxRef2")
        .ref(&PhParameter::setAuxRef3, &PhParameter::auxRef3, "auxRef3")
        .ref(&PhParameter::setAuxRef4, &PhParameter::auxRef4, "auxRef4")
        .ref(&PhParameter::setAuxRef5, &PhParameter::auxRef5, "auxRef5")
        .ref(&PhParameter::setAuxRef6, &PhParameter::auxRef6, "auxRef6")
        .ref(&PhParameter::setAuxRef7, &PhParameter::auxRef7, "auxRef7");
    EXPECT_EQ("auxRef1 type auxRef2 auxRef3 auxRef4 auxRef5 auxRef6 auxRef7",
              holder.releaseOrder());
}

TEST(PhStructureTest, ReleasesItsReferencesAndLists)
{
    Holder<PhStructure> holder(6);
    holder.ref(&PhStructure::setAuxRef1, &PhStructure::auxRef1, "auxRef1")
        .ref(&PhStructure::setAuxRef2, &PhStructure::auxRef2, "auxRef2")
        .list(&PhStructure::appendRange, &PhStructure::ranges, "range")
        .list(&PhStructure::appendParameter, &PhStructure::parameters, "parameter")
        .ref(&PhStructure::setAuxRef3, &PhStructure::auxRef3, "auxRef3");
    EXPECT_EQ("auxRef1 auxRef2 range1 range2 parameter1 parameter2 auxRef3", holder.releaseOrder());
}
