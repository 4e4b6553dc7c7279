// What no description leads to, on models made by hand; the golden descriptions test the rest.

#include "daq/writer.h"

#include "daq/ConfigurationStream.h"
#include "model/PhConversion.h"
#include "model/PhType.h"
#include "model/PhUnit.h"
#include "model/PhValue.h"
#include "support/files.h"
#include "topology/PhCommParam.h"
#include "topology/PhEntity.h"
#include "topology/PhGroup.h"
#include "topology/PhRaster.h"
#include "topology/PhRoot.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

using namespace tavo;

namespace {

std::string written(const std::function<void(ConfigurationStream&)>& write)
{
    const TemporaryFolder folder;
    const std::string path = folder.path("w.ini");
    {
        ConfigurationStream stream;
        EXPECT_TRUE(stream.open(path.c_str()));
        write(stream);
    }
    return readFile(path);
}

PhUnit* unit(const PhString& label)
{
    auto* made = new PhUnit;
    made->setLabel(label);
    return made;
}

/// The section of one entity, which the caller fills.
std::string section(const std::function<void(PhEntity&)>& fill)
{
    PhList entities;
    auto* entity = new PhEntity;
    entities.append(entity);
    fill(*entity);
    daqSourceIndex = 0;
    const std::string text =
        written([&](ConfigurationStream& stream) { writeUnassignedSource(stream, &entities); });
    return text.substr(text.find("[DAQ_ProcessFactor"));
}

std::string typeLine(PhBaseType baseType, int bitCount)
{
    const std::string text = section([&](PhEntity& entity) {
        auto* type = new PhType;
        type->setEndian(PhEndian::Undefined);
        type->setBaseType(baseType);
        type->setBitCount(bitCount);
        entity.setType(type);
    });
    const std::size_t line = text.find("Type=");
    return text.substr(line, text.find('\n', line) - line);
}

TEST(PrintValue, tellsEachKindOfValueByItsFlags)
{
    const double infinite = std::numeric_limits<double>::infinity();
    PhValue textAndInteger(PhString("t"));
    textAndInteger = 5;
    PhValue marked;
    marked.setMarked();
    const struct
    {
        PhValue value;
        const char* plain;
        const char* hexadecimal;
    } rows[] = {
        {PhValue(), "-INVALID-", "-INVALID-"},
        {PhValue(PhInfinity::Positive), "+INF", "+INF"},
        {PhValue(PhInfinity::Negative), "-INF", "-INF"},
        {PhValue(-1), "-1", "0xffffffff"},
        {PhValue(0), "0", "0x0"},
        {PhValue(0xABCDEFU), "11259375", "0xabcdef"},
        {PhValue(-0.0), "-0.000000", "-0.000000"},
        {PhValue(0.0000004), "0.000000", "0.000000"},
        {PhValue(1e20), "100000000000000000000.000000", "100000000000000000000.000000"},
        {PhValue(infinite), "inf", "inf"},
        {PhValue(-infinite), "-inf", "-inf"},
        {PhValue(std::nan("")), "nan", "nan"},
        {PhValue(PhString("a'b")), "'a'b'", "'a'b'"},
        {textAndInteger, "5", "0x5"},
        {PhValue("x", 1), "", ""},
        {marked, "", ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(written([&](ConfigurationStream& s) { printValue(s, row.value); }), row.plain);
        EXPECT_EQ(written([&](ConfigurationStream& s) { printHexValue(s, row.value); }),
                  row.hexadecimal);
    }
}

TEST(PrintValue, printsTheLargestDoubleInFull)
{
    const PhValue value(-std::numeric_limits<double>::max());
    const std::string text = written([&](ConfigurationStream& s) { printValue(s, value); });
    EXPECT_EQ(text.size(), 1U + 309U + 7U);
    EXPECT_EQ(text.substr(0, 8), "-1797693");
}

TEST(WriteUnassignedSource, namesTheTypeByKindAndWidth)
{
    EXPECT_EQ(typeLine(PhBaseType::BtInteger, 8), "Type=int8");
    EXPECT_EQ(typeLine(PhBaseType::BtInteger, 9), "Type=int16");
    EXPECT_EQ(typeLine(PhBaseType::BtInteger, 17), "Type=int32");
    EXPECT_EQ(typeLine(PhBaseType::BtUInteger, 0), "Type=uint8");
    EXPECT_EQ(typeLine(PhBaseType::BtUInteger, 16), "Type=uint16");
    EXPECT_EQ(typeLine(PhBaseType::BtUInteger, 64), "Type=uint32");
    EXPECT_EQ(typeLine(PhBaseType::BtBytefield, 64), "Type=uint8");
    EXPECT_EQ(typeLine(PhBaseType::BtStringAscii, 8), "Type=uint8");
    EXPECT_EQ(typeLine(PhBaseType::BtUndefined, 8), "Type=???");
    EXPECT_EQ(typeLine(static_cast<PhBaseType>(9), 8), "Type=???");
}

TEST(WriteUnassignedSource, writesAnEntityWithNothingSet)
{
    EXPECT_EQ(section([](PhEntity&) {}), "[DAQ_ProcessFactor_0_0_0]\nEnabled=0\nType=???\n\n");
}

TEST(WriteUnassignedSource, prefersTheUnitOfTheTypeEvenIfItHasNoLabel)
{
    const auto unitLines = [](PhUnit* own, PhUnit* ofConversion) {
        const std::string text = section([&](PhEntity& entity) {
            auto* type = new PhType;
            auto* conversion = new PhConversion;
            conversion->setUnit(ofConversion);
            type->setConversion(conversion);
            type->setUnit(own);
            entity.setType(type);
        });
        const std::size_t line = text.find("Unit=");
        return line == std::string::npos ? "" : text.substr(line, text.find('\n', line) - line);
    };
    EXPECT_EQ(unitLines(unit("own"), unit("other")), "Unit=\"own\"");
    EXPECT_EQ(unitLines(nullptr, unit("other")), "Unit=\"other\"");
    EXPECT_EQ(unitLines(unit(nullptr), unit("other")), "");
    EXPECT_EQ(unitLines(nullptr, unit("")), "Unit=\"\"");
    EXPECT_EQ(unitLines(nullptr, nullptr), "");
}

TEST(WriteMeasurements, startsTheSourcesOfEachCommParamAtZero)
{
    PhList commParams;
    const auto add = [&](int protocol, int rasterCount) {
        auto* commParam = new PhCommParam;
        commParams.append(commParam);
        commParam->setProtocol(static_cast<PhProtocol>(protocol));
        for (int i = 0; i < rasterCount; ++i)
            commParam->appendRaster(new PhRaster);
    };
    add(0, 2);
    add(1, 1);
    add(4, 0);
    daqSourceIndex = 9;
    const std::string text = written([&](ConfigurationStream& stream) {
        writeMeasurements(stream, &commParams);
        writeMeasurements(stream, nullptr);
        writeUnassignedSource(stream, nullptr);
    });
    EXPECT_EQ(text, "[DAQ_Measurement_0]\nEnabled=1\nProtocol=Undefined\nNumSources=3\n\n"
                    "[DAQ_Source_0_0]\nEnabled=1\n\n"
                    "[DAQ_Source_0_1]\nEnabled=1\n\n"
                    "[DAQ_Measurement_1]\nEnabled=1\nProtocol=KWP\nNumSources=2\n\n"
                    "[DAQ_Source_0_0]\nEnabled=1\n\n"
                    "[DAQ_Measurement_2]\nEnabled=1\nProtocol=???\nNumSources=1\n\n");
    EXPECT_EQ(daqSourceIndex, 1);
}

TEST(WriteDaqFile, writesTheFirstGroupWithoutChildrenOnly)
{
    PhRoot root;
    const auto group = [](const char* entityName) {
        auto* made = new PhGroup;
        auto* entity = new PhEntity;
        entity->setName(entityName);
        made->appendEntity(entity);
        return made;
    };
    auto* project = group("ofProject");
    root.appendGroup(project);
    root.appendGroup(group("ofSecondProject"));
    project->appendGroup(group("ofFirstModule"));
    project->appendGroup(group("ofSecondModule"));

    const TemporaryFolder folder;
    const std::string path = folder.path("w.ini");
    EXPECT_EQ(writeDaqFile(&root, path.c_str()), 0);
    const std::string text = readFile(path);
    EXPECT_NE(text.find("ofFirstModule"), std::string::npos);
    EXPECT_NE(text.find("NumProcessFactors=1"), std::string::npos);
    EXPECT_EQ(text.find("Project"), std::string::npos);
    EXPECT_EQ(text.find("Second"), std::string::npos);
}

TEST(ConfigurationStream, passesTextsOnThatAreLargerThanItsBuffer)
{
    const std::string large(200000, 'x');
    EXPECT_EQ(written([&](ConfigurationStream& stream) {
                  stream.put("a");
                  stream.put(large);
                  stream.put("z");
              }),
              "a" + large + "z");
}

} // namespace
