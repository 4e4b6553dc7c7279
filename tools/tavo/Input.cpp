#include "Input.h"

#include "Diagnostics.h"
#include "Failure.h"
#include "Progress.h"
#include "base/paths.h"
#include "hints.h"
#include "platform.h"
#include "unpack.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

namespace tavo {

namespace fs = std::filesystem;

namespace {

bool isStandardInput(const std::string& file) { return file == "-" || file == "/dev/stdin"; }

struct Close
{
    void operator()(std::FILE* file) const
    {
        if (file != stdin)
            std::fclose(file);
    }
};
using File = std::unique_ptr<std::FILE, Close>;

File openFile(const std::string& path)
{
    if (isStandardInput(path)) {
        static bool isTaken = false;
        if (std::exchange(isTaken, true))
            throw Failure(ExitCode::Usage, "The standard input can be read only once");
        makeBinary(stdin);
        return File(stdin);
    }
    std::error_code ignored;
    if (fs::is_directory(pathOf(path), ignored))
        throw systemFailure(path, EISDIR);
    File file;
    do {
        errno = 0;
        file.reset(std::fopen(path.c_str(), "rb"));
    } while (!file && errno == EINTR); // a signal, while it waits for the writer of a pipe
    if (!file) {
        const int number = errno;
        const Failure failure = systemFailure(path, number);
        throw Failure(failure.exitCode(), failure.what(),
                      number == ENOENT ? hintForMissing(path) : "");
    }
    std::setvbuf(file.get(), nullptr, _IONBF, 0);
    return file;
}

/// Reads up to `size` bytes. Throws a `Failure` for an error.
std::size_t readFrom(std::FILE* file, char* target, std::size_t size, const std::string& name)
{
    for (;;) {
        errno = 0;
        const std::size_t count = std::fread(target, 1, size, file);
        if (count > 0 || std::ferror(file) == 0)
            return count;
        if (errno != EINTR)
            throw systemFailure(name, errno != 0 ? errno : EIO);
        std::clearerr(file);
    }
}

} // namespace

Input::Input(const std::string& file) : name_(displayName(file)) {}

std::shared_ptr<const Input> Input::open(const std::string& path, Diagnostics& diagnostics)
{
    const std::shared_ptr<Input> input(new Input(path));
    const File file = openFile(path);
    std::error_code ignored;
    const bool isPlain = !isStandardInput(path) && fs::is_regular_file(pathOf(path), ignored);
    if (isPlain) {
        char head[recognizedSize];
        const std::size_t size = readFrom(file.get(), head, sizeof head, input->name_);
        input->recognition_ = recognize({head, size});
        if (!canUnpack(input->recognition_.kind))
            return input;
        std::rewind(file.get());
    }
    input->load(file.get(), diagnostics);
    return input;
}

/// Brings the whole file to memory.
void Input::load(std::FILE* file, Diagnostics& diagnostics)
{
    Step loading(diagnostics, "loaded " + name_);
    constexpr std::size_t pieceSize = 65536;
    Progress progress(diagnostics.console(), name_);
    const bool isShown = diagnostics.showsProgress();
    while (const std::size_t count = readFrom(file, bytes_.room(pieceSize), pieceSize, name_)) {
        bytes_.add(count);
        if (bytes_.size() > mostInMemory)
            throw Failure(ExitCode::Trouble, name_ + ": is longer than " +
                                                 std::to_string(mostInMemory >> 20U) +
                                                 " MiB, which only a plain file may be");
        if (isShown)
            progress.advance(bytes_.size());
    }
    loading.finish();
    const auto head = [this] { return bytes_.view().substr(0, recognizedSize); };
    recognition_ = recognize(head());
    if (canUnpack(recognition_.kind)) {
        Step unpacking(diagnostics, "unpacked " + name_);
        bytes_ = unpack(recognition_.kind, bytes_.view(), mostUnpacked(bytes_.size()), name_);
        recognition_ = recognize(head());
        unpacking.finish();
    }
    memory_ = bytes_.view();
}

std::string displayName(const std::string& file)
{
    return isStandardInput(file) ? "<stdin>" : file;
}

bool isNameless(const std::string& file)
{
    const std::string path = nameOf(pathOf(file).lexically_normal());
    return isStandardInput(file) || path.starts_with("/dev/") || path.starts_with("/proc/");
}

} // namespace tavo
