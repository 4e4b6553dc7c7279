#include "OutputFile.h"

#include "Failure.h"
#include "Program.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

using namespace tavo;

namespace {

namespace fs = std::filesystem;

/// What calls of the operating system end with: an error number, or 0 if they do their work.
struct CallErrors
{
    int renameat2 = 0;
    int link = 0;
    int fsync = 0;
};
CallErrors errors;
std::string synced; ///< What was brought to the disk, "file " or "folder " for each call.

/// Ends a call as `errors` wants it, or by its work.
template <class Work> int called(int error, Work work)
{
    if (error == 0)
        return static_cast<int>(work());
    errno = error;
    return -1;
}

} // namespace

// The program calls these here, and not those of the C library.

extern "C" int renameat2(int fromFolder, const char* from, int toFolder, const char* to,
                         unsigned flags) noexcept
{
    return called(errors.renameat2,
                  [=] { return syscall(SYS_renameat2, fromFolder, from, toFolder, to, flags); });
}

extern "C" int link(const char* from, const char* to) noexcept
{
    return called(errors.link, [=] { return linkat(AT_FDCWD, from, AT_FDCWD, to, 0); });
}

extern "C" int fsync(int descriptor)
{
    struct stat status = {};
    fstat(descriptor, &status);
    synced += S_ISDIR(status.st_mode) ? "folder " : "file ";
    return called(errors.fsync, [=] { return syscall(SYS_fsync, descriptor); });
}

namespace {

class OutputFileTest : public ProgramTest
{
protected:
    OutputFileTest()
    {
        errors = {};
        synced.clear();
    }

    /// Writes "new" to a file. Returns the message of the failure, without the folder, or "".
    std::string failureOf(const std::string& name, bool mayReplace,
                          const std::function<void()>& meanwhile = {}) const
    {
        try {
            OutputFile file(path(name), mayReplace);
            file.stream().put("new");
            if (meanwhile)
                meanwhile();
            file.commit();
            return "";
        } catch (const Failure& failure) {
            return std::string(failure.what()).substr(path("").size());
        }
    }

    /// Replaces a file, and returns the bits of its mode.
    unsigned written(const std::string& name) const
    {
        EXPECT_EQ(failureOf(name, true), "");
        EXPECT_EQ(content(name), "new");
        return static_cast<unsigned>(fs::status(path(name)).permissions());
    }
};

TEST_F(OutputFileTest, StandsThereOnceItIsComplete)
{
    write("a.ini", "old");
    {
        OutputFile givenUp(path("a.ini"), true);
        givenUp.stream().put("new");
    }
    EXPECT_EQ(content("a.ini"), "old");
    EXPECT_EQ(names(), "a.ini ");
    written("a.ini");
    EXPECT_EQ(names(), "a.ini ");
}

TEST_F(OutputFileTest, ReplacesNothingThatAppearedInTheMeantime)
{
    const std::string exists = "a.ini: already exists, --force replaces it";
    // As local disks, network folders, and shared folders of virtual machines have it.
    for (const CallErrors kind :
         {CallErrors{}, CallErrors{EINVAL, 0, 0}, CallErrors{EINVAL, EPERM, 0}}) {
        errors = kind;
        EXPECT_EQ(failureOf("a.ini", false), "");
        EXPECT_EQ(content("a.ini"), "new");
        fs::remove(path("a.ini"));
        EXPECT_EQ(failureOf("a.ini", false, [&] { write("a.ini", "other"); }), exists);
        EXPECT_EQ(content("a.ini"), "other");
        fs::remove(path("a.ini"));
        EXPECT_EQ(failureOf("a.ini", false, [&] { fs::create_symlink("nowhere", path("a.ini")); }),
                  exists);
        EXPECT_EQ(names(), "a.ini ");
        fs::remove(path("a.ini"));
    }
}

TEST_F(OutputFileTest, IsOnTheDiskWithItsName)
{
    for (const bool mayReplace : {false, true}) {
        synced.clear();
        EXPECT_EQ(failureOf("a.ini", mayReplace, [] { EXPECT_EQ(synced, ""); }), "");
        EXPECT_EQ(synced, "file folder ");
    }
    errors.fsync = EINVAL; // The file system has no such call.
    EXPECT_EQ(failureOf("a.ini", true), "");
    errors.fsync = EIO;
    write("a.ini", "old");
    EXPECT_EQ(failureOf("a.ini", true), "a.ini: Input/output error");
    EXPECT_EQ(content("a.ini"), "old");
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

TEST_F(OutputFileTest, GoesWhereLinksLead)
{
    fs::create_directory(path("elsewhere"));
    write("elsewhere/real.ini", "old");
    fs::create_symlink("elsewhere/link.ini", path("link.ini"));
    fs::create_symlink("real.ini", path("elsewhere/link.ini"));
    fs::create_symlink("elsewhere/fresh.ini", path("dangling.ini"));
    written("link.ini");
    written("dangling.ini");
    EXPECT_TRUE(fs::is_symlink(path("link.ini")));
    EXPECT_TRUE(fs::is_symlink(path("dangling.ini")));
    EXPECT_EQ(names("elsewhere"), "fresh.ini link.ini real.ini ");
    EXPECT_EQ(content("elsewhere/real.ini"), "new");

    fs::create_symlink("circle.ini", path("circle.ini"));
    EXPECT_EQ(failureOf("circle.ini", true), "circle.ini: Too many levels of symbolic links");

    // The system's own link to an open file, whose name is gone.
    const int open = ::open(path("gone.ini").c_str(), O_RDWR | O_CREAT, 0600);
    const std::string own = "/proc/self/fd/" + std::to_string(open);
    ASSERT_EQ(::write(open, "a long text", 11), 11);
    fs::remove(path("gone.ini"));
    OutputFile file(own, true);
    file.stream().put("new");
    file.commit();
    EXPECT_TRUE(fs::is_symlink(own));
    EXPECT_EQ(readFile(own), "new");
    close(open);
}

using OutputFileDeathTest = OutputFileTest;

TEST_F(OutputFileDeathTest, ASignalTakesTheTemporaryFileAlong)
{
    for (const int signal : {SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGPIPE, SIGUSR1, SIGXCPU}) {
        const auto dieWhileWriting = [&] {
            std::signal(signal, SIG_DFL); // A script's background job ignores some.
            OutputFile file(path("a.ini"), true);
            if (names().starts_with(".tavo-"))
                std::raise(signal);
        };
        EXPECT_EXIT(dieWhileWriting(), testing::KilledBySignal(signal), "");
        EXPECT_EQ(names(), "");
    }
}

} // namespace
