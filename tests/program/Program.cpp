#include "Program.h"

#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// Both ends of a way on which the program writes to the test.
struct Channel
{
    int reading = -1;
    int writing = -1;
};

Channel makeChannel(bool terminal)
{
    Channel channel;
    if (terminal) {
        EXPECT_EQ(openpty(&channel.reading, &channel.writing, nullptr, nullptr, nullptr), 0);
    } else {
        int ends[2] = {-1, -1};
        EXPECT_EQ(pipe(ends), 0);
        channel = {ends[0], ends[1]};
    }
    // What the program starts must not keep the reading end open.
    fcntl(channel.reading, F_SETFD, FD_CLOEXEC);
    return channel;
}

[[noreturn]] void becomeProgram(const std::vector<std::string>& arguments, const Setting& setting)
{
    if (!setting.folder.empty() && chdir(setting.folder.c_str()) != 0)
        std::_Exit(99);
    if (!setting.standardOutput.empty())
        dup2(open(setting.standardOutput.c_str(), O_WRONLY), STDOUT_FILENO);
    if (setting.fileSizeLimit > 0) {
        const auto limit = static_cast<rlim_t>(setting.fileSizeLimit);
        const rlimit limits = {limit, limit};
        setrlimit(RLIMIT_FSIZE, &limits);
        std::signal(SIGXFSZ, SIG_IGN);
    }
    unsetenv("NO_COLOR");
    setenv("TERM", "xterm", 1);
    for (const std::string& variable : setting.environment)
        putenv(const_cast<char*>(variable.c_str()));
    std::vector<char*> words = {const_cast<char*>("tavo")};
    for (const std::string& argument : arguments)
        words.push_back(const_cast<char*>(argument.c_str()));
    words.push_back(nullptr);
    execv(TAVO_PROGRAM, words.data());
    std::_Exit(99);
}

/// What comes on two ways until both have ended. A terminal ends with an error.
void readAll(int first, std::string& firstText, int second, std::string& secondText)
{
    std::array<pollfd, 2> ways = {pollfd{first, POLLIN, 0}, pollfd{second, POLLIN, 0}};
    std::array<std::string*, 2> texts = {&firstText, &secondText};
    while (ways[0].fd >= 0 || ways[1].fd >= 0) {
        ASSERT_GT(poll(ways.data(), ways.size(), 60000), 0) << "the program doesn't end";
        for (std::size_t i = 0; i < ways.size(); ++i) {
            if (ways[i].revents == 0)
                continue;
            std::array<char, 65536> buffer;
            const ssize_t size = read(ways[i].fd, buffer.data(), buffer.size());
            if (size > 0)
                texts[i]->append(buffer.data(), static_cast<std::size_t>(size));
            else
                ways[i].fd = -1;
        }
    }
}

} // namespace

RunningProgram::RunningProgram(const std::vector<std::string>& arguments, const Setting& setting)
{
    const Channel out = makeChannel(false);
    const Channel err = makeChannel(setting.onTerminal);
    process_ = fork();
    if (process_ == 0) {
        dup2(out.writing, STDOUT_FILENO);
        dup2(err.writing, STDERR_FILENO);
        close(out.writing);
        close(err.writing);
        becomeProgram(arguments, setting);
    }
    close(out.writing);
    close(err.writing);
    out_ = out.reading;
    err_ = err.reading;
}

RunningProgram::~RunningProgram()
{
    close(out_);
    close(err_);
    if (process_ > 0) {
        kill(process_, SIGKILL);
        waitpid(process_, nullptr, 0);
    }
}

void RunningProgram::sendSignal(int number) const
{
    ASSERT_GT(process_, 0);
    kill(process_, number);
}

ProgramRun RunningProgram::finish()
{
    ProgramRun run;
    readAll(out_, run.out, err_, run.err);
    int status = 0;
    waitpid(process_, &status, 0);
    process_ = 0;
    run.exitCode = WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status);
    return run;
}

ProgramRun run(const std::vector<std::string>& arguments, const Setting& setting)
{
    return RunningProgram(arguments, setting).finish();
}
