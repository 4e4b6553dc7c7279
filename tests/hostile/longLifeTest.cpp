// A host that lives for long: it converts 1,000 times and loads the library 100 times, or ten times
// as often with TAVO_HOSTILE_FULL=1 in the environment, and its timers interrupt what it does.

#include "Host.h"
#include "support/conversion.h"
#include "support/files.h"
#include "tavo/tavo.h"

#include <gtest/gtest.h>

#include <dlfcn.h>
#include <fcntl.h>
#include <malloc.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <thread>

namespace {

namespace fs = std::filesystem;

long openFiles()
{
    return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
}

class LongLifeTest : public testing::Test
{
protected:
    TemporaryFolder folder;
    CurrentFolder current{folder.path("")};
};

TEST_F(LongLifeTest, NeedsNoMoreForManyConversionsThanForAFew)
{
    fs::copy_file(TAVO_EXAMPLE ".a2l", "good.a2l");
    writeFile("bad.a2l", readFile("good.a2l").substr(0, 40'000));
    const auto convert = [](int count) {
        for (int i = 0; i < count; i += 4) {
            ASSERT_EQ(convertFile("good.a2l", "good.ini").result, TAVO_OK);
            ASSERT_EQ(convertFile("bad.a2l", "bad.ini").result, TAVO_NOT_READ);
            ASSERT_EQ(convertFile("missing.a2l", "bad.ini").result, TAVO_NOT_READ);
            ASSERT_EQ(convertFile("good.a2l", "missing/d.ini").result, TAVO_OUTPUT_NOT_OPENED);
        }
    };
    convert(100);
    const long files = openFiles();
    const auto before = mallinfo2();
    convert(isFull() ? 10'000 : 1'000);
    EXPECT_EQ(openFiles(), files);
    // Of the sanitizers' own allocator this says nothing; they report at the end what leaks.
    EXPECT_EQ(mallinfo2().uordblks, before.uordblks);
    EXPECT_EQ(mallinfo2().hblkhd, before.hblkhd);
}

/// A copy of the library, so that it isn't the one that this program has loaded from its start.
TEST_F(LongLifeTest, CanBeLoadedAndUnloadedAgainAndAgain)
{
    fs::copy_file(TAVO_LIBRARY, "copy.so");
    for (int i = 0; i < (isFull() ? 1'000 : 100); ++i) {
        void* library = dlopen("./copy.so", RTLD_NOW | RTLD_LOCAL);
        ASSERT_NE(library, nullptr) << dlerror();
        const auto convert =
            reinterpret_cast<decltype(&tavoConvert)>(dlsym(library, "tavoConvert"));
        ASSERT_NE(convert, &tavoConvert);
        testing::internal::CaptureStdout();
        ASSERT_EQ(convert(TAVO_EXAMPLE ".a2l", "d.ini"), TAVO_OK);
        testing::internal::GetCapturedStdout();
        dlclose(library);
        ASSERT_EQ(dlopen("./copy.so", RTLD_NOW | RTLD_NOLOAD), nullptr) << "it is still there";
    }
}

/// How a thread ends that is cancelled while it converts `input` into pipe.ini.
void* cancelled(const char* input)
{
    pthread_t thread = 0;
    const auto convert = [](void* path) -> void* {
        tavoConvert(static_cast<const char*>(path), "pipe.ini");
        return nullptr;
    };
    EXPECT_EQ(pthread_create(&thread, nullptr, convert, const_cast<char*>(input)), 0);
    usleep(50'000);
    pthread_cancel(thread);
    void* result = nullptr;
    pthread_join(thread, &result);
    return result;
}

TEST_F(LongLifeTest, LosesNothingIfItsThreadIsCancelledWhileItWaits)
{
    const std::string description = readFile(TAVO_EXAMPLE ".a2l");
    writeFile("whole.a2l", description);
    for (const char* pipe : {"unopened.a2l", "half.a2l", "pipe.ini"})
        ASSERT_EQ(mkfifo(pipe, 0600), 0);
    const int half = open("half.a2l", O_RDWR | O_CLOEXEC);
    const int output = open("pipe.ini", O_RDWR | O_CLOEXEC);
    ASSERT_GT(fcntl(half, F_SETPIPE_SZ, 1 << 20), 0);
    ASSERT_GT(fcntl(output, F_SETPIPE_SZ, 4096), 0);
    testing::internal::CaptureStdout();
    // What it waits for: a writer, more input, and a reader of its output.
    for (const char* input : {"unopened.a2l", "half.a2l", "whole.a2l"}) {
        SCOPED_TRACE(input);
        long files = 0;
        std::size_t memory = 0;
        for (int i = 0; i < 10; ++i) {
            const std::size_t size = description.size() / 2;
            if (input == std::string("half.a2l")) {
                EXPECT_EQ(write(half, description.data(), size), static_cast<ssize_t>(size));
            }
            EXPECT_EQ(cancelled(input), PTHREAD_CANCELED);
            if (i == 1) { // what the first ones leave belongs to the C library
                files = openFiles();
                memory = mallinfo2().uordblks;
            }
        }
        EXPECT_EQ(openFiles(), files);
        EXPECT_EQ(mallinfo2().uordblks, memory);
    }
    testing::internal::GetCapturedStdout();
    close(half);
    close(output);
}

/// Interrupts this thread's system calls a thousand times a second for the length of a scope.
class Interruptions
{
public:
    Interruptions()
    {
        struct sigaction action = {};
        action.sa_handler = [](int) { count = count + 1; };
        sigaction(SIGALRM, &action, nullptr); // without SA_RESTART
        set(1000);
    }
    ~Interruptions() { set(0); }

    static inline volatile std::sig_atomic_t count = 0;

private:
    static void set(int microseconds)
    {
        const itimerval interval = {{0, microseconds}, {0, microseconds}};
        setitimer(ITIMER_REAL, &interval, nullptr);
    }
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

TEST_F(LongLifeTest, ReadsAndWritesAllOfSlowPipesThoughSignalsInterruptIt)
{
    ASSERT_EQ(mkfifo("pipe.a2l", 0600), 0);
    ASSERT_EQ(mkfifo("pipe.ini", 0600), 0);
    // Opened both ways, so that opening waits for nobody. The library has to wait for more input
    // and for room for its output, the threads for nothing but the end of the conversion.
    const int input = open("pipe.a2l", O_RDWR | O_CLOEXEC);
    const int output = open("pipe.ini", O_RDWR | O_CLOEXEC);
    ASSERT_GT(fcntl(input, F_SETPIPE_SZ, 1 << 20), 0);
    ASSERT_GT(fcntl(output, F_SETPIPE_SZ, 4096), 0);
    std::thread writer = undisturbed([input] {
        const std::string description = readFile(TAVO_EXAMPLE ".a2l");
        const std::size_t piece = description.size() / 200 + 1;
        for (std::size_t i = 0; i < description.size(); i += piece) {
            usleep(3000);
            const std::string_view bytes = std::string_view(description).substr(i, piece);
            EXPECT_EQ(write(input, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
        }
        close(input);
    });
    std::string received;
    std::thread reader = undisturbed([&received, output] {
        char bytes[1024];
        while (!received.ends_with('\0')) {
            usleep(3000);
            const ssize_t count = read(output, bytes, sizeof bytes);
            received.append(bytes, static_cast<std::size_t>(count));
        }
    });
    testing::internal::CaptureStdout();
    std::int32_t result = TAVO_NOT_READ;
    {
        const Interruptions interruptions;
        result = tavoConvert("pipe.a2l", "pipe.ini");
    }
    testing::internal::GetCapturedStdout();
    EXPECT_EQ(write(output, "", 1), 1); // a zero byte, the end for the reader
    writer.join();
    reader.join();
    close(output);
    EXPECT_EQ(result, TAVO_OK);
    EXPECT_GT(Interruptions::count, 100);
    received.pop_back();
    EXPECT_TRUE(received == readFile(TAVO_EXAMPLE ".ini")) << received.size() << " bytes";
}

} // namespace
