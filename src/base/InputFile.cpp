#include "base/InputFile.h"

#include "base/CancellationHold.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

#if defined(_WIN32)
#include <algorithm>
#include <climits>
#include <io.h>
#else
#include <unistd.h>
#endif

namespace tavo {

namespace {

// The calls of the system, which have other names on Windows. There a file is text unless it is
// opened as binary.
#if defined(_WIN32)
using Status = struct _stat64;
int openFile(const char* path) { return _open(path, _O_RDONLY | _O_BINARY); }
void closeFile(int file) { _close(file); }
bool getStatus(int file, Status& status) { return _fstat64(file, &status) == 0; }
std::ptrdiff_t readFile(int file, void* target, std::size_t size)
{
    return _read(file, target, static_cast<unsigned>(std::min<std::size_t>(size, INT_MAX)));
}
#else
using Status = struct stat;
int openFile(const char* path) { return ::open(path, O_RDONLY); }
void closeFile(int file) { ::close(file); }
bool getStatus(int file, Status& status) { return fstat(file, &status) == 0; }
std::ptrdiff_t readFile(int file, void* target, std::size_t size)
{
    return ::read(file, target, size);
}
#endif

} // namespace

bool InputFile::open(const char* path)
{
    close();
    error_ = 0;
    hasEnded_ = false;
    do {
        errno = 0;
        descriptor_ = openFile(path);
        // A signal interrupts the wait for the writer of a pipe.
    } while (!isOpen() && errno == EINTR);
    return isOpen();
}

void InputFile::close()
{
    if (!isOpen())
        return;
    const CancellationHold hold;
    closeFile(descriptor_);
    descriptor_ = -1;
}

std::size_t InputFile::size() const
{
    Status status = {};
    return getStatus(descriptor_, status) && S_ISREG(status.st_mode)
               ? static_cast<std::size_t>(status.st_size)
               : 0;
}

std::size_t InputFile::read(void* target, std::size_t size)
{
    std::size_t total = 0;
    while (total < size && !hasEnded_) {
        const std::ptrdiff_t count =
            readFile(descriptor_, static_cast<char*>(target) + total, size - total);
        if (count > 0)
            total += static_cast<std::size_t>(count);
        else if (count == 0 || errno != EINTR) { // a signal only interrupts
            error_ = count == 0 ? 0 : errno;
            hasEnded_ = true;
        }
    }
    return total;
}

} // namespace tavo
