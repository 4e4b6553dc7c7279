#include "Host.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>

namespace {

constexpr rlim_t stackBytes = 256 * 1024;
/// Linear passes take a few seconds, also under the sanitizers; quadratic ones take hours.
constexpr rlim_t processorSeconds = 60;

/// Exceeding the soft limit of processor time raises SIGXCPU, which shows what went wrong.
void setLimit(int resource, rlim_t value)
{
    const rlimit limit = {value, value + 1};
    setrlimit(static_cast<__rlimit_resource>(resource), &limit);
}

} // namespace

bool isFull()
{
    const char* full = std::getenv("TAVO_HOSTILE_FULL");
    return full && std::strcmp(full, "1") == 0;
}

void Host::start(const std::string& input, const std::string& output)
{
    process_ = fork();
    ASSERT_GE(process_, 0);
    if (process_ > 0)
        return;
    std::signal(SIGPIPE, SIG_DFL);
    setLimit(RLIMIT_STACK, stackBytes);
    setLimit(RLIMIT_CPU, processorSeconds);
    setLimit(RLIMIT_CORE, 0);
    redirect(STDOUT_FILENO, "/dev/null", O_WRONLY);
    prepare();
    execl(program, program, input.c_str(), output.c_str(), nullptr);
    _exit(127);
}

/// Opens a named pipe for writing once the host reads it; -1 if the host ends before.
int Host::openPipe(const std::string& path)
{
    int pipe = -1;
    siginfo_t end = {};
    while ((pipe = open(path.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC)) < 0 && errno == ENXIO &&
           end.si_pid == 0) {
        usleep(1000);
        waitid(P_PID, static_cast<id_t>(process_), &end, WEXITED | WNOHANG | WNOWAIT);
    }
    if (pipe >= 0)
        fcntl(pipe, F_SETFL, 0);
    return pipe;
}

Ending Host::wait()
{
    int status = 0;
    rusage usage = {};
    while (wait4(process_, &status, 0, &usage) < 0 && errno == EINTR) {
    }
    Ending ending;
    ending.peakBytes = usage.ru_maxrss * 1024;
    if (WIFEXITED(status))
        ending.status = WEXITSTATUS(status);
    else
        ending.signal = WTERMSIG(status);
    return ending;
}

Ending Host::run(const std::string& input, const std::string& output)
{
    start(input, output);
    return wait();
}

Ending Host::runPiped(const std::string& input, const std::string& output,
                      const std::function<void(std::FILE*)>& write)
{
    EXPECT_EQ(mkfifo(input.c_str(), 0600), 0);
    std::signal(SIGPIPE, SIG_IGN); // the host may end before all is written
    start(input, output);
    const int pipe = openPipe(input);
    if (pipe >= 0) {
        std::FILE* file = fdopen(pipe, "wb");
        write(file);
        std::fclose(file);
    }
    return wait();
}

void redirect(int descriptor, const char* path, int flags)
{
    const int file = open(path, flags, 0600);
    if (file < 0 || dup2(file, descriptor) < 0)
        _exit(126);
    close(file);
}
