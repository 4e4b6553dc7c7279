#include "Program.h"
#include "support/conversion.h"
#include "support/files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

const fs::path goldenFolder = TAVO_GOLDEN_FOLDER;
const std::string example = std::string(TAVO_EXAMPLES_FOLDER) + "/engine.a2l";
const std::string exampleConfiguration = std::string(TAVO_EXAMPLES_FOLDER) + "/engine.ini";

/// The descriptions that can be read.
std::vector<std::string> goodDescriptions()
{
    std::vector<std::string> paths;
    for (const fs::directory_entry& entry : fs::directory_iterator(goldenFolder))
        if (entry.path().extension() == ".a2l" && entry.path().stem().string().starts_with("ok-"))
            paths.push_back(entry.path().string());
    std::sort(paths.begin(), paths.end());
    EXPECT_GT(paths.size(), 10U);
    return paths;
}

std::string expectedFor(const fs::path& description)
{
    return readFile(fs::path(description).replace_extension(".ini"));
}

std::vector<std::string> namesIn(const std::string& folder)
{
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

std::vector<std::string> joined(std::vector<std::string> head, const std::vector<std::string>& tail)
{
    head.insert(head.end(), tail.begin(), tail.end());
    return head;
}

/// A folder with the description `d.a2l`, which can be read, and `bad.a2l`, which can't.
class ConvertTest : public testing::Test
{
protected:
    ConvertTest()
    {
        fs::copy_file(example, path("d.a2l"));
        writeFile(path("bad.a2l"), "/begin PROJECT");
        setting_.folder = path("");
    }

    std::string path(const std::string& name) const { return folder_.path(name); }

    ProgramRun runHere(const std::vector<std::string>& arguments) const
    {
        return run(arguments, setting_);
    }

    TemporaryFolder folder_;
    Setting setting_;
};

TEST_F(ConvertTest, GivesTheBytesOfTheLibraryOnEveryWay)
{
    const std::vector<std::string> descriptions = goodDescriptions();
    for (const std::string& description : descriptions) {
        const std::string output = path("single.ini");
        EXPECT_EQ(run({"convert", "-q", "-f", description, output}).exitCode, 0) << description;
        EXPECT_EQ(readFile(output), expectedFor(description)) << description;
        EXPECT_EQ(run({"convert", "-q", description, "-"}).out, expectedFor(description));
    }
    for (const char* jobs : {"1", "3", "256"}) {
        const std::string folder = path(std::string("jobs") + jobs);
        const std::vector<std::string> head = {"convert", "-q", "-j", jobs, "-d", folder};
        EXPECT_EQ(run(joined(head, descriptions)).exitCode, 0);
        EXPECT_EQ(namesIn(folder).size(), descriptions.size());
        for (const fs::path description : descriptions) {
            const fs::path name = description.stem().string() + ".ini";
            EXPECT_EQ(readFile(folder / name), expectedFor(description)) << description;
        }
    }
}

TEST_F(ConvertTest, WritesBesideTheInputByDefault)
{
    fs::create_directory(path("sub"));
    fs::copy_file(example, path("sub/engine.v2.A2L"));
    fs::copy_file(example, path("sub/plain"));
    EXPECT_EQ(runHere({"convert", "sub/engine.v2.A2L"}).exitCode, 0);
    EXPECT_EQ(runHere({"convert", "sub/plain"}).exitCode, 0);
    EXPECT_EQ(namesIn(path("sub")),
              (std::vector<std::string>{"engine.v2.A2L", "engine.v2.ini", "plain", "plain.ini"}));
    EXPECT_EQ(readFile(path("sub/plain.ini")), readFile(exampleConfiguration));
}

TEST_F(ConvertTest, IsSilentIfAllIsWell)
{
    const ProgramRun converted = runHere({"convert", "d.a2l"});
    EXPECT_EQ(converted.out, "");
    EXPECT_EQ(converted.err, "");
    const std::string verbose = runHere({"convert", "-f", "--verbose", "d.a2l"}).err;
    EXPECT_TRUE(verbose.starts_with("  Parse PROJECT "));
    EXPECT_TRUE(verbose.ends_with("\nWrote d.ini\n"));
}

TEST_F(ConvertTest, ReplacesAnExistingFileOnlyByForce)
{
    writeFile(path("d.ini"), "old");
    const ProgramRun refused = runHere({"convert", "d.a2l"});
    EXPECT_EQ(refused.exitCode, 3);
    EXPECT_EQ(refused.err, "tavo: error: d.ini: exists already, --force replaces it\n");
    EXPECT_EQ(readFile(path("d.ini")), "old");
    EXPECT_EQ(runHere({"convert", "bad.a2l", "d.ini", "--force"}).exitCode, 1);
    EXPECT_EQ(readFile(path("d.ini")), "old");
    EXPECT_EQ(runHere({"convert", "d.a2l", "--force"}).exitCode, 0);
    EXPECT_EQ(readFile(path("d.ini")), readFile(exampleConfiguration));
}

TEST_F(ConvertTest, NeverWritesOverTheDescription)
{
    fs::copy_file(path("d.a2l"), path("d.txt"));
    fs::create_symlink("d.txt", path("link"));
    fs::create_hard_link(path("d.txt"), path("twin"));
    for (const char* output : {"d.txt", "./d.txt", "link", "twin"}) {
        const ProgramRun refused = runHere({"convert", "--force", "d.txt", output});
        EXPECT_EQ(refused.exitCode, 3) << output;
        EXPECT_EQ(refused.err,
                  std::string("tavo: error: ") + output + ": is the description itself\n");
    }
    EXPECT_EQ(runHere({"convert", "--force", "link", "d.txt"}).exitCode, 3);
    // The name of the configuration, too.
    fs::copy_file(path("d.a2l"), path("d.ini"));
    EXPECT_EQ(runHere({"convert", "--force", "d.ini"}).exitCode, 3);
    EXPECT_EQ(readFile(path("d.txt")), readFile(example));
    EXPECT_EQ(readFile(path("d.ini")), readFile(example));
}

TEST_F(ConvertTest, TakesNoSecondDescriptionForTheOutput)
{
    fs::copy_file(example, path("e.A2L"));
    EXPECT_EQ(runHere({"convert", "--force", "d.a2l", "e.A2L"}).exitCode, 2);
    EXPECT_EQ(runHere({"convert", "--force", "d.a2l", "e.A2L", "x"}).exitCode, 2);
    EXPECT_EQ(readFile(path("e.A2L")), readFile(example));
    fs::create_directory(path("sub"));
    fs::copy_file(example, path("sub/d.a2l"));
    const ProgramRun doubled = runHere({"convert", "-d", "out", "d.a2l", "sub/d.a2l"});
    EXPECT_EQ(doubled.exitCode, 2);
    EXPECT_EQ(doubled.err, "tavo: error: Two descriptions would be written to out/d.ini\n");
    EXPECT_FALSE(fs::exists(path("out")));
}

TEST_F(ConvertTest, TellsWhyAnOutputCanNotBeWritten)
{
    fs::create_directory(path("folder"));
    struct
    {
        std::vector<std::string> arguments;
        std::string reason;
    } cases[] = {
        {{"d.a2l", "/dev/full"}, "/dev/full: No space left on device"},
        {{"d.a2l", "bad.a2l/d.ini"}, "bad.a2l/d.ini: Not a directory"},
        {{"d.a2l", "nowhere/d.ini"}, "nowhere/d.ini: No such file or directory"},
        {{"d.a2l", "folder", "--force"}, "folder: Is a directory"},
        {{"d.a2l", "-d", "bad.a2l"}, "bad.a2l: Not a directory"},
        {{"d.a2l", "-d", "bad.a2l/out"}, "bad.a2l/out: Not a directory"},
    };
    const std::vector<std::string> before = namesIn(path(""));
    for (const auto& c : cases) {
        const ProgramRun failed = runHere(joined({"convert"}, c.arguments));
        EXPECT_EQ(failed.exitCode, 3) << c.reason;
        EXPECT_EQ(failed.err, "tavo: error: " + c.reason + "\n");
    }
    EXPECT_EQ(namesIn(path("")), before);
    EXPECT_TRUE(fs::is_empty(path("folder")));
}

TEST_F(ConvertTest, AFullDiskLeavesTheOldFile)
{
    writeFile(path("d.ini"), "old");
    setting_.fileSizeLimit = 10000;
    const ProgramRun failed = runHere({"convert", "--force", "d.a2l"});
    EXPECT_EQ(failed.exitCode, 3);
    EXPECT_EQ(failed.err, "tavo: error: d.ini: File too large\n");
    EXPECT_EQ(readFile(path("d.ini")), "old");
    EXPECT_EQ(namesIn(path("")), (std::vector<std::string>{"bad.a2l", "d.a2l", "d.ini"}));
}

TEST_F(ConvertTest, WritesToADeviceDirectly)
{
    EXPECT_EQ(runHere({"convert", "d.a2l", "/dev/null"}).exitCode, 0);
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
    EXPECT_EQ(runHere({"convert", "d.a2l", "/dev/stdout"}).out, readFile(exampleConfiguration));
}

TEST_F(ConvertTest, ABrokenFileStopsNoOther)
{
    fs::copy_file(example, path("e.a2l"));
    for (const char* jobs : {"1", "2"}) {
        fs::remove_all(path("out"));
        const ProgramRun mixed =
            runHere({"convert", "-j", jobs, "-d", "out", "bad.a2l", "d.a2l", "e.a2l"});
        EXPECT_EQ(mixed.exitCode, 1);
        EXPECT_EQ(mixed.err, "bad.a2l:1: error: Unexpected token EOF\n    /begin PROJECT\n");
        EXPECT_EQ(namesIn(path("out")), (std::vector<std::string>{"d.ini", "e.ini"}));
        const ProgramRun missing =
            runHere({"convert", "-f", "-j", jobs, "-d", "out", "nowhere.a2l", "bad.a2l", "d.a2l"});
        EXPECT_EQ(missing.exitCode, 3);
        EXPECT_NE(missing.err.find("tavo: error: nowhere.a2l: No such file or directory\n"),
                  std::string::npos);
    }
}

TEST_F(ConvertTest, ASignalEndsTheProcessesOfAllJobs)
{
    int feeding[2] = {-1, -1};
    for (const char* name : {"0.a2l", "1.a2l"})
        ASSERT_EQ(mkfifo(path(name).c_str(), 0600), 0);
    RunningProgram program({"convert", "-j", "2", "-d", "out", "0.a2l", "1.a2l"}, setting_);
    // The opening waits until somebody reads.
    feeding[0] = open(path("0.a2l").c_str(), O_WRONLY);
    feeding[1] = open(path("1.a2l").c_str(), O_WRONLY);
    program.sendSignal(SIGTERM);
    EXPECT_EQ(program.finish().exitCode, -SIGTERM);
    for (const int end : feeding)
        close(end);
}

} // namespace
