// What surrounds a conversion: files that aren't files, that end too early or take nothing, a
// process without a standard output.

#include "Host.h"
#include "support/conversion.h"
#include "support/files.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <functional>
#include <string>
#include <thread>

namespace {

namespace fs = std::filesystem;

class WorldTest : public testing::Test
{
protected:
    TemporaryFolder folder;
    CurrentFolder current{folder.path("")};
    Host host;

    void SetUp() override { fs::copy_file(TAVO_EXAMPLE ".a2l", "d.a2l"); }
};

TEST_F(WorldTest, WithoutAPlaceForTheReportIsAllTheSame)
{
    const std::function<void()> losses[] = {
        [] {},
        [] { close(STDOUT_FILENO); },
        [] { close_range(0, 2, 0); },
        [] { redirect(STDOUT_FILENO, "/dev/full", O_WRONLY); },
        [] { redirect(STDOUT_FILENO, "/dev/null", O_RDONLY); },
    };
    // More diagnostics than the buffer of the standard output takes.
    std::string noise;
    for (int i = 0; i < 2000; ++i)
        noise += "BYTE_ORDER UNKNOWN\n";
    writeFile("noisy.a2l", withMeasurement(noise + "ECU_ADDRESS 17"));
    for (const auto& loss : losses) {
        host.prepare = loss;
        fs::remove("d.ini");
        EXPECT_EQ(host.run("noisy.a2l", "d.ini").status, 0);
        EXPECT_NE(readFile("d.ini").find("ECUAddress=0x11\n"), std::string::npos);
    }
}

TEST_F(WorldTest, AReportIntoAPipeThatNobodyReadsEndsTheHostAsItDoesAnyProgram)
{
    host.prepare = [] {
        int ends[2];
        if (pipe(ends) == 0)
            dup2(ends[1], STDOUT_FILENO);
        close(ends[0]);
        close(ends[1]);
    };
    EXPECT_EQ(host.run("d.a2l", "d.ini").signal, SIGPIPE);
    EXPECT_TRUE(readFile("d.ini") == readFile(TAVO_EXAMPLE ".ini"));
}

TEST_F(WorldTest, WhatIsNoDescriptionFileIsNotRead)
{
    fs::create_directory("folder.a2l");
    fs::create_symlink("loop.a2l", "loop.a2l");
    fs::create_symlink("missing", "dangling.a2l");
    fs::create_symlink("/proc/self/mem", "unreadable.a2l");
    fs::create_symlink("/dev/null", "empty.a2l");
    writeFile("d.ini", "old");
    const std::string longName = std::string(5000, 'x') + ".a2l";
    for (const char* input : {"folder.a2l", "loop.a2l", "dangling.a2l", "unreadable.a2l",
                              "empty.a2l", "d.a2l/d.a2l", "folder.a2l/", longName.c_str()})
        EXPECT_EQ(host.run(input, "d.ini").status, 3) << input;
    EXPECT_EQ(readFile("d.ini"), "old");
}

TEST_F(WorldTest, WhatTakesNoConfigurationIsReported)
{
    fs::create_directory("folder");
    fs::create_symlink("loop.ini", "loop.ini");
    for (const char* output : {"folder", "loop.ini", "missing/d.ini", "d.a2l/d.ini", ""})
        EXPECT_EQ(host.run("d.a2l", output).status, 2) << output;
    EXPECT_EQ(host.run("d.a2l", "/dev/full").status, 0) << "a full disk stops nothing";
}

TEST_F(WorldTest, AConfigurationGoesWhereItsPathLeads)
{
    writeFile("target.ini", std::string(1'000'000, 'x')); // longer than the configuration
    fs::create_symlink("target.ini", "link.ini");
    fs::create_symlink("new.ini", "dangling.ini");
    for (const auto& [link, target] :
         {std::pair("link.ini", "target.ini"), {"dangling.ini", "new.ini"}, {"d.a2l", "d.a2l"}}) {
        EXPECT_EQ(host.run("d.a2l", link).status, 0) << link;
        EXPECT_TRUE(readFile(target) == readFile(TAVO_EXAMPLE ".ini")) << link;
    }
    EXPECT_TRUE(fs::is_symlink("link.ini"));
}

TEST_F(WorldTest, ADescriptionMayComeThroughAPipe)
{
    const std::string description = readFile("d.a2l");
    const Ending ending = host.runPiped("pipe.a2l", "d.ini", [&](std::FILE* file) {
        std::setvbuf(file, nullptr, _IONBF, 0);
        for (std::size_t i = 0; i < description.size(); i += 97) // pieces that split tokens
            std::fwrite(&description[i], 1, std::min<std::size_t>(97, description.size() - i),
                        file);
    });
    EXPECT_EQ(ending.status, 0);
    EXPECT_TRUE(readFile("d.ini") == readFile(TAVO_EXAMPLE ".ini"));
}

TEST_F(WorldTest, ADescriptionMayShrinkWhileItIsRead)
{
    std::string description;
    for (int i = 0; i < 50; ++i)
        description += readFile(TAVO_EXAMPLE ".a2l");
    for (const auto delay : {0, 3, 6, 12, 24}) {
        writeFile("d.a2l", description);
        std::thread shrinking([&] {
            std::this_thread::sleep_for(std::chrono::milliseconds(delay));
            fs::resize_file("d.a2l", description.size() / 4);
        });
        const Ending ending = host.run("d.a2l", "d.ini");
        shrinking.join();
        EXPECT_TRUE(ending.status == 0 || ending.status == 3) << ending.signal;
    }
}

} // namespace
