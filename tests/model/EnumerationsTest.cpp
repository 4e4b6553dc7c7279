#include "model/enumerations.h"

#include <gtest/gtest.h>

#include <string_view>
#include <tuple>

using namespace tavo;

TEST(EnumerationsTest, EachRunsFromZeroToItsLastValue)
{
    const std::tuple<const char* (*)(std::int32_t), std::int32_t, const char*> lastTexts[] = {
        {baseTypeName, 8, "BtBytefield"},
        {conversionTypeName, 8, "CtScale"},
        {channelTypeName, 4, "FlexRay"},
        {endianName, 2, "LittleEndian"},
        {frameTypeName, 10, "APPLICATION"},
        {groupTypeName, 8, "Module"},
        {pageTypeName, 5, "Parameters"},
        {locationName, 2, "Extern"},
        {memoryTypeName, 6, "Register"},
        {protocolName, 3, "XCP"},
        {serviceParameterTypeName, 11, "ParameterId"},
        {transportName, 8, "SCI"},
    };
    for (const auto& [name, last, text] : lastTexts) {
        EXPECT_STREQ(name(last), text);
        EXPECT_TRUE(std::string_view(name(0)).ends_with("Undefined"));
        EXPECT_STREQ(name(last + 1), "*Undefined*");
        EXPECT_STREQ(name(-1), "*Undefined*");
    }
}
