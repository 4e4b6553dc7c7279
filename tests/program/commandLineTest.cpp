#include "Program.h"
#include "support/conversion.h"

#include <algorithm>
#include <map>
#include <poll.h>
#include <pty.h>
#include <regex>
#include <unistd.h>

namespace {

/// With a good, a doubtful and a faulty description, one that only strict reading finds faulty, and
/// one with a fault that strict reading gets over.
class CommandLineTest : public ProgramTest
{
protected:
    CommandLineTest()
    {
        write("good.a2l", inModule("/begin MEASUREMENT n \"\" UBYTE NO_COMPU_METHOD 0 0 0 1 "
                                   "/end MEASUREMENT"));
        write("warned.a2l", withMeasurement(""));
        write("word.a2l", inModule("x"));
        // Strictly, the text ends at the byte FF.
        write("odd.a2l", inModule("/begin A2ML \"\xFF /end A2ML"));
        write("bad.a2l", inModule("/end x"));
    }
};

TEST_F(CommandLineTest, EndsWithTheDocumentedCodeAndNamesTheReason)
{
    const std::string warning = "warned.a2l: warning: Conversion";
    const std::string oneWritten = "ini: 0 interfaces, 0 sources, 1 measurement\n";
    struct
    {
        const char* words;
        int exitCode;
        std::string said; ///< How the standard error begins; "" for nothing at all.
    } cases[] = {
        {"--help", 0, ""},
        {"--version", 0, ""},
        {"convert good.a2l", 0, "Wrote good." + oneWritten},
        {"convert --werror good.a2l -", 0, ""},
        {"convert warned.a2l", 0, warning + "s that are not defined count as factor 1 and offset "},
        {"convert --quiet --force warned.a2l", 0, ""},
        {"convert --strict warned.a2l other.ini", 0,
         warning + " 'c' of measurement 'n' is not defined\nWrote other." + oneWritten},
        {"convert --strict odd.a2l", 0, "odd.a2l:3: error: Unexpected EOF in string"},
        {"check good.a2l warned.a2l word.a2l odd.a2l", 0, warning},
        {"list warned.a2l", 0, warning},
        {"tokens bad.a2l", 0, ""},
        {"convert bad.a2l", 1,
         "bad.a2l:3:6: error: '/end x' found in the block 'MODULE' of line 2"},
        {"convert --strict word.a2l", 1, "word.a2l:3:1: error: Unexpected token 'x'"},
        {"convert -q --werror warned.a2l new.ini", 1,
         "tavo: error: warned.a2l: Not converted because of its warnings\n"},
        {"check -q good.a2l bad.a2l", 1, "bad.a2l:3:6: error: "},
        {"check bad.a2l good.a2l", 1, "bad.a2l:3:6: error: "},
        {"check --strict odd.a2l", 1, "odd.a2l:3: error: "},
        {"check -q --werror word.a2l good.a2l", 1, ""},
        {"list bad.a2l", 1, "bad.a2l:3:6: error: "},
        {"list --strict word.a2l", 1, "word.a2l:3:1: error: "},
        {"tokens odd.a2l", 1, "odd.a2l:3: error: "},
        {"check --quiet -- good.a2l -j", 3, "tavo: error: -j: No such file"},
        {"convert nowhere.a2l", 3, "tavo: error: nowhere.a2l: No such file or directory\n"},
        {"convert .", 3, "tavo: error: .: Is a directory\n"},
        {"check nowhere.a2l bad.a2l", 3, "tavo: error: nowhere.a2l: No such file"},
        {"tokens .", 3, "tavo: error: .: Is a directory\n"},
        // There is nothing at the address 0, where the reading of this file begins.
        {"tokens /proc/self/mem", 3, "tavo: error: /proc/self/mem: Input/output error\n"},
    };
    for (const auto& c : cases) {
        const ProgramRun run = tavo(c.words);
        EXPECT_EQ(run.exitCode, c.exitCode) << c.words << "\n" << run.err;
        EXPECT_EQ(run.err.substr(0, c.said.empty() ? 1 : c.said.size()), c.said) << c.words;
    }
    EXPECT_EQ(names(), "bad.a2l good.a2l good.ini odd.a2l odd.ini other.ini warned.a2l warned.ini "
                       "word.a2l ");
}

TEST_F(CommandLineTest, AWrongCommandLineIsExplained)
{
    const std::string seeConvert = "'tavo convert --help' shows what there is";
    const std::string seeList = "'tavo list --help' shows what there is";
    struct
    {
        const char* words;
        std::string reason;
        std::string hint;
    } cases[] = {
        {"", "A command is required", "'tavo --help' shows what there is"},
        {"--strict", "A command is required", "'tavo --help' shows what there is"},
        {"unknown --help", "There is no command 'unknown'", "'tavo --help' shows what there is"},
        {"convver good.a2l", "There is no command 'convver'", "did you mean 'tavo convert'?"},
        {"help lits", "There is no command 'lits'", "did you mean 'tavo list'?"},
        {"convert", "A description is required", seeConvert},
        {"convert good.a2l --unknown", "--unknown is no option of 'tavo convert'", seeConvert},
        {"convert -o x good.a2l", "-o is no option of 'tavo convert'",
         "the output is the argument after the input, without an option"},
        {"convert good.a2l --jobs 0", "--jobs: '0' is no number from 1 to 256", seeConvert},
        {"convert good.a2l -j 2x", "-j: '2x' is no number from 1 to 256", seeConvert},
        {"convert good.a2l -jmany", "-j: 'many' is no number from 1 to 256", seeConvert},
        {"convert good.a2l -d --force", "-d needs a value: DIR", seeConvert},
        {"convert -fj", "-j needs a value: N", seeConvert},
        {"check --quiet=1 good.a2l", "--quiet takes no value",
         "'tavo check --help' shows what there is"},
        {"-q check -v good.a2l", "--quiet and --verbose exclude each other",
         "'tavo check --help' shows what there is"},
        {"list --json good.a2l", "--json is no option of 'tavo list'",
         "did you mean '--format json'?"},
        {"list --macth x good.a2l", "--macth is no option of 'tavo list'",
         "did you mean '--match'?"},
        {"list good.a2l --format=cvs", "--format: 'cvs' is not table, csv or json",
         "did you mean 'csv'?"},
        {"list good.a2l --format xml", "--format: 'xml' is not table, csv or json", seeList},
        {"tokens good.a2l bad.a2l", "'bad.a2l' is one argument too many",
         "'tavo tokens --help' shows what there is"},
    };
    for (const auto& c : cases) {
        const ProgramRun run = tavo(c.words);
        EXPECT_EQ(run.exitCode, 2) << c.words;
        EXPECT_EQ(run.err, "tavo: error: " + c.reason + "\nhint: " + c.hint + "\n") << c.words;
    }
}

TEST_F(CommandLineTest, TheSameMayBeSaidInSeveralWays)
{
    const std::vector<std::vector<const char*>> groups = {
        {"help list", "list --help", "-h list", "list good.a2l -qh"},
        {"help", "--help", "-h"},
        {"list good.a2l --format json", "--format=json list good.a2l",
         "list --format json -- good.a2l",
         "--color never --quiet list --format table good.a2l --format=json"},
        {"--version", "-V", "check --version"},
        {"convert -q -j2 good.a2l -", "-qj 2 convert good.a2l -", "convert -qj=2 good.a2l -"},
    };
    for (const auto& group : groups) {
        const ProgramRun first = tavo(group.front());
        EXPECT_FALSE(first.out.empty());
        for (const char* words : group) {
            const ProgramRun run = tavo(words);
            EXPECT_EQ(run.exitCode, 0) << words;
            EXPECT_EQ(run.out, first.out) << words;
        }
    }
}

TEST_F(CommandLineTest, VerboseNamesEachStepWithItsTime)
{
    for (const auto& [words, steps] : std::map<std::string, std::vector<std::string>>{
             {"-v convert good.a2l o.ini", {"read good.a2l", "wrote o.ini"}},
             {"check --strict -v good.a2l", {"read good.a2l"}},
             {"list -v good.a2l", {"read good.a2l", "listed good.a2l"}}}) {
        std::string pattern;
        for (const std::string& step : steps)
            pattern += " *[0-9]+\\.[0-9]{3} s  " + step + "\n";
        const std::string said = tavo(words).err;
        EXPECT_TRUE(std::regex_match(said, std::regex(pattern + "(Wrote .*\n)?"))) << said;
    }
}

TEST_F(CommandLineTest, AFullStandardOutputIsAnError)
{
    standardOutput_ = "/dev/full";
    for (const char* words : {"--help", "--version", "convert -q good.a2l -", "check bad.a2l",
                              "list -q good.a2l", "tokens good.a2l"}) {
        const ProgramRun run = tavo(words);
        EXPECT_EQ(run.exitCode, 3) << words;
        EXPECT_TRUE(run.err.ends_with("tavo: error: standard output: No space left on device\n"))
            << words << "\n"
            << run.err;
    }
}

TEST_F(CommandLineTest, CheckCountsWhatItFinds)
{
    std::filesystem::copy(TAVO_EXAMPLES_FOLDER, path(""));
    const std::string engine = "engine.a2l: 2 interfaces, 13 sources, 177 measurements; 0 errors, ";
    const std::string one = "0 interfaces, 0 sources, 1 measurement; 0 errors, ";
    const std::string none = "0 interfaces, 0 sources, 0 measurements; ";
    EXPECT_EQ(tavo("check engine.a2l good.a2l warned.a2l word.a2l odd.a2l bad.a2l").out,
              engine + "8 warnings\ngood.a2l: " + one + "0 warnings\nwarned.a2l: " + one +
                  "1 warning\nword.a2l: " + none + "0 errors, 1 warning\nodd.a2l: " + none +
                  "0 errors, 0 warnings\nbad.a2l: 1 error, 0 warnings\n");
    // Strictly, the precision of nine factors is all that there is to say.
    EXPECT_EQ(tavo("check --strict engine.a2l word.a2l odd.a2l").out,
              engine + "1 warning\nword.a2l: 1 error, 0 warnings\nodd.a2l: " + none +
                  "1 error, 0 warnings\n");
    EXPECT_EQ(tavo("check -q good.a2l bad.a2l").out, "");
}

TEST_F(CommandLineTest, TokensComeAsTheReaderLogsThem)
{
    write("t.a2l", "/begin a \"b\xFC\" 7 0.5 $ /* c */ VERSION");
    EXPECT_EQ(tavo("tokens t.a2l").out, "[/begin]\n'a'\n\"b\xFC\"\n7\n0.500000\nt=36\n[VERSION]\n");
}

TEST_F(CommandLineTest, OnlyATerminalGetsEscapes)
{
    const std::string named = "n\x1b[2J\xc2\x9b\xfc";
    write("t.a2l", inModule("/begin MEASUREMENT n \"" + named +
                            "\" UBYTE NO_COMPU_METHOD 0 0 0 1 /end MEASUREMENT"));
    int terminal[2] = {-1, -1}; // Its own end, and that of the program.
    char name[64];
    ASSERT_EQ(openpty(&terminal[0], &terminal[1], name, nullptr, nullptr), 0);
    for (const char* words : {"tokens t.a2l", "list --format csv t.a2l", "convert t.a2l -"}) {
        standardOutput_ = "";
        const std::string plain = tavo(words).out;
        EXPECT_NE(plain.find(words[0] == 'l' ? "\x1b[2J\u009b\u00fc" : named), std::string::npos)
            << plain;
        standardOutput_ = name;
        EXPECT_EQ(tavo(words).exitCode, 0);
        const auto lines = std::count(plain.begin(), plain.end(), '\n');
        std::string shown;
        pollfd end = {terminal[0], POLLIN, 0};
        // What was written arrives in pieces, and maybe later than the program ends.
        while (std::count(shown.begin(), shown.end(), '\n') < lines && poll(&end, 1, 5000) > 0) {
            char piece[4096];
            const ssize_t size = read(terminal[0], piece, sizeof piece);
            ASSERT_GT(size, 0);
            shown.append(piece, static_cast<std::size_t>(size));
        }
        EXPECT_NE(shown.find("n\\x1b[2J\\x9b\u00fc"), std::string::npos) << shown;
        EXPECT_EQ(shown.find_first_of("\x1b\x9b"), std::string::npos) << shown;
        EXPECT_EQ(std::count(shown.begin(), shown.end(), '\n'), lines);
        EXPECT_EQ(shown.find("\\x0d"), std::string::npos) << shown;
    }
    close(terminal[0]);
    close(terminal[1]);
}

} // namespace
