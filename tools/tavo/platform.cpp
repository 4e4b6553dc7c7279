#include "platform.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>
#if defined(__linux__)
#include <sys/prctl.h>
#endif

namespace tavo {

namespace {

/// What the signal handler works on: the temporary file or null, and the processes of the jobs,
/// where 0 marks a free place.
std::atomic<const char*> temporaryFile = nullptr;
std::array<std::atomic<pid_t>, 256> children;

/// Takes the file and the children along. What it calls is allowed in a handler.
extern "C" void endBySignal(int number)
{
    if (const char* path = temporaryFile)
        unlink(path);
    for (const std::atomic<pid_t>& child : children)
        if (child != 0)
            kill(child, number);
    std::signal(number, SIG_DFL);
    std::raise(number);
}

/// What people, shells and limits end a process with. SIGKILL can't be handled.
constexpr int endingSignals[] = {SIGHUP,  SIGINT,  SIGQUIT, SIGTERM, SIGPIPE,
                                 SIGALRM, SIGUSR1, SIGUSR2, SIGXCPU};

void handleSignals()
{
    for (const int number : endingSignals) {
        // A signal that is ignored from the start, by nohup for example, stays ignored.
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
        const pid_t parent = getpid();
        const pid_t child = fork();
        if (child > 0)
            children[place] = child;
        else if (child == 0)
            becomeChildOf(parent);
        return child;
    }

    /// In the new process, while signals are held back.
    static void becomeChildOf(pid_t parent)
    {
        for (std::atomic<pid_t>& sibling : children)
            sibling = 0;
#if defined(__linux__)
        // The handler of the parent forwards signals, but nothing can handle SIGKILL.
        prctl(PR_SET_PDEATHSIG, SIGTERM);
        if (getppid() != parent)
            std::_Exit(1);
#else
        (void)parent;
#endif
    }

    std::vector<int> results_;
    std::vector<std::size_t> taskOf_; ///< By place.
    std::size_t running_ = 0;
};

} // namespace

bool isTerminal(std::FILE* file) { return isatty(fileno(file)) != 0; }

int seekTo(std::FILE* file, std::uint64_t offset)
{
    return fseeko(file, static_cast<off_t>(offset), SEEK_SET);
}

void makeBinary(std::FILE*) {}

unsigned long processNumber() { return static_cast<unsigned long>(getpid()); }

std::FILE* createTemporaryFile(const char* path)
{
    handleSignals();
    const SignalPause pause;
    std::FILE* const file = std::fopen(path, "wx");
    if (file)
        temporaryFile = path;
    return file;
}

void releaseTemporaryFile() { temporaryFile = nullptr; }

std::FILE* openInPlace(const char* path, bool mayEmpty)
{
    const int descriptor = open(path, O_WRONLY | O_NOCTTY | O_CLOEXEC);
    if (descriptor < 0)
        return nullptr;
    struct stat status = {};
    int error = fstat(descriptor, &status) == 0 ? 0 : errno;
    if (error == 0 && S_ISREG(status.st_mode)) {
        if (!mayEmpty)
            error = EEXIST;
        else if (ftruncate(descriptor, 0) != 0)
            error = errno;
    }
    if (error == 0)
        return fdopen(descriptor, "w");
    close(descriptor);
    errno = error;
    return nullptr;
}

int syncToDisk(std::FILE* file)
{
    // Some file systems have no such operation.
    return fsync(fileno(file)) == 0 || errno == EINVAL ? 0 : errno;
}

int syncFolder(const char* path)
{
    const int descriptor = open(path, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return 0; // It may be written to, but not read.
    const int error = fsync(descriptor) == 0 || errno == EINVAL ? 0 : errno;
    close(descriptor);
    return error;
}

int moveOver(const char* from, const char* to) { return std::rename(from, to) == 0 ? 0 : errno; }

int moveToFreeName(const char* from, const char* to)
{
    const SignalPause pause;
#if defined(RENAME_NOREPLACE)
    if (renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE) == 0)
        return 0;
    if (errno == EEXIST)
        return EEXIST;
#endif
    if (link(from, to) == 0)
        return unlink(from) == 0 ? 0 : errno;
    if (errno == EEXIST)
        return EEXIST;
    // The file system knows neither of them, as that of a shared folder of a virtual machine. An
    // empty file takes the name first.
    const int descriptor = open(to, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (descriptor < 0)
        return errno;
    close(descriptor);
    if (std::rename(from, to) == 0)
        return 0;
    const int error = errno;
    unlink(to);
    return error;
}

std::FILE* createScratchFile() { return std::tmpfile(); }

void prepareProcess() { std::signal(SIGXFSZ, SIG_IGN); }

// Shells expand wildcards on this system.
std::vector<std::string> filesOf(std::vector<std::string> words) { return words; }

bool isNullDevice(const std::string&) { return false; }

std::vector<int> runSideBySide(std::size_t count, std::size_t width,
                               const std::function<int(std::size_t)>& task, const CommandOf&)
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

} // namespace tavo
