#include "Program.h"
#include "support/conversion.h"

namespace {

std::string measurement(const std::string& name, const std::string& rest)
{
    return "/begin MEASUREMENT " + name + " \"\" SWORD " + rest + " /end MEASUREMENT\n";
}

std::string method(const std::string& name, const std::string& unit, const std::string& rest)
{
    return "/begin COMPU_METHOD " + name + " \"\" " + rest.substr(0, rest.find(' ')) + " \"\" \"" +
           unit + "\" " + rest.substr(rest.find(' ')) + " /end COMPU_METHOD\n";
}

const std::string ifXcp = "/begin IF_DATA XCP /begin XCP_ON_CAN 0x0100 CAN_ID_MASTER 0x700 "
                          "CAN_ID_SLAVE 0xFFFFFFFF /end XCP_ON_CAN /end IF_DATA\n";
const std::string ifXcpPlus = "/begin IF_DATA XCPplus 0x0100 /begin XCP_ON_CAN 0x0100 "
                              "CAN_ID_MASTER 0x701 /end XCP_ON_CAN /end IF_DATA\n";

std::string ccp(const std::string& slave)
{
    return "/begin IF_DATA ASAP1B_CCP /begin TP_BLOB 0x0200 0x0204 1 " + slave +
           " 3 1 /end TP_BLOB /begin RASTER \"\\\\ \"\"\" \"r\" 0xFFFFFFFF 9 4 /end RASTER "
           "/end IF_DATA\n";
}

using NormalizeTest = ProgramTest;

TEST_F(NormalizeTest, StrictReadingMakesTheSameConfigurationOfWhatIsWritten)
{
    write("odd.a2l",
          inModule(ccp("2") + ifXcp + method("m", "rpm", "LINEAR COEFFS_LINEAR 0.25 -3") +
                   method("m_1", "Nm", "LINEAR COEFFS_LINEAR -1e-7 0") +
                   method("k", "", "RAT_FUNC COEFFS 0 1e30 -0.0 0 0 3") +
                   method("l", "a\\\"b\\\\\r\n", "RAT_FUNC COEFFS 0 1 0 0 0 1") +
                   measurement("a", "m 0 0 -1E999 1E999 PHYS_UNIT \"1/min\"") +
                   measurement("b", "m 0 0 -5 1e-7 ECU_ADDRESS 0xFFFFFFFF BIT_MASK 0x80000000") +
                   measurement("c", "m_1 0 0 -1e22 0.5") + measurement("d", "k 0 0 -0.0 1") +
                   measurement("e", "l 0 0 0 1 BYTE_ORDER MSB_FIRST") +
                   measurement("f", "NO_COMPU_METHOD 0 0 0 1 PHYS_UNIT \"V\"") +
                   measurement("g", "m 0 0 0 1 PHYS_UNIT \"Hz\"")));
    std::vector<std::string> inputs = {path("odd.a2l")};
    for (const char* folder : {TAVO_GOLDEN_FOLDER, TAVO_EXAMPLES_FOLDER, TAVO_LISTING_FOLDER})
        for (const auto& entry : std::filesystem::directory_iterator(folder))
            if (entry.path().extension() == ".a2l")
                inputs.push_back(entry.path().string());
    int count = 0;
    for (const std::string& input : inputs) {
        const ProgramRun run = tavo("normalize -q " + input + " -");
        if (run.exitCode != 0)
            continue;
        ++count;
        write("strict.a2l", run.out);
        const ProgramRun strict = tavo("convert -q --strict strict.a2l -");
        EXPECT_EQ(strict.err, "") << run.out;
        EXPECT_EQ(strict.out, tavo("convert -q " + input + " -").out) << run.out;
    }
    EXPECT_GT(count, 12);
    EXPECT_EQ(tavo("normalize odd.a2l").exitCode, 0);
    EXPECT_EQ(names(), "odd.a2l odd.strict.a2l strict.a2l ");
}

TEST_F(NormalizeTest, NamesWhatStrictReadingHasNoFormFor)
{
    struct
    {
        std::string body;
        std::string hindrance;
    } cases[] = {
        {ifXcp + ifXcpPlus, "The interfaces XCP and XCPplus would become one"},
        {ccp("0x100000000"), "The interface CCP has only some of its identifiers"},
        {measurement("n$", "NO_COMPU_METHOD 0 0 0 1"),
         "The name of the measurement 'n$' can't be read strictly"},
        {method("1.5.2", "", "RAT_FUNC COEFFS 0 1 0 0 0 1") + measurement("n", "1.5.2 0 0 0 1"),
         "The name of the conversion '1.5.2' can't be read strictly"},
        {measurement("n", "NO_COMPU_METHOD 0 0 0 1 PHYS_UNIT \"\xFF\""),
         "The unit '\u00ff' holds a byte 255"},
    };
    for (const auto& c : cases) {
        write("d.a2l", inModule(c.body));
        const ProgramRun run = tavo("normalize -q d.a2l -");
        EXPECT_EQ(run.exitCode, 1) << c.body;
        EXPECT_EQ(run.err, "d.a2l: error: " + c.hindrance +
                               "\ntavo: error: d.a2l: Can't be written as a strict description\n");
    }
}

} // namespace
