// The three exported functions, as a host sees them.

#include "tavo/tavo.h"

#include "support/conversion.h"
#include "support/files.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

constexpr const char* emptyDescription = "ASAP2_VERSION 1 60\n";

std::string output(const std::function<void()>& call)
{
    testing::internal::CaptureStdout();
    call();
    return testing::internal::GetCapturedStdout();
}

TEST(TavoInitialize, printsItsNameAndGivesZero)
{
    EXPECT_EQ(output([] { EXPECT_EQ(tavoInitialize(), 0); }), "tavoInitialize ()\n");
    EXPECT_EQ(output([] { EXPECT_EQ(tavoDeinitialize(), 0); }), "tavoDeinitialize ()\n");
}

class TavoConvert : public testing::Test
{
protected:
    TemporaryFolder folder;
    CurrentFolder current{folder.path("")};
};

TEST_F(TavoConvert, takesTheExtensionAnywhereInThePathButInTwoSpellingsOnly)
{
    std::filesystem::create_directory("in.a2l");
    writeFile("in.a2l/d.txt", emptyDescription);
    writeFile("d.A2L", emptyDescription);
    writeFile("d.A2l", emptyDescription);
    EXPECT_EQ(convertFile("in.a2l/d.txt", "1.ini").result, TAVO_OK);
    EXPECT_EQ(convertFile("d.A2L", "2.ini").result, TAVO_OK);

    const Conversion refused = convertFile("d.A2l", "3.ini");
    EXPECT_EQ(refused.result, TAVO_UNKNOWN_EXTENSION);
    EXPECT_EQ(refused.report, "Error: Unkown file extension\n");
    EXPECT_FALSE(refused.output);
}

TEST_F(TavoConvert, reportsSuccessBetweenBlankLines)
{
    writeFile("d.a2l", emptyDescription);
    const Conversion conversion = convertFile("d.a2l", "d.ini");
    EXPECT_EQ(conversion.report, "\nph_reader->readFile () -> OK\n\n\n");
    EXPECT_EQ(conversion.output, "");
}

TEST_F(TavoConvert, leavesTheOutputAloneWhenTheDescriptionFails)
{
    writeFile("d.a2l", "");
    writeFile("d.ini", "old");
    const Conversion failed = convertFile("d.a2l", "d.ini");
    EXPECT_EQ(failed.result, TAVO_NOT_READ);
    EXPECT_EQ(failed.report, "\n-: Error (d.a2l:1): Unexpected token EOF\n"
                             "ph_reader->readFile () -> FAILED (-1)\n\n\n");
    EXPECT_EQ(failed.output, "old");

    const Conversion missing = convertFile("missing.a2l", "d.ini");
    EXPECT_EQ(missing.result, TAVO_NOT_READ);
    EXPECT_EQ(missing.report, "\nph_reader->readFile () -> FAILED (-2)\n\n\n");
    EXPECT_EQ(missing.output, "old");
}

TEST_F(TavoConvert, emptiesAnOldOutputWhenThereIsNothingToWrite)
{
    writeFile("d.a2l", emptyDescription);
    writeFile("d.ini", "old");
    EXPECT_EQ(convertFile("d.a2l", "d.ini").output, "");
}

TEST_F(TavoConvert, saysByItsResultAloneThatTheOutputCantBeOpened)
{
    writeFile("d.a2l", emptyDescription);
    const Conversion conversion = convertFile("d.a2l", "missing/d.ini");
    EXPECT_EQ(conversion.result, TAVO_OUTPUT_NOT_OPENED);
    EXPECT_EQ(conversion.report, "\nph_reader->readFile () -> OK\n\n\n");
}

TEST_F(TavoConvert, takesNullPathsForUnusableOnes)
{
    writeFile("d.a2l", emptyDescription);
    output([] {
        EXPECT_EQ(tavoConvert(nullptr, "d.ini"), TAVO_UNKNOWN_EXTENSION);
        EXPECT_EQ(tavoConvert("d.a2l", nullptr), TAVO_OUTPUT_NOT_OPENED);
    });
    EXPECT_FALSE(std::filesystem::exists("d.ini"));
}

TEST_F(TavoConvert, numbersTheSourceOfAModuleWithoutRastersAfterTheConversionBefore)
{
    const std::string raster = "/begin RASTER \"l\" \"r\" 1 3 10 /end RASTER ";
    writeFile("rasters.a2l", withIfData("ASAP1B_CCP", raster + raster));
    writeFile("none.a2l", withMeasurement(""));
    const auto numberOfUnassigned = [] {
        const std::string text = convertFile("none.a2l", "none.ini").output.value();
        return text.substr(0, text.find('\n'));
    };
    output(tavoInitialize);
    EXPECT_EQ(numberOfUnassigned(), "[DAQ_Source_0_0]");
    convertFile("rasters.a2l", "rasters.ini");
    EXPECT_EQ(numberOfUnassigned(), "[DAQ_Source_0_2]");
    EXPECT_EQ(numberOfUnassigned(), "[DAQ_Source_0_2]");
    output(tavoDeinitialize);
    EXPECT_EQ(numberOfUnassigned(), "[DAQ_Source_0_0]");
}

} // namespace
