#include "Program.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <pty.h>
#include <sstream>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// All that comes, up to the end. A terminal ends with an error.
std::string readAll(int descriptor)
{
    std::string text;
    char buffer[4096];
    for (ssize_t size; (size = read(descriptor, buffer, sizeof buffer)) > 0;)
        text.append(buffer, static_cast<std::size_t>(size));
    close(descriptor);
    return text;
}

} // namespace

std::string ProgramTest::names(const std::string& folder) const
{
    std::vector<std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(path(folder)))
        found.push_back(entry.path().filename().string());
    std::sort(found.begin(), found.end());
    std::string text;
    for (const std::string& name : found)
        text.append(name).append(" ");
    return text;
}

ProgramRun ProgramTest::tavo(const std::string& words,
                             const std::function<void(pid_t)>& meanwhile) const
{
    std::FILE* const out = std::tmpfile();
    int err[2] = {-1, -1}; // The end for reading, and the one for writing.
    const int made = onTerminal_ ? openpty(&err[0], &err[1], nullptr, nullptr, nullptr) : pipe(err);
    if (!out || made != 0 || fcntl(err[0], F_SETFD, FD_CLOEXEC) != 0)
        throw std::runtime_error("no way for the output");
    const pid_t process = fork();
    if (process == 0) {
        dup2(fileno(out), STDOUT_FILENO);
        dup2(err[1], STDERR_FILENO);
        close(err[1]);
        becomeProgram(words);
    }
    close(err[1]);
    if (meanwhile)
        meanwhile(process);
    ProgramRun run;
    run.err = readAll(err[0]);
    int status = 0;
    waitpid(process, &status, 0);
    run.exitCode = WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status);
    std::rewind(out);
    run.out = readAll(dup(fileno(out)));
    std::fclose(out);
    return run;
}

void ProgramTest::becomeProgram(const std::string& words) const
{
    if (chdir(path("").c_str()) != 0)
        std::_Exit(99);
    if (!standardInput_.empty())
        dup2(open(path(standardInput_).c_str(), O_RDONLY), STDIN_FILENO);
    if (!standardOutput_.empty())
        dup2(open(standardOutput_.c_str(), O_WRONLY), STDOUT_FILENO);
    if (fileSizeLimit_ > 0) {
        const rlimit limits = {fileSizeLimit_, fileSizeLimit_};
        setrlimit(RLIMIT_FSIZE, &limits);
    }
    const rlimit noCore = {0, 0};
    setrlimit(RLIMIT_CORE, &noCore);
    // Who started the tests may have them ignored.
    for (const int number : {SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGPIPE, SIGXFSZ})
        std::signal(number, SIG_DFL);
    unsetenv("NO_COLOR");
    unsetenv("CLICOLOR_FORCE");
    setenv("TERM", "xterm", 1);
    for (const std::string& variable : environment_)
        putenv(const_cast<char*>(variable.c_str()));
    std::istringstream stream("tavo " + words);
    std::vector<std::string> split{std::istream_iterator<std::string>(stream), {}};
    std::vector<char*> arguments;
    for (std::string& word : split)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    execv(TAVO_PROGRAM, arguments.data());
    std::_Exit(99);
}
