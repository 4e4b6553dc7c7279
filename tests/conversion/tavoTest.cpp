// The three exported functions as a host sees them, besides what the golden descriptions show.

#include "tavo/tavo.h"

#include "support/conversion.h"
#include "support/files.h"

#include <gtest/gtest.h>

namespace {

class TavoConvertTest : public testing::Test
{
protected:
    TemporaryFolder folder;
    CurrentFolder current{folder.path("")};
};

TEST_F(TavoConvertTest, TakesTheExtensionAnywhereInThePathButInTwoSpellingsOnly)
{
    std::filesystem::create_directory("in.a2l");
    for (const char* path : {"in.a2l/d.txt", "d.A2L", "d.A2l"})
        writeFile(path, "ASAP2_VERSION 1 60\n");
    EXPECT_EQ(convertFile("in.a2l/d.txt", "1.ini").result, TAVO_OK);
    EXPECT_EQ(convertFile("d.A2L", "2.ini").result, TAVO_OK);
    const Conversion refused = convertFile("d.A2l", "3.ini");
    EXPECT_EQ(refused.result, TAVO_UNKNOWN_EXTENSION);
    EXPECT_EQ(refused.report, "Error: Unkown file extension\n");
    EXPECT_FALSE(refused.output);
}

TEST_F(TavoConvertTest, ChangesAnOldOutputOnlyIfTheDescriptionIsRead)
{
    writeFile("empty.a2l", "");
    writeFile("good.a2l", "ASAP2_VERSION 1 60\n");
    writeFile("d.ini", "old");
    const std::string ok = "\nph_reader->readFile () -> OK\n\n\n";
    const std::tuple<const char*, const char*, int, std::string, std::optional<std::string>>
        cases[] = {
            {"empty.a2l", "d.ini", TAVO_NOT_READ,
             "\n-: Error (empty.a2l:1): Unexpected token EOF\n"
             "ph_reader->readFile () -> FAILED (-1)\n\n\n",
             "old"},
            {"missing.a2l", "d.ini", TAVO_NOT_READ, "\nph_reader->readFile () -> FAILED (-2)\n\n\n",
             "old"},
            {"good.a2l", "missing/d.ini", TAVO_OUTPUT_NOT_OPENED, ok, std::nullopt},
            {"good.a2l", "d.ini", TAVO_OK, ok, ""},
        };
    for (const auto& [input, output, result, report, text] : cases) {
        const Conversion conversion = convertFile(input, output);
        EXPECT_EQ(conversion.result, result) << input;
        EXPECT_EQ(conversion.report, report);
        EXPECT_EQ(conversion.output, text) << input;
    }
}

TEST_F(TavoConvertTest, NumbersTheSourceOfAModuleWithoutRastersAfterTheConversionBefore)
{
    const std::string raster = "/begin RASTER \"l\" \"r\" 1 3 10 /end RASTER ";
    writeFile("rasters.a2l",
              inModule("/begin IF_DATA ASAP1B_CCP " + raster + raster + "/end IF_DATA"));
    writeFile("none.a2l", withMeasurement(""));
    const auto numberOfUnassigned = [] {
        const std::string text = convertFile("none.a2l", "none.ini").output.value();
        return text.substr(0, text.find('\n'));
    };
    testing::internal::CaptureStdout();
    EXPECT_EQ(tavoInitialize(), 0);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "tavoInitialize ()\n");
    EXPECT_EQ(numberOfUnassigned(), "[DAQ_Source_0_0]");
    convertFile("rasters.a2l", "rasters.ini");
    EXPECT_EQ(numberOfUnassigned(), "[DAQ_Source_0_2]");
    EXPECT_EQ(numberOfUnassigned(), "[DAQ_Source_0_2]");
    testing::internal::CaptureStdout();
    EXPECT_EQ(tavoDeinitialize(), 0);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "tavoDeinitialize ()\n");
    EXPECT_EQ(numberOfUnassigned(), "[DAQ_Source_0_0]");
}

} // namespace
