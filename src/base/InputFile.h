#pragma once

#include <cstddef>

namespace tavo {

/// A file that is read once, from its first byte to its last. The reader has blocks of its own, so
/// a stream of the C library would only add to the work on a small file.
class InputFile
{
public:
    InputFile() = default;
    ~InputFile() { close(); }
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    /// Opens a file in place of the one that is open. The path isn't null. False, with `errno`, if
    /// the file can't be opened; a folder can be, and is told when it is read.
    bool open(const char* path);
    /// Does nothing without an open file.
    void close();
    bool isOpen() const { return descriptor_ >= 0; }

    /// Bytes of the open file, or 0 if they can't be told, as those of a pipe.
    std::size_t size() const;
    /// Reads up to `size` bytes from the open file. Fewer say that the file has ended: from then on
    /// there are none, even where a terminal would give more.
    std::size_t read(void* target, std::size_t size);
    /// The system's number of the error that ended the last file before its end, or 0.
    int error() const { return error_; }

private:
    int descriptor_ = -1;
    int error_ = 0;
    bool hasEnded_ = false;
};

} // namespace tavo
