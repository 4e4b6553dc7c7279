#include "Program.h"
#include "support/conversion.h"

#include <sstream>

namespace {

std::string measurement(const std::string& name, const std::string& type,
                        const std::string& options)
{
    return "/begin MEASUREMENT " + name + " \"\" " + type + " NO_COMPU_METHOD 0 0 0 1 " + options +
           " /end MEASUREMENT\n";
}

class SelectionTest : public ProgramTest
{
protected:
    SelectionTest()
    {
        write("d.a2l",
              inModule("/begin IF_DATA ASAP1B_CCP /begin TP_BLOB 0x0200 0x0204 1 2 3 1 "
                       "/end TP_BLOB /begin RASTER \"\" \"EngRaster\" 1 4 1 /end RASTER "
                       "/end IF_DATA\n" +
                       measurement("EngSpd", "UWORD", "ECU_ADDRESS 0x1000 PHYS_UNIT \"rpm\"") +
                       measurement("EngTrq[0]", "SWORD", "ECU_ADDRESS 0x1002 PHYS_UNIT \"Nm\"") +
                       measurement("EngTrq[1]", "SWORD", "ECU_ADDRESS 0x1004 PHYS_UNIT \"Nm\"") +
                       "/begin TYPEDEF_MEASUREMENT t \"\" UBYTE NO_COMPU_METHOD 0 0 0 1 "
                       "/end TYPEDEF_MEASUREMENT /begin TYPEDEF_STRUCTURE s \"\" 2 /begin "
                       "STRUCTURE_COMPONENT a t 0 /end STRUCTURE_COMPONENT /begin "
                       "STRUCTURE_COMPONENT b t 1 /end STRUCTURE_COMPONENT /end TYPEDEF_STRUCTURE "
                       "/begin INSTANCE pump \"\" s 0x2000 /end INSTANCE\n" +
                       measurement("\xC4rger", "FLOAT32_IEEE", "ECU_ADDRESS -1") +
                       measurement("far", "A_UINT64", "ECU_ADDRESS 0x100000000") +
                       measurement("beyond", "A_INT64", "ECU_ADDRESS 0x10000000000000000")));
        write("labels.lab", "\xEF\xBB\xBF[Settings]\r\n; a comment\r\n#another\r\n\r\n"
                            "EngSpd;10ms\r\n  \xC3\x84rger\r\npump.b unused\r\n");
        write("typing.lab", "engspd\r\nEngTorq[0]\rnothingLikeIt\n");
    }

    /// The names of the measurements in the listing, with a blank after each.
    std::string listed(const std::string& options) const
    {
        const ProgramRun run = tavo("list --format csv d.a2l " + options);
        std::istringstream lines(run.out);
        std::string names;
        for (std::string line; std::getline(lines, line);)
            if (line.starts_with("measurement,"))
                names += line.substr(12, line.find(',', 12) - 12) + " ";
        return run.exitCode == 0 ? names : run.err;
    }
};

TEST_F(SelectionTest, ListAndConvertChooseAlike)
{
    const std::string all = "EngSpd EngTrq[0] EngTrq[1] pump.a pump.b \xC3\x84rger far beyond ";
    struct
    {
        std::string options;
        std::string names;
    } cases[] = {
        {"", all},
        {"--match *", all},
        {"--match Eng* --match far", "EngSpd EngTrq[0] EngTrq[1] far "},
        {"--match EngTrq[?] --exclude *[1]", "EngTrq[0] "},
        {"--match engspd --match \xC3\xA4* -i", "EngSpd \xC3\x84rger "},
        {"--regex --match ^Eng --match p\\.[ab]$ --exclude \\[0",
         "EngSpd EngTrq[1] pump.a pump.b "},
        {"--regex -i --match \xC3\xA4R", "\xC3\x84rger "},
        {"--select labels.lab", "EngSpd pump.b \xC3\x84rger "},
        {"--select labels.lab --match far --exclude pump*", "EngSpd \xC3\x84rger far "},
        {"--unit rpm --unit N?", "EngSpd EngTrq[0] EngTrq[1] "},
        {"--unit nM -i --match *[0]", "EngTrq[0] "},
        {"--unit N? --regex --match d|[[]", "EngTrq[0] EngTrq[1] "},
        {"--type sword,UINT8 --type real32", "EngTrq[0] EngTrq[1] pump.a pump.b \xC3\x84rger "},
        {"--address 0x1002-8192", "EngTrq[0] EngTrq[1] pump.a "},
        {"--address 0x1000 --address 0xFFFFFFFF-", "EngSpd \xC3\x84rger far "},
        {"--address 0x1004-0x1004", "EngTrq[1] "},
        {"--address 0-", all.substr(0, all.find("beyond"))},
        {"--select typing.lab -i", "EngSpd "},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(listed(c.options), c.names) << c.options;
        const std::string words = "convert -q -f d.a2l d.ini --enable pump.? " + c.options;
        ASSERT_EQ(tavo(words).exitCode, 0) << c.options;
        std::istringstream lines(content("d.ini"));
        std::string names;
        std::string counts;
        std::string name;
        for (std::string line; std::getline(lines, line);) {
            if (line.starts_with("Name="))
                name =
                    line == "Name=\"\xC4rger\"" ? "\xC3\x84rger" : line.substr(6, line.size() - 7);
            // Interfaces and sources stay.
            EXPECT_TRUE(!line.starts_with("NumSources=") || line == "NumSources=2") << line;
            if (line.starts_with("NumProcessFactors="))
                counts = line.substr(18);
            if (line.starts_with("Desc="))
                names += name + " ";
            EXPECT_TRUE(!name.starts_with("pump.") || line != "Enabled=0") << name;
            EXPECT_TRUE(!name.starts_with("Eng") || name == "EngRaster" || line != "Enabled=1");
        }
        const std::string expected = c.names.substr(0, c.names.find("far "));
        EXPECT_EQ(names, expected) << c.options; // A 64-bit integer can't be written.
        EXPECT_EQ(counts, std::to_string(std::count(expected.begin(), expected.end(), ' ')));
    }
    EXPECT_NE(tavo("list d.a2l --unit rpm").out.find("1 measurement\n"), std::string::npos);
    EXPECT_EQ(tavo("list d.a2l --unit rpm").out.find("source"), std::string::npos);
    EXPECT_NE(tavo("list d.a2l --match EngR*").out.find("1 source\n"), std::string::npos);
}

TEST_F(SelectionTest, WhatIsNotThereIsNamedWithTheNearestName)
{
    struct
    {
        const char* words;
        int exitCode;
        std::string said;
    } cases[] = {
        {"list d.a2l --match x* --match EngTrq[2]", 0,
         "d.a2l: warning: No name matches 'x*'\n"
         "d.a2l: warning: No name matches 'EngTrq[2]'; did you mean 'EngTrq[0]'?\n"},
        {"list d.a2l --select typing.lab", 0,
         "typing.lab:1: warning: 'engspd' isn't in d.a2l; did you mean 'EngSpd'?\n"
         "typing.lab:2: warning: 'EngTorq[0]' isn't in d.a2l; did you mean 'EngTrq[0]'?\n"
         "typing.lab:3: warning: 'nothingLikeIt' isn't in d.a2l\n"},
        {"convert d.a2l o.ini --match pump.a --enable @typing.lab -i --werror", 1,
         "typing.lab:2: warning: 'EngTorq[0]' isn't in d.a2l; did you mean 'EngTrq[0]'?\n"
         "typing.lab:3: warning: 'nothingLikeIt' isn't in d.a2l\n"
         "tavo: error: d.a2l: Not converted because of its warnings\n"},
        {"list d.a2l --regex --match (", 2,
         "tavo: error: '(' is no regular expression: missing ): (\n"},
        {"list d.a2l --type uint9", 2,
         "tavo: error: --type: 'uint9' is no type, such as uint8, real32 or SWORD\n"},
        {"list d.a2l --address 0x10-2x", 2,
         "tavo: error: --address: '2x' is no address, such as 0x1000 or 4096\n"},
        {"list d.a2l --address 5-4", 2, "tavo: error: --address: '5-4' ends before it begins\n"},
        {"list d.a2l --address -1", 2,
         "tavo: error: --address: '' is no address, such as 0x1000 or 4096\n"},
        {"convert d.a2l --enable @nowhere", 3, "tavo: error: nowhere: No such file or directory\n"},
        {"list d.a2l --select .", 3, "tavo: error: .: Is a directory\n"},
    };
    for (const auto& c : cases) {
        const ProgramRun run = tavo(c.words);
        EXPECT_EQ(run.exitCode, c.exitCode) << c.words;
        EXPECT_EQ(run.err.substr(0, c.said.size()), c.said) << c.words;
    }
    write("other.a2l", inModule(measurement("EngSpd", "UWORD", "")));
    EXPECT_EQ(tavo("list d.a2l other.a2l --match Eng* --match EngSpd --select labels.lab").err,
              "labels.lab:6: warning: '\u00c4rger' isn't in other.a2l\n"
              "labels.lab:7: warning: 'pump.b' isn't in other.a2l\n");
}

/// Strict reading writes from objects of its own, and a selection from what the listing shows.
TEST_F(SelectionTest, ChoosingAllChangesNothing)
{
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(TAVO_GOLDEN_FOLDER)) {
        const std::filesystem::path& input = entry.path();
        if (input.extension() != ".a2l")
            continue;
        for (const char* strict : {"", " --strict"}) {
            const std::string words = "convert -q -f " + input.string() + strict;
            if (tavo(words + " all.ini").exitCode != 0)
                continue;
            ++count;
            tavo(words + " chosen.ini --exclude nothing");
            EXPECT_EQ(content("chosen.ini"), content("all.ini")) << words;
        }
    }
    EXPECT_GT(count, 20);
}

/// Each would take hours if the time were that of the product.
TEST_F(SelectionTest, LongListsOfWrongNamesTakeNoTime)
{
    constexpr int count = 100000;
    std::string module;
    std::string names;
    for (int i = 0; i < count; ++i) {
        const std::string number = std::to_string(i);
        module += measurement("Signal.of.the.engine_" + number, "UBYTE", "");
        names.append("Signal.at.the.engine_").append(number).append("\n");
    }
    write("d.a2l", inModule(module));
    write("names.lab", names);
    const ProgramRun run = tavo("convert d.a2l --select names.lab --enable @names.lab");
    EXPECT_NE(run.err.find("names.lab:1: warning: 'Signal.at.the.engine_0' isn't in d.a2l; did you "
                           "mean 'Signal.of.the.engine_0'?\n"),
              std::string::npos);
    EXPECT_NE(run.err.find("names.lab: warning: 99,990 more names that aren't in d.a2l\n"),
              std::string::npos);
    const ProgramRun verbose = tavo("list -v d.a2l --select names.lab");
    EXPECT_EQ(std::count(verbose.err.begin(), verbose.err.end(), '\n'), count + 2);
}

} // namespace
