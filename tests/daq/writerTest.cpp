// What no description leads to, on models made by hand; the golden descriptions test the rest.

#include "daq/writer.h"

#include "support/model.h"
#include "support/written.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace tavo;

namespace {

TEST(PrintValueTest, TellsEachKindOfValueByItsFlags)
{
    const double infinite = std::numeric_limits<double>::infinity();
    PhValue textAndInteger(PhString("t"));
    textAndInteger = 5;
    PhValue marked;
    marked.setMarked();
    // In decimal and in hexadecimal.
    const std::pair<PhValue, const char*> rows[] = {
        {PhValue(), "-INVALID- -INVALID-"},
        {PhValue(PhInfinity::Positive), "+INF +INF"},
        {PhValue(-1), "-1 0xffffffff"},
        {PhValue(0xABCDEFU), "11259375 0xabcdef"},
        {PhValue(-0.0000004), "-0.000000 -0.000000"},
        {PhValue(-infinite), "-inf -inf"},
        {PhValue(std::nan("")), "nan nan"},
        {PhValue(PhString("a'b")), "'a'b' 'a'b'"},
        {textAndInteger, "5 0x5"},
        {PhValue("x", 1), " "},
        {marked, " "},
    };
    for (const auto& [value, expected] : rows)
        EXPECT_EQ(written([&](ConfigurationStream& stream) {
                      printValue(stream, value);
                      stream.put(" ");
                      printHexValue(stream, value);
                  }),
                  expected);
}

TEST(TypeTextTest, NamesTheTypeByKindAndWidth)
{
    const std::tuple<PhBaseType, int, const char*> rows[] = {
        {PhBaseType::BtInteger, 8, "int8"},     {PhBaseType::BtInteger, 9, "int16"},
        {PhBaseType::BtInteger, 17, "int32"},   {PhBaseType::BtUInteger, 0, "uint8"},
        {PhBaseType::BtUInteger, 16, "uint16"}, {PhBaseType::BtUInteger, 64, "uint32"},
        {PhBaseType::BtBytefield, 64, "uint8"}, {PhBaseType::BtStringAscii, 8, "uint8"},
        {PhBaseType::BtUndefined, 8, "???"},    {static_cast<PhBaseType>(9), 8, "???"},
    };
    PhType type;
    for (const auto& [baseType, bitCount, text] : rows) {
        type.setBaseType(baseType);
        type.setBitCount(bitCount);
        EXPECT_STREQ(typeText(&type.fields()), text) << bitCount;
    }
    EXPECT_STREQ(typeText(nullptr), "???");
    EXPECT_STREQ(protocolText(PhProtocol::KWP), "KWP");
    EXPECT_STREQ(protocolText(static_cast<PhProtocol>(4)), "???");
}

TEST(WriteGroupTest, GoesDownToTheFirstGroupWithoutChildren)
{
    PhRoot root;
    auto* outer = new PhGroup;
    auto* middle = new PhGroup;
    auto* inner = new PhGroup;
    root.appendGroup(outer);
    outer->appendGroup(middle);
    outer->appendGroup(new PhGroup);
    middle->appendGroup(inner);
    auto* left = new PhGroup;
    inner->appendGroup(left);
    inner->removeGroup(left->id());
    EXPECT_EQ(writtenGroup(outer), inner);
}

TEST(WriteGroupTest, StartsTheSourcesOfEachCommParamAtZeroAndLeavesOutWhatIsNotSet)
{
    PhGroup group;
    for (const int rasterCount : {2, 1}) {
        auto* commParam = new PhCommParam;
        group.appendCommParam(commParam);
        for (int i = 0; i < rasterCount; ++i)
            commParam->appendRaster(new PhRaster);
    }
    group.appendEntity(new PhEntity);
    daqSourceIndex = 9;
    EXPECT_EQ(written([&](ConfigurationStream& stream) { writeGroup(stream, &group); }),
              "[DAQ_Measurement_0]\nEnabled=1\nProtocol=Undefined\nNumSources=3\n\n"
              "[DAQ_Source_0_0]\nEnabled=1\n\n"
              "[DAQ_Source_0_1]\nEnabled=1\n\n"
              "[DAQ_Measurement_1]\nEnabled=1\nProtocol=Undefined\nNumSources=2\n\n"
              "[DAQ_Source_0_0]\nEnabled=1\n\n"
              "[DAQ_Source_0_1]\nName=\"Unassigned\"\nEnabled=1\nUnassigned=1\n"
              "NumProcessFactors=1\n\n"
              "[DAQ_ProcessFactor_0_1_0]\nEnabled=0\nType=???\n\n");
}

TEST(ConfigurationStreamTest, PassesTextsOnThatDoNotFitItsBuffer)
{
    // Up to the buffer's end, one more, and several buffers.
    for (const std::size_t size : {65535U, 65536U, 200000U}) {
        const std::string large(size, 'x');
        EXPECT_TRUE(written([&](ConfigurationStream& stream) {
                        stream.put("a");
                        stream.put(large);
                        stream.put("z");
                    }) == std::string("a").append(large).append("z"))
            << size;
    }
}

} // namespace
