#include "OutputFile.h"

#include "Failure.h"
#include "support/files.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <sys/stat.h>

using namespace tavo;

namespace {

namespace fs = std::filesystem;

std::size_t fileCount(const std::string& folder)
{
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

TEST(OutputFileTest, LeavesTheOldFileUntilTheNewOneIsComplete)
{
    const TemporaryFolder folder;
    const std::string path = folder.path("a.ini");
    writeFile(path, "old");
    {
        OutputFile given_up(path);
        given_up.stream().put("new");
    }
    EXPECT_EQ(readFile(path), "old");
    EXPECT_EQ(fileCount(folder.path("")), 1U);
    {
        OutputFile file(path);
        file.stream().put("new");
        EXPECT_EQ(readFile(path), "old");
        file.commit();
    }
    EXPECT_EQ(readFile(path), "new");
    EXPECT_EQ(fileCount(folder.path("")), 1U);
}

TEST(OutputFileTest, GivesTheModeThatTheUserExpects)
{
    const TemporaryFolder folder;
    const mode_t former = umask(027);
    const auto modeBehindWriting = [&](const std::string& path) {
        OutputFile file(path);
        file.commit();
        return static_cast<unsigned>(fs::status(path).permissions());
    };
    EXPECT_EQ(modeBehindWriting(folder.path("fresh.ini")), 0640U);
    umask(former);
    writeFile(folder.path("old.ini"), "");
    fs::permissions(folder.path("old.ini"), fs::perms(0604));
    EXPECT_EQ(modeBehindWriting(folder.path("old.ini")), 0604U);
}

TEST(OutputFileTest, ReplacesWhatALinkLeadsTo)
{
    const TemporaryFolder folder;
    fs::create_directory(folder.path("elsewhere"));
    writeFile(folder.path("elsewhere/real.ini"), "old");
    fs::create_symlink("elsewhere/real.ini", folder.path("link.ini"));
    OutputFile file(folder.path("link.ini"));
    file.stream().put("new");
    file.commit();
    EXPECT_TRUE(fs::is_symlink(folder.path("link.ini")));
    EXPECT_EQ(readFile(folder.path("elsewhere/real.ini")), "new");
}

TEST(OutputFileDeathTest, ASignalTakesTheTemporaryFileAlong)
{
    const TemporaryFolder folder;
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        const auto dieWhileWriting = [&] {
            OutputFile file(folder.path("a.ini"));
            if (fileCount(folder.path("")) == 1)
                std::raise(signal);
        };
        EXPECT_EXIT(dieWhileWriting(), testing::KilledBySignal(signal), "");
        EXPECT_EQ(fileCount(folder.path("")), 0U);
    }
}

} // namespace
