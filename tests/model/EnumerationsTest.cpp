#include "model/enumerations.h"

#include <gtest/gtest.h>

#include <limits>

using namespace tavo;

namespace {

struct Enumeration
{
    const char* (*name)(std::int32_t);
    const char* firstText;
    std::int32_t last;
    const char* lastText;
};

const Enumeration enumerations[] = {
    {baseTypeName, "BtUndefined", 8, "BtBytefield"},
    {conversionTypeName, "CtUndefined", 8, "CtScale"},
    {channelTypeName, "Undefined", 4, "FlexRay"},
    {endianName, "Undefined", 2, "LittleEndian"},
    {frameTypeName, "Undefined", 10, "APPLICATION"},
    {groupTypeName, "Undefined", 8, "Module"},
    {pageTypeName, "Undefined", 5, "Parameters"},
    {locationName, "Undefined", 2, "Extern"},
    {memoryTypeName, "Undefined", 6, "Register"},
    {protocolName, "Undefined", 3, "XCP"},
    {serviceParameterTypeName, "Undefined", 11, "ParameterId"},
    {transportName, "Undefined", 8, "SCI"},
};

} // namespace

TEST(EnumerationsTest, EachRunsFromZeroToItsLastValue)
{
    for (const Enumeration& row : enumerations) {
        SCOPED_TRACE(row.lastText);
        EXPECT_STREQ(row.firstText, row.name(0));
        EXPECT_STREQ(row.lastText, row.name(row.last));
    }
}

TEST(EnumerationsTest, WhatIsOutsideHasATextOfItsOwn)
{
    for (const Enumeration& row : enumerations) {
        SCOPED_TRACE(row.lastText);
        for (const std::int32_t value : {row.last + 1, -1, std::numeric_limits<std::int32_t>::max(),
                                         std::numeric_limits<std::int32_t>::min()})
            EXPECT_STREQ("*Undefined*", row.name(value));
    }
}

// Numbers that other components and the file's blocks rely on.
static_assert(static_cast<int>(PhConversionType::CtInterpolation) == 7);
static_assert(static_cast<int>(PhGroupType::Project) == 7);
static_assert(static_cast<int>(PhEndian::BigEndian) == 1);
static_assert(static_cast<int>(PhProtocol::CCP) == 2);
static_assert(static_cast<int>(PhTransport::UDP) == 5);
