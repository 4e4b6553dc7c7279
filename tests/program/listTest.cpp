#include "Program.h"
#include "support/conversion.h"
#include "support/files.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <filesystem>

namespace {

namespace fs = std::filesystem;
using nlohmann::json;

/// Everything that a listing can hold, with texts that need care.
const std::string description =
    inModule(R"(
/begin MOD_COMMON "" BYTE_ORDER MSB_LAST /end MOD_COMMON
/begin IF_DATA ASAP1B_CCP
  /begin TP_BLOB 1 2 0x6F0 0x6F1 57 1 /end TP_BLOB
  /begin RASTER "" "T10ms" 1 3 10 /end RASTER
/end IF_DATA
/begin COMPU_METHOD deg "" RAT_FUNC "" ")"
             "\xB0"
             R"(C, ""dry""" COEFFS 0 10 -5 0 0 1 /end COMPU_METHOD
/begin COMPU_METHOD none "" RAT_FUNC "" "" COEFFS 1 1 1 1 1 1 /end COMPU_METHOD
/begin MEASUREMENT t[0] "line 1
line 2, K)"
             "\xFC"
             R"(hl" SWORD deg 0 0 -40 1e999 ECU_ADDRESS 0xD0001234 BIT_MASK 0xFF00 /end MEASUREMENT
/begin MEASUREMENT flag "" FLOAT64_IEEE none 0 0 0.1 0.5 BYTE_ORDER MSB_FIRST ECU_ADDRESS_EXTENSION 1 /end MEASUREMENT
)");

ProgramRun listed(const std::vector<std::string>& options, const std::string& text = description)
{
    const TemporaryFolder folder;
    Setting setting;
    setting.folder = folder.path("");
    writeFile(folder.path("d.a2l"), text);
    std::vector<std::string> arguments = {"list", "-q", "d.a2l"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    const ProgramRun result = run(arguments, setting);
    EXPECT_EQ(result.exitCode, 0) << result.err;
    return result;
}

TEST(ListTest, JsonHoldsAllThatTheConfigurationSays)
{
    const json expected = json::parse(R"({
        "interfaces": [{"name": "CCP", "protocol": "CCP", "master_id": 1776, "slave_id": 1777,
                        "station_address": 57, "sources": 1}],
        "sources": [{"name": "T10ms", "interface": "CCP", "rate": 10, "channel": 1}],
        "measurements": [
            {"name": "t[0]", "description": "line 1\nline 2, K\u00fchl", "address": 3489665588,
             "type": "int16", "byte_order": "Intel", "bit_mask": 65280, "min": -40, "max": null,
             "unit": "\u00b0C, \"dry\"", "factor": 0.1, "offset": 0.5},
            {"name": "flag", "description": "", "address_extension": 1, "type": "real64",
             "byte_order": "Motorola", "min": 0.1, "max": 0.5, "unit": "",
             "factor": 1.0, "offset": 0.0}]
    })");
    const json actual = json::parse(listed({"--format", "json"}).out);
    EXPECT_EQ(actual, expected) << actual.dump(1);
}

TEST(ListTest, CsvHasOneRowForEachObject)
{
    EXPECT_EQ(listed({"--format=csv"}).out,
              "kind,name,protocol,master_id,slave_id,station_address,sources,interface,rate,"
              "channel,description,address,address_extension,type,byte_order,bit_mask,min,max,"
              "unit,factor,offset\r\n"
              "interface,CCP,CCP,0x6f0,0x6f1,57,1,,,,,,,,,,,,,,\r\n"
              "source,T10ms,,,,,,CCP,10,1,,,,,,,,,,,\r\n"
              "measurement,t[0],,,,,,,,,\"line 1\nline 2, K\xC3\xBChl\",0xd0001234,,int16,Intel,"
              "0xff00,-40,inf,\"\xC2\xB0"
              "C, \"\"dry\"\"\",0.1,0.5\r\n"
              "measurement,flag,,,,,,,,,,,0x1,real64,Motorola,,0.1,0.5,,1,0\r\n");
}

TEST(ListTest, TheTableFitsItsColumnsToTheContent)
{
    EXPECT_EQ(listed({}).out,
              "1 interface\n"
              "  name  protocol  master_id  slave_id  station_address  sources\n"
              "  CCP   CCP           0x6f0     0x6f1               57        1\n"
              "\n"
              "1 source\n"
              "  name   interface  rate  channel\n"
              "  T10ms  CCP          10        1\n"
              "\n"
              "2 measurements\n"
              "  name     address  type    byte_order  min  max  unit       factor  offset\n"
              "  t[0]  0xd0001234  int16   Intel       -40  inf  \xC2\xB0"
              "C, \"dry\"     0.1     0.5\n"
              "  flag              real64  Motorola    0.1  0.5                  1       0\n");
}

TEST(ListTest, MatchPicksByName)
{
    const auto names = [](const std::string& pattern) {
        std::string text;
        const json found = json::parse(listed({"--format", "json", "--match", pattern}).out);
        for (const json& section : found)
            for (const json& row : section)
                text += row["name"].get<std::string>() + " ";
        return text;
    };
    EXPECT_EQ(names("*"), "CCP t[0] flag T10ms ");
    EXPECT_EQ(names("[Tt]*"), "t[0] T10ms ");
    EXPECT_EQ(names(R"(t\[?\])"), "t[0] ");
    EXPECT_EQ(names("x*"), "");
    EXPECT_EQ(listed({"--match", "flag"}).out.substr(0, 14), "1 measurement\n");
}

TEST(ListTest, SaysSoIfNoNameMatches)
{
    const TemporaryFolder folder;
    writeFile(folder.path("d.a2l"), inModule(""));
    EXPECT_EQ(run({"list", folder.path("d.a2l"), "--match", "x*"}).err,
              "tavo: warning: No name matches 'x*'\n");
    EXPECT_EQ(run({"list", folder.path("d.a2l")}).err, "");
}

/// How many sections of the configuration begin so.
std::size_t sectionCount(const std::string& configuration, const std::string& beginning)
{
    std::size_t count = 0;
    for (std::size_t at = 0; (at = configuration.find("\n[" + beginning, at)) != std::string::npos;
         ++at)
        ++count;
    return count;
}

TEST(ListTest, ShowsTheModuleThatIsWritten)
{
    for (const fs::directory_entry& entry : fs::directory_iterator(TAVO_GOLDEN_FOLDER)) {
        if (entry.path().extension() != ".ini")
            continue;
        const std::string input = fs::path(entry.path()).replace_extension(".a2l").string();
        const ProgramRun result = run({"list", "-q", input, "--format", "json"});
        const json found = json::parse(result.out);
        const std::string configuration = "\n" + readFile(entry.path());
        EXPECT_EQ(found["interfaces"].size(), sectionCount(configuration, "DAQ_Measurement_"));
        EXPECT_EQ(found["measurements"].size(), sectionCount(configuration, "DAQ_ProcessFactor_"))
            << input;
        // One more in the configuration holds the measurements.
        const std::size_t unassigned = configuration.find("\nUnassigned=1") != std::string::npos;
        EXPECT_EQ(found["sources"].size() + unassigned, sectionCount(configuration, "DAQ_Source_"))
            << input;
    }
}

} // namespace
