#include "Program.h"
#include "support/conversion.h"
#include "support/files.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

/// A folder with a good, a doubtful and a faulty description.
class CommandLineTest : public testing::Test
{
protected:
    CommandLineTest()
    {
        writeFile(folder_.path("good.a2l"), inModule(""));
        writeFile(folder_.path("warned.a2l"), inModule("/include x"));
        // The string ends at the byte FF, and the reading goes on behind it.
        writeFile(folder_.path("odd.a2l"), inModule("/begin A2ML \"\xFF /end A2ML"));
        writeFile(folder_.path("bad.a2l"), inModule("x"));
        setting_.folder = folder_.path("");
    }

    TemporaryFolder folder_;
    Setting setting_;
};

TEST_F(CommandLineTest, GivesTheDocumentedExitCodes)
{
    struct
    {
        std::vector<std::string> arguments;
        int exitCode;
    } cases[] = {
        {{"--help"}, 0},
        {{"--version"}, 0},
        {{"convert", "--help"}, 0},
        {{"convert", "good.a2l"}, 0},
        {{"convert", "warned.a2l"}, 0},
        {{"convert", "odd.a2l"}, 0},
        {{"check", "good.a2l", "warned.a2l"}, 0},
        {{"list", "good.a2l"}, 0},
        {{"list", "good.a2l", "--match", "nothing"}, 0},
        {{"tokens", "bad.a2l"}, 0},
        {{"convert", "bad.a2l"}, 1},
        {{"check", "good.a2l", "bad.a2l"}, 1},
        {{"check", "bad.a2l", "good.a2l"}, 1},
        {{"check", "odd.a2l"}, 1},
        {{"list", "bad.a2l"}, 1},
        {{"tokens", "odd.a2l"}, 1},
        {{}, 2},
        {{"unknown"}, 2},
        {{"--unknown"}, 2},
        {{"convert"}, 2},
        {{"convert", "good.a2l", "--unknown"}, 2},
        {{"convert", "good.a2l", "--output-dir"}, 2},
        {{"convert", "good.a2l", "--jobs", "0"}, 2},
        {{"convert", "good.a2l", "--jobs", "many"}, 2},
        {{"check"}, 2},
        {{"check", "-q", "-v", "good.a2l"}, 2},
        {{"list"}, 2},
        {{"list", "good.a2l", "good.a2l"}, 2},
        {{"list", "good.a2l", "--format", "xml"}, 2},
        {{"tokens"}, 2},
        {{"convert", "nowhere.a2l"}, 3},
        {{"convert", "."}, 3},
        {{"check", "nowhere.a2l", "bad.a2l"}, 3},
        {{"list", "nowhere.a2l"}, 3},
        {{"tokens", "nowhere.a2l"}, 3},
        {{"tokens", "."}, 3},
    };
    for (const auto& c : cases) {
        const ProgramRun result = run(c.arguments, setting_);
        std::string words;
        for (const std::string& argument : c.arguments)
            words += " " + argument;
        EXPECT_EQ(result.exitCode, c.exitCode) << words << "\n" << result.err;
        // The program's own complaints say so, and name a reason.
        if (c.exitCode >= 2) {
            EXPECT_EQ(result.err.rfind("tavo: error: ", 0), 0U) << words << "\n" << result.err;
        }
    }
}

TEST_F(CommandLineTest, NamesTheReasonOfItsFailure)
{
    EXPECT_EQ(run({"tokens", "nowhere.a2l"}, setting_).err,
              "tavo: error: nowhere.a2l: No such file or directory\n");
    EXPECT_EQ(run({"list", "."}, setting_).err, "tavo: error: .: Is a directory\n");
    EXPECT_EQ(run({"unknown"}, setting_).err,
              "tavo: error: There is no command 'unknown' (see 'tavo --help')\n");
    EXPECT_EQ(run({"list", "good.a2l", "--format", "xml"}, setting_).err,
              "tavo: error: --format: 'xml' is none of table, csv and json "
              "(see 'tavo list --help')\n");
}

TEST_F(CommandLineTest, AFullStandardOutputIsAnError)
{
    setting_.standardOutput = "/dev/full";
    const std::vector<std::vector<std::string>> cases = {{"--help"},
                                                         {"--version"},
                                                         {"convert", "warned.a2l", "-"},
                                                         {"check", "good.a2l"},
                                                         {"list", "full.a2l"},
                                                         {"tokens", "good.a2l"}};
    writeFile(folder_.path("full.a2l"), withMeasurement(""));
    writeFile(folder_.path("warned.a2l"), withMeasurement(""));
    for (const std::vector<std::string>& arguments : cases) {
        const ProgramRun result = run(arguments, setting_);
        EXPECT_EQ(result.exitCode, 3) << arguments[0];
        EXPECT_NE(result.err.find("tavo: error: standard output: No space left on device\n"),
                  std::string::npos)
            << arguments[0] << "\n"
            << result.err;
    }
}

TEST_F(CommandLineTest, CheckCountsWhatItFinds)
{
    const std::string example = std::string(TAVO_EXAMPLES_FOLDER) + "/engine.a2l";
    EXPECT_EQ(run({"check", "good.a2l", "warned.a2l", "odd.a2l", "bad.a2l"}, setting_).out,
              "good.a2l: 0 interfaces, 0 sources, 0 measurements; 0 errors, 0 warnings\n"
              "warned.a2l: 0 interfaces, 0 sources, 0 measurements; 0 errors, 1 warning\n"
              "odd.a2l: 0 interfaces, 0 sources, 0 measurements; 1 error, 0 warnings\n"
              "bad.a2l: 1 error, 0 warnings\n");
    EXPECT_EQ(run({"check", example}).out,
              example + ": 2 interfaces, 13 sources, 177 measurements; 0 errors, 0 warnings\n");
    EXPECT_EQ(run({"check", "-q", "good.a2l", "bad.a2l"}, setting_).out, "");
}

TEST_F(CommandLineTest, TokensComeAsTheReaderLogsThem)
{
    writeFile(folder_.path("t.a2l"), "/begin a \"b\xFC\" 7 0.5 $ /* c */ VERSION");
    const ProgramRun result = run({"tokens", "t.a2l"}, setting_);
    EXPECT_EQ(result.out, "print_tokens ()\n[/begin]\n'a'\n\"b\xFC\"\n7\n0.500000\nt=36\n"
                          "[VERSION]\nEOF\n");
    EXPECT_EQ(result.err, "");
}

} // namespace
