#include "Program.h"

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <map>
#include <poll.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

/// With the description `d.a2l`, whose configuration is `expected_`, and `bad.a2l`, which can't be
/// read.
class ConvertTest : public ProgramTest
{
protected:
    ConvertTest()
    {
        fs::copy_file(example_ / "engine.a2l", path("d.a2l"));
        write("bad.a2l", "/begin PROJECT");
    }

    const fs::path example_ = TAVO_EXAMPLES_FOLDER;
    const std::string expected_ = readFile(example_ / "engine.ini");
};

TEST_F(ConvertTest, GivesTheBytesOfTheLibraryOnEveryWay)
{
    fs::copy(TAVO_GOLDEN_FOLDER, path("golden"));
    std::string inputs;
    std::map<std::string, std::string> configurations; // By the names of their files.
    for (const fs::directory_entry& entry : fs::directory_iterator(path("golden"))) {
        if (entry.path().extension() != ".ini")
            continue;
        const std::string input = " golden/" + entry.path().stem().string() + ".a2l ";
        const std::string expected = readFile(entry.path());
        EXPECT_EQ(tavo("convert --strict -q -f" + input + "single.ini").exitCode, 0) << input;
        EXPECT_EQ(content("single.ini"), expected) << input;
        EXPECT_EQ(tavo("convert --strict -q" + input + "-").out, expected) << input;
        configurations[entry.path().filename().string()] = expected;
        inputs += input;
    }
    EXPECT_GT(configurations.size(), 10U);
    for (const std::string jobs : {"1", "3", "256"}) {
        EXPECT_EQ(tavo("convert --strict -q -j " + jobs + " -d jobs" + jobs + inputs).exitCode, 0);
        for (const auto& [name, expected] : configurations)
            EXPECT_EQ(content("jobs" + jobs + "/" + name), expected);
    }
    for (const std::string name : {"engine", "minimal"}) {
        fs::copy_file(example_ / (name + ".a2l"), path(name + ".a2l"));
        EXPECT_EQ(tavo("convert -q " + name + ".a2l").exitCode, 0);
        EXPECT_EQ(content(name + ".ini"), readFile(example_ / (name + ".ini")));
    }
}

TEST_F(ConvertTest, WritesBesideTheInputAndSumsUp)
{
    fs::create_directory(path("sub"));
    fs::copy_file(path("d.a2l"), path("sub/engine.v2.A2L"));
    fs::copy_file(path("d.a2l"), path("sub/plain"));
    const std::string sum = ".ini: 2 interfaces, 13 sources, 177 measurements\n";
    for (const std::string words : {"sub/engine.v2.A2L", "--strict sub/plain"}) {
        const std::string said = tavo("convert " + words).err;
        EXPECT_TRUE(said.ends_with("\nWrote sub/" + words.substr(words.find('/') + 1, 9) + sum))
            << said;
    }
    EXPECT_EQ(names("sub"), "engine.v2.A2L engine.v2.ini plain plain.ini ");
    EXPECT_EQ(content("sub/plain.ini"), expected_);
}

TEST_F(ConvertTest, LeavesAllFilesAsTheyWereIfItFails)
{
    fs::create_directory(path("sub"));
    for (const char* copy : {"e.A2L", "d.txt", "sub/d.a2l"})
        fs::copy_file(path("d.a2l"), path(copy));
    fs::create_symlink("d.txt", path("link"));
    fs::create_hard_link(path("d.txt"), path("twin"));
    write("d.ini", "old");
    fileSizeLimit_ = 10000;
    const auto allFiles = [&] {
        std::map<std::string, std::string> files;
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(path("")))
            files[entry.path().string()] = entry.is_directory() ? "" : readFile(entry.path());
        return files;
    };
    const auto before = allFiles();
    const std::string error = "tavo: error: ";
    struct
    {
        std::string words;
        int exitCode;
        std::string reason;
    } cases[] = {
        {"d.a2l", 3, error + "d.ini: already exists, --force replaces it"},
        {"d.a2l link", 3, error + "link: already exists, --force replaces it"},
        {"-f bad.a2l d.ini", 1,
         "bad.a2l:1:1: error: Block 'PROJECT' without an end\n    /begin PROJECT\n    ^~~~~~"},
        {"-f d.a2l d.ini", 3, error + "d.ini: File too large"},
        {"-f d.a2l /dev/full", 3, error + "/dev/full: No space left on device"},
        {"-f d.a2l bad.a2l/d.ini", 3, error + "bad.a2l/d.ini: Not a directory"},
        {"-f d.a2l nowhere/d.ini", 3, error + "nowhere/d.ini: No such file or directory"},
        {"-f d.a2l sub", 3, error + "sub: Is a directory"},
        {"-f d.a2l -d bad.a2l", 3, error + "bad.a2l: Not a directory"},
        {"-f d.txt ./d.txt", 3, error + "./d.txt: is the description itself"},
        {"-f d.txt link", 3, error + "link: is the description itself"},
        {"-f d.txt twin", 3, error + "twin: is the description itself"},
        {"-f link d.txt", 3, error + "d.txt: is the description itself"},
        {"-f d.ini", 3, error + "d.ini: is the description itself"},
        {"-f d.a2l e.A2L", 2, error + "Several descriptions need an --output-dir"},
        {"-f -d out d.a2l sub/d.a2l", 2, error + "Two descriptions would be written to out/d.ini"},
    };
    for (const auto& c : cases) {
        const ProgramRun failed = tavo("convert -q " + c.words);
        EXPECT_EQ(failed.exitCode, c.exitCode) << c.words;
        EXPECT_EQ(failed.err, c.reason + "\n");
        EXPECT_TRUE(allFiles() == before) << c.words;
    }
    fileSizeLimit_ = 0;
    EXPECT_EQ(tavo("convert --force d.a2l").exitCode, 0);
    EXPECT_EQ(content("d.ini"), expected_);
}

TEST_F(ConvertTest, WritesToADeviceDirectly)
{
    EXPECT_EQ(tavo("convert d.a2l /dev/null").exitCode, 0);
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
    EXPECT_EQ(tavo("convert -q d.a2l /dev/stderr").err, expected_); // A pipe.
}

TEST_F(ConvertTest, ABrokenFileStopsNoOther)
{
    fs::copy_file(path("d.a2l"), path("e.a2l"));
    for (const std::string jobs : {"1", "2"}) {
        fs::remove_all(path("out"));
        const std::string convert = "convert -q -f -d out -j " + jobs;
        const ProgramRun mixed = tavo(convert + " bad.a2l d.a2l e.a2l");
        EXPECT_EQ(mixed.exitCode, 1);
        EXPECT_EQ(
            mixed.err,
            "bad.a2l:1:1: error: Block 'PROJECT' without an end\n    /begin PROJECT\n    ^~~~~~\n");
        EXPECT_EQ(names("out"), "d.ini e.ini ");
        const ProgramRun missing = tavo(convert + " nowhere.a2l bad.a2l d.a2l");
        EXPECT_EQ(missing.exitCode, 3);
        EXPECT_NE(missing.err.find("tavo: error: nowhere.a2l: No such file or directory\n"),
                  std::string::npos);
    }
}

TEST_F(ConvertTest, AFileThatAppearsWhileItReadsStays)
{
    ASSERT_EQ(mkfifo(path("slow.a2l").c_str(), 0600), 0);
    const ProgramRun run = tavo("convert -q slow.a2l", [&](pid_t) {
        const std::string description = content("d.a2l");
        const int pipe = open(path("slow.a2l").c_str(), O_WRONLY);
        write("slow.ini", "other");
        EXPECT_EQ(::write(pipe, description.data(), description.size()),
                  static_cast<ssize_t>(description.size()));
        close(pipe);
    });
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_EQ(run.err, "tavo: error: slow.ini: already exists, --force replaces it\n");
    EXPECT_EQ(content("slow.ini"), "other");
    EXPECT_EQ(names(), "bad.a2l d.a2l slow.a2l slow.ini ");
}

TEST_F(ConvertTest, APipeWaitsForItsReader)
{
    ASSERT_EQ(mkfifo(path("pipe").c_str(), 0600), 0);
    const ProgramRun read = tavo("convert d.a2l pipe", [&](pid_t process) {
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        EXPECT_EQ(waitpid(process, nullptr, WNOHANG), 0);
        EXPECT_EQ(content("pipe"), expected_);
    });
    EXPECT_EQ(read.exitCode, 0);
    const ProgramRun ended = tavo("convert d.a2l pipe", [&](pid_t process) {
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        kill(process, SIGINT);
    });
    EXPECT_EQ(ended.exitCode, -SIGINT);
}

/// Whether nobody reads from this pipe any more, within ten seconds.
bool losesItsReader(int pipe)
{
    pollfd watched = {pipe, 0, 0};
    return poll(&watched, 1, 10000) == 1;
}

TEST_F(ConvertTest, AnEndlessInputEndsAtASignal)
{
    ASSERT_EQ(mkfifo(path("endless.a2l").c_str(), 0600), 0);
    const std::string blanks(65536, ' ');
    // Of two, the second one is read with the means that the first one's writing has set up.
    for (const std::string words : {"endless.a2l d.a2l", "d.a2l endless.a2l"}) {
        for (const int signal : {SIGINT, SIGTERM, SIGQUIT}) {
            fs::remove_all(path("out"));
            int pipe = -1;
            const ProgramRun ended = tavo("convert -d out " + words, [&](pid_t process) {
                pipe = open(path("endless.a2l").c_str(), O_WRONLY);
                for (int i = 0; i < 100; ++i)
                    EXPECT_GT(::write(pipe, blanks.data(), blanks.size()), 0);
                kill(process, signal);
                EXPECT_TRUE(losesItsReader(pipe));
            });
            EXPECT_EQ(ended.exitCode, -signal);
            EXPECT_EQ(names("out"), words.starts_with("d") ? "d.ini " : "");
            close(pipe);
        }
    }
}

TEST_F(ConvertTest, TheProcessesOfAllJobsEndWithTheirParent)
{
    for (const char* name : {"0.a2l", "1.a2l"})
        ASSERT_EQ(mkfifo(path(name).c_str(), 0600), 0);
    for (const int signal : {SIGINT, SIGTERM, SIGQUIT, SIGKILL}) {
        const ProgramRun ended = tavo("convert -j 2 -d out 0.a2l 1.a2l", [&](pid_t process) {
            // The opening waits until somebody reads.
            const int feeding[] = {open(path("0.a2l").c_str(), O_WRONLY),
                                   open(path("1.a2l").c_str(), O_WRONLY)};
            kill(process, signal);
            for (const int pipe : feeding)
                EXPECT_TRUE(losesItsReader(pipe)) << signal;
            for (const int pipe : feeding)
                close(pipe);
        });
        EXPECT_EQ(ended.exitCode, -signal);
    }
}

} // namespace
