#include "platform.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>

#if defined(_WIN32)
#include <fcntl.h>
#include <io.h>
#include <process.h>
#include <sys/stat.h>
#else
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace tavo {

#if defined(_WIN32)

bool isTerminal(std::FILE* file) { return _isatty(_fileno(file)) != 0; }

unsigned long processNumber() { return static_cast<unsigned long>(_getpid()); }

std::FILE* createNewFile(const char* path)
{
    const int descriptor =
        _open(path, _O_CREAT | _O_EXCL | _O_WRONLY | _O_TEXT, _S_IREAD | _S_IWRITE);
    return descriptor < 0 ? nullptr : _fdopen(descriptor, "w");
}

int syncToDisk(std::FILE* file) { return _commit(_fileno(file)) == 0 ? 0 : errno; }

void removeOnSignal(const char*) {}

std::vector<int> runSideBySide(std::size_t count, std::size_t,
                               const std::function<int(std::size_t)>& task)
{
    std::vector<int> results;
    for (std::size_t i = 0; i < count; ++i)
        results.push_back(task(i));
    return results;
}

#else

namespace {

/// What the signal handler works on. 0 marks a free place among the children.
std::atomic<const char*> fileToRemove = nullptr;
std::array<std::atomic<pid_t>, 256> children;

/// Takes the file and the children along. What it calls is allowed in a handler.
extern "C" void endBySignal(int number)
{
    if (const char* path = fileToRemove)
        unlink(path);
    for (const std::atomic<pid_t>& child : children)
        if (child != 0)
            kill(child, number);
    std::signal(number, SIG_DFL);
    std::raise(number);
}

constexpr int endingSignals[] = {SIGINT, SIGTERM, SIGHUP};

void handleSignals()
{
    for (const int number : endingSignals) {
        // A signal that the program was told to ignore, by nohup for example, stays ignored.
        struct sigaction former = {};
        if (sigaction(number, nullptr, &former) == 0 && former.sa_handler == SIG_DFL)
            std::signal(number, endBySignal);
    }
}

/// Holds the signals back for the length of a scope.
class SignalPause
{
public:
    SignalPause()
    {
        sigset_t signals;
        sigemptyset(&signals);
        for (const int number : endingSignals)
            sigaddset(&signals, number);
        sigprocmask(SIG_BLOCK, &signals, &former_);
    }
    ~SignalPause() { sigprocmask(SIG_SETMASK, &former_, nullptr); }
    SignalPause(const SignalPause&) = delete;
    SignalPause& operator=(const SignalPause&) = delete;

private:
    sigset_t former_;
};

/// The processes of one `runSideBySide`, each in a place of `children`.
class Crew
{
public:
    Crew(std::size_t count, std::size_t width)
        : results_(count), taskOf_(std::min(width, children.size()))
    {
    }

    /// Starts the task in a free place. False if there's none or no process can be had.
    bool start(std::size_t number, const std::function<int(std::size_t)>& task)
    {
        std::size_t place = 0;
        while (place < taskOf_.size() && children[place] != 0)
            ++place;
        if (place == taskOf_.size())
            return false;
        const pid_t child = startAt(place);
        if (child == 0) {
            const int result = task(number);
            std::fflush(nullptr);
            std::_Exit(result); // What the parent has to tidy up isn't the child's matter.
        }
        if (child < 0)
            return false;
        taskOf_[place] = number;
        ++running_;
        return true;
    }

    bool isIdle() const { return running_ == 0; }

    /// Waits for any of them.
    void await()
    {
        int status = 0;
        const pid_t child = waitpid(-1, &status, 0);
        for (std::size_t place = 0; place < taskOf_.size(); ++place) {
            if (child <= 0 || children[place] != child)
                continue;
            children[place] = 0;
            --running_;
            setResult(taskOf_[place],
                      WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status));
        }
    }

    void setResult(std::size_t number, int result) { results_[number] = result; }
    const std::vector<int>& results() const { return results_; }

private:
    /// Copies this process. The result is that of `fork`.
    static pid_t startAt(std::size_t place)
    {
        std::fflush(nullptr); // Else the child would write it a second time.
        const SignalPause pause;
        const pid_t child = fork();
        if (child > 0)
            children[place] = child;
        else if (child == 0)
            for (std::atomic<pid_t>& sibling : children)
                sibling = 0;
        return child;
    }

    std::vector<int> results_;
    std::vector<std::size_t> taskOf_; ///< By place.
    std::size_t running_ = 0;
};

} // namespace

bool isTerminal(std::FILE* file) { return isatty(fileno(file)) != 0; }

unsigned long processNumber() { return static_cast<unsigned long>(getpid()); }

std::FILE* createNewFile(const char* path) { return std::fopen(path, "wx"); }

int syncToDisk(std::FILE* file)
{
    // Some file systems have no such operation.
    return fsync(fileno(file)) == 0 || errno == EINVAL ? 0 : errno;
}

void removeOnSignal(const char* path)
{
    fileToRemove = path;
    handleSignals();
}

std::vector<int> runSideBySide(std::size_t count, std::size_t width,
                               const std::function<int(std::size_t)>& task)
{
    Crew crew(count, width);
    handleSignals();
    std::signal(SIGCHLD, SIG_DFL); // Who ignores it gets no results.
    for (std::size_t next = 0; next < count || !crew.isIdle();) {
        if (next < count && crew.start(next, task)) {
            ++next;
        } else if (!crew.isIdle()) {
            crew.await();
        } else {
            // Not one process can be had.
            crew.setResult(next, task(next));
            ++next;
        }
    }
    return crew.results();
}

#endif

} // namespace tavo
