#include "OutputFile.h"

#include "Failure.h"
#include "Program.h"

#include <csignal>
#include <sys/stat.h>

using namespace tavo;

namespace {

namespace fs = std::filesystem;

class OutputFileTest : public ProgramTest
{
protected:
    /// Writes a file, and gives the bits of its mode.
    unsigned written(const std::string& name) const
    {
        OutputFile file(path(name));
        file.stream().put("new");
        file.commit();
        EXPECT_EQ(content(name), "new");
        return static_cast<unsigned>(fs::status(path(name)).permissions());
    }
};

TEST_F(OutputFileTest, StandsThereOnceItIsComplete)
{
    write("a.ini", "old");
    {
        OutputFile givenUp(path("a.ini"));
        givenUp.stream().put("new");
    }
    EXPECT_EQ(content("a.ini"), "old");
    EXPECT_EQ(names(), "a.ini ");
    written("a.ini");
    EXPECT_EQ(names(), "a.ini ");
}

TEST_F(OutputFileTest, HasTheModeThatTheUserExpects)
{
    const mode_t former = umask(027);
    EXPECT_EQ(written("fresh.ini"), 0640U);
    umask(former);
    write("old.ini", "");
    fs::permissions(path("old.ini"), fs::perms(0604));
    EXPECT_EQ(written("old.ini"), 0604U);
}

TEST_F(OutputFileTest, ReplacesWhatALinkLeadsTo)
{
    fs::create_directory(path("elsewhere"));
    write("elsewhere/real.ini", "old");
    fs::create_symlink("elsewhere/real.ini", path("link.ini"));
    written("link.ini");
    EXPECT_TRUE(fs::is_symlink(path("link.ini")));
    EXPECT_EQ(content("elsewhere/real.ini"), "new");
}

using OutputFileDeathTest = OutputFileTest;

TEST_F(OutputFileDeathTest, ASignalTakesTheTemporaryFileAlong)
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        const auto dieWhileWriting = [&] {
            OutputFile file(path("a.ini"));
            if (names().starts_with(".tavo-"))
                std::raise(signal);
        };
        EXPECT_EXIT(dieWhileWriting(), testing::KilledBySignal(signal), "");
        EXPECT_EQ(names(), "");
    }
}

} // namespace
