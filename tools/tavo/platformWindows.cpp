// Windows, by its own functions where those of C don't do.

#include "platform.h"

#include "base/paths.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cwctype>
#include <fcntl.h>
#include <filesystem>
#include <io.h>
#include <process.h>
#include <system_error>
#include <windows.h>

// The runtime leaves wildcards alone: only the names of files have them.
extern "C" {
int _dowildcard = 0;
}

namespace tavo {

namespace fs = std::filesystem;

namespace {

/// What the handler of console events works on: the temporary file or null, and the processes of
/// the jobs. The system calls it in a thread of its own.
const char* temporaryFile = nullptr;
std::vector<HANDLE> children;
SRWLOCK lock = SRWLOCK_INIT;

/// Holds the lock for the length of a scope.
class Locked
{
public:
    Locked() { AcquireSRWLockExclusive(&lock); }
    ~Locked() { ReleaseSRWLockExclusive(&lock); }
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;
};

/// Takes the file along, at Ctrl-C for example, and lets the system end the process. The lock stays
/// held, so that until then no file and no process begins.
BOOL WINAPI endByEvent(DWORD)
{
    constexpr DWORD patience = 3000; // milliseconds; the system waits for five seconds
    AcquireSRWLockExclusive(&lock);
    if (temporaryFile)
        DeleteFileA(temporaryFile);
    // They have got the same event. They would end with this process, before their files are gone.
    if (!children.empty())
        WaitForMultipleObjects(static_cast<DWORD>(children.size()), children.data(), TRUE,
                               patience);
    return FALSE;
}

void handleEvents()
{
    static const BOOL once = SetConsoleCtrlHandler(endByEvent, TRUE);
    (void)once;
}

/// The number that C has for the system's last error.
int lastError()
{
    const std::error_code error(static_cast<int>(GetLastError()), std::system_category());
    return error.default_error_condition().value();
}

/// Whether a pattern with `*` and `?` describes the whole name. Case doesn't count.
bool matches(std::wstring_view pattern, std::wstring_view name)
{
    std::size_t p = 0;
    std::size_t n = 0;
    std::size_t star = std::wstring_view::npos; // the last one so far, and where its text ends
    std::size_t end = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            end = n;
        } else if (p < pattern.size() &&
                   (pattern[p] == '?' || std::towlower(pattern[p]) == std::towlower(name[n]))) {
            ++p;
            ++n;
        } else if (star != std::wstring_view::npos) {
            p = star + 1;
            n = ++end;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of(L'*', p) == std::wstring_view::npos;
}

/// A word of a command line as the runtime of the new process reads it back.
std::string quoted(const std::string& word)
{
    std::string text = "\"";
    std::size_t backslashes = 0;
    for (const char c : word) {
        if (c == '"') // Backslashes before a quote count twice.
            text.append(backslashes + 1, '\\');
        backslashes = c == '\\' ? backslashes + 1 : 0;
        text += c;
    }
    return text.append(backslashes, '\\') + '"';
}

/// The processes of one `runSideBySide`. They end with this one, whatever ends it.
class Crew
{
public:
    Crew(std::size_t count, std::size_t width)
        : results_(count),
          width_(std::clamp<std::size_t>(width, 1, MAXIMUM_WAIT_OBJECTS)),
          job_(CreateJobObjectA(nullptr, nullptr))
    {
        JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits = {};
        limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
        SetInformationJobObject(job_, JobObjectExtendedLimitInformation, &limits, sizeof limits);
    }
    ~Crew() { CloseHandle(job_); }
    Crew(const Crew&) = delete;
    Crew& operator=(const Crew&) = delete;

    /// Starts this program with these arguments. False if there is no place or no process.
    bool start(std::size_t number, const std::vector<std::string>& arguments)
    {
        if (children.size() == width_)
            return false;
        char path[32768];
        const DWORD length = GetModuleFileNameA(nullptr, path, sizeof path);
        std::string command = quoted(std::string(path, length));
        for (const std::string& argument : arguments)
            command.append(" ").append(quoted(argument));
        STARTUPINFOA how = {};
        how.cb = sizeof how;
        PROCESS_INFORMATION process = {};
        std::fflush(nullptr);
        const Locked locked;
        if (!CreateProcessA(path, command.data(), nullptr, nullptr, TRUE, CREATE_SUSPENDED, nullptr,
                            nullptr, &how, &process))
            return false;
        AssignProcessToJobObject(job_, process.hProcess);
        ResumeThread(process.hThread);
        CloseHandle(process.hThread);
        children.push_back(process.hProcess);
        numbers_.push_back(number);
        return true;
    }

    bool isIdle() const { return children.empty(); }

    /// Waits for any of them.
    void await()
    {
        const DWORD ended = WaitForMultipleObjects(static_cast<DWORD>(children.size()),
                                                   children.data(), FALSE, INFINITE);
        const Locked locked;
        const std::size_t place = ended < WAIT_OBJECT_0 + children.size() ? ended : 0;
        DWORD status = 0;
        GetExitCodeProcess(children[place], &status);
        CloseHandle(children[place]);
        // What isn't the program's own status is a crash.
        setResult(numbers_[place], status < 128 ? static_cast<int>(status) : -SIGABRT);
        children.erase(children.begin() + static_cast<std::ptrdiff_t>(place));
        numbers_.erase(numbers_.begin() + static_cast<std::ptrdiff_t>(place));
    }

    void setResult(std::size_t number, int result) { results_[number] = result; }
    const std::vector<int>& results() const { return results_; }

private:
    std::vector<int> results_;
    std::size_t width_;
    HANDLE job_;
    std::vector<std::size_t> numbers_; ///< Of the tasks, in the order of `children`.
};

} // namespace

bool isTerminal(std::FILE* file) { return _isatty(_fileno(file)) != 0; }

int seekTo(std::FILE* file, std::uint64_t offset)
{
    return _fseeki64(file, static_cast<long long>(offset), SEEK_SET);
}

void makeBinary(std::FILE* file) { _setmode(_fileno(file), _O_BINARY); }

unsigned long processNumber() { return static_cast<unsigned long>(_getpid()); }

std::FILE* createTemporaryFile(const char* path)
{
    handleEvents();
    const Locked locked;
    // It can be removed while it is open, which those of `_open` can't.
    HANDLE const handle = CreateFileA(path, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_DELETE,
                                      nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        errno = lastError();
        return nullptr;
    }
    const int descriptor =
        _open_osfhandle(reinterpret_cast<std::intptr_t>(handle), _O_WRONLY | _O_TEXT);
    if (descriptor < 0) { // too many files; `errno` says so
        CloseHandle(handle);
        DeleteFileA(path);
        return nullptr;
    }
    temporaryFile = path;
    return _fdopen(descriptor, "w");
}

void releaseTemporaryFile()
{
    const Locked locked;
    temporaryFile = nullptr;
}

std::FILE* openInPlace(const char* path, bool) { return std::fopen(path, "w"); }

int syncToDisk(std::FILE* file) { return _commit(_fileno(file)) == 0 ? 0 : errno; }

// A folder can't be opened here.
int syncFolder(const char*) { return 0; }

int moveOver(const char* from, const char* to)
{
    return MoveFileExA(from, to, MOVEFILE_REPLACE_EXISTING) ? 0 : lastError();
}

// `rename` replaces nothing on this system.
int moveToFreeName(const char* from, const char* to)
{
    return std::rename(from, to) == 0 ? 0 : errno;
}

// `tmpfile` wants to write to the root of the drive on this system.
std::FILE* createScratchFile()
{
    char* const path = _tempnam(nullptr, "tavo");
    std::FILE* const file = path ? std::fopen(path, "w+bTD") : nullptr;
    std::free(path);
    return file;
}

void prepareProcess()
{
    if (GetACP() != CP_UTF8) // before Windows 10 of 2019
        return;
    static const UINT former = GetConsoleOutputCP();
    if (former != 0 && SetConsoleOutputCP(CP_UTF8))
        std::atexit([] { SetConsoleOutputCP(former); });
}

std::vector<std::string> filesOf(std::vector<std::string> words)
{
    std::vector<std::string> files;
    for (const std::string& word : words) {
        const fs::path path = pathOf(word);
        const std::wstring pattern = path.filename().native();
        std::vector<std::string> found;
        std::error_code none;
        if (pattern.find_first_of(L"*?") != std::wstring::npos)
            for (const fs::directory_entry& entry : fs::directory_iterator(
                     path.has_parent_path() ? path.parent_path() : fs::path("."), none))
                if (!entry.is_directory(none) && matches(pattern, entry.path().filename().native()))
                    found.push_back(nameOf(path.parent_path() / entry.path().filename()));
        std::sort(found.begin(), found.end());
        if (found.empty())
            found.push_back(word);
        files.insert(files.end(), found.begin(), found.end());
    }
    return files;
}

bool isNullDevice(const std::string& path)
{
    return matches(L"nul", pathOf(path).filename().native());
}

std::vector<int> runSideBySide(std::size_t count, std::size_t width,
                               const std::function<int(std::size_t)>& task,
                               const CommandOf& commandOf)
{
    Crew crew(count, width);
    handleEvents();
    for (std::size_t next = 0; next < count || !crew.isIdle();) {
        if (next < count && crew.start(next, commandOf(next))) {
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
