// A host that lives for long: it converts again and again, and its timers interrupt what it does.

#include "Host.h"
#include "support/conversion.h"
#include "support/files.h"
#include "tavo/tavo.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <malloc.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <filesystem>
#include <thread>

namespace {

namespace fs = std::filesystem;

long openFiles()
{
    return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
}

/// The memory of this process in kilobytes.
long residentSize()
{
    std::FILE* file = std::fopen("/proc/self/statm", "r");
    long pages = 0;
    EXPECT_EQ(std::fscanf(file, "%*d %ld", &pages), 1);
    std::fclose(file);
    return pages * (sysconf(_SC_PAGESIZE) / 1024);
}

/// Sends the standard output to nowhere for the length of a scope.
class Silence
{
public:
    Silence() : former_(dup(STDOUT_FILENO))
    {
        std::fflush(stdout);
        redirect(STDOUT_FILENO, "/dev/null", O_WRONLY);
    }
    ~Silence()
    {
        std::fflush(stdout);
        dup2(former_, STDOUT_FILENO);
        close(former_);
    }

private:
    int former_;
};

class LongLife : public testing::Test
{
protected:
    TemporaryFolder folder;
    CurrentFolder current{folder.path("")};
};

TEST_F(LongLife, needsNoMoreForTenThousandConversionsThanForOne)
{
    fs::copy_file(TAVO_EXAMPLE ".a2l", "good.a2l");
    writeFile("bad.a2l", readFile("good.a2l").substr(0, 40'000));
    const Silence silence;
    const auto convert = [](int count) {
        for (int i = 0; i < count; ++i) {
            ASSERT_EQ(tavoConvert("good.a2l", "good.ini"), TAVO_OK);
            ASSERT_EQ(tavoConvert("bad.a2l", "bad.ini"), TAVO_NOT_READ);
            ASSERT_EQ(tavoConvert("missing.a2l", "bad.ini"), TAVO_NOT_READ);
            ASSERT_EQ(tavoConvert("good.a2l", "missing/d.ini"), TAVO_OUTPUT_NOT_OPENED);
        }
    };
    convert(50);
    const long files = openFiles();
    const auto inUse = mallinfo2().uordblks;
    const long resident = residentSize();
    convert(2450);
    EXPECT_EQ(openFiles(), files);
#if !defined(TAVO_SANITIZED)
    EXPECT_EQ(mallinfo2().uordblks, inUse);
    EXPECT_LT(residentSize(), resident + 1000);
#else
    static_cast<void>(inUse);
    static_cast<void>(resident);
#endif
}

/// Interrupts this thread's system calls a thousand times a second for the length of a scope.
class Interruptions
{
public:
    Interruptions()
    {
        struct sigaction action = {};
        action.sa_handler = [](int) { count = count + 1; };
        sigaction(SIGALRM, &action, &former_); // without SA_RESTART
        set(1000);
    }
    ~Interruptions()
    {
        set(0);
        sigaction(SIGALRM, &former_, nullptr);
    }

    static inline volatile std::sig_atomic_t count = 0;

private:
    static void set(int microseconds)
    {
        const itimerval interval = {{0, microseconds}, {0, microseconds}};
        setitimer(ITIMER_REAL, &interval, nullptr);
    }

    struct sigaction former_ = {};
};

/// Starts a thread that the interruptions leave alone.
template <class Work> std::thread undisturbed(Work work)
{
    sigset_t alarm;
    sigemptyset(&alarm);
    sigaddset(&alarm, SIGALRM);
    pthread_sigmask(SIG_BLOCK, &alarm, nullptr);
    std::thread thread(work);
    pthread_sigmask(SIG_UNBLOCK, &alarm, nullptr);
    return thread;
}

TEST_F(LongLife, readsAllOfASlowPipeThoughSignalsInterruptIt)
{
    const std::string description = readFile(TAVO_EXAMPLE ".a2l");
    ASSERT_EQ(mkfifo("pipe.a2l", 0600), 0);
    const int input = open("pipe.a2l", O_RDWR | O_CLOEXEC); // so that opening it waits for nobody
    std::thread writer = undisturbed([&] {
        const std::size_t piece = description.size() / 200 + 1;
        for (std::size_t i = 0; i < description.size(); i += piece) {
            usleep(3000);
            const std::string_view bytes = std::string_view(description).substr(i, piece);
            EXPECT_EQ(write(input, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
        }
        close(input);
    });
    std::int32_t result = TAVO_NOT_READ;
    {
        const Silence silence;
        const Interruptions interruptions;
        result = tavoConvert("pipe.a2l", "d.ini");
    }
    writer.join();
    EXPECT_EQ(result, TAVO_OK);
    EXPECT_GT(Interruptions::count, 100);
    EXPECT_TRUE(readFile("d.ini") == readFile(TAVO_EXAMPLE ".ini"));
}

TEST_F(LongLife, writesAllIntoASlowPipeThoughSignalsInterruptIt)
{
    std::string block;
    for (int i = 0; i < 3000; ++i)
        block += "/begin MEASUREMENT n \"d\" UWORD c 0 0 0 100 /end MEASUREMENT\n";
    writeFile("d.a2l", inModule(block));
    ASSERT_EQ(mkfifo("pipe.ini", 0600), 0);
    const int output = open("pipe.ini", O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    fcntl(output, F_SETFL, 0);
    std::string received;
    std::thread reader = undisturbed([&] {
        char bytes[4096];
        usleep(50'000);
        for (ssize_t count; (count = read(output, bytes, sizeof bytes)) > 0;) {
            received.append(bytes, static_cast<std::size_t>(count));
            usleep(3000);
        }
        close(output);
    });
    const int keptOpen = open("pipe.ini", O_WRONLY | O_CLOEXEC);
    std::int32_t result = TAVO_NOT_READ;
    {
        const Silence silence;
        {
            const Interruptions interruptions;
            result = tavoConvert("d.a2l", "pipe.ini");
        }
        EXPECT_EQ(tavoConvert("d.a2l", "d.ini"), TAVO_OK);
    }
    close(keptOpen);
    reader.join();
    EXPECT_EQ(result, TAVO_OK);
    EXPECT_TRUE(received == readFile("d.ini")) << received.size() << " bytes";
}

} // namespace
