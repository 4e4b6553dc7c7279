#pragma once

#include <cstddef>
#include <cstdio>
#include <memory>

namespace tavo {

/// The characters of a description file, read in blocks. A CR LF pair arrives as one LF on every
/// platform; every other CR stays.
///
/// The end of the file is told by the end mark, which is also what a byte of this value gives,
/// wherever it stands in the file. Behind such a byte reading can go on; at the true end the mark
/// comes again and again.
class SourceStream
{
public:
    static constexpr int endMark = 0xFF;

    SourceStream() = default;
    ~SourceStream() { close(); }
    SourceStream(const SourceStream&) = delete;
    SourceStream& operator=(const SourceStream&) = delete;

    /// False if the file can't be opened for reading.
    bool open(const char* path);
    void close();

    /// The next character as an unsigned byte, or the end mark.
    int get()
    {
        const int character = *next_++;
        return character != endMark || next_ <= end_ ? character : refill();
    }

    /// Puts the character that `get` has just given back, so that it comes again. Not twice.
    void putBack() { --next_; }

    /// What is at hand without reading on: the characters from `next` on, up to an end mark. The
    /// mark is either a character or the place where `get` reads the next block.
    const unsigned char* next() const { return next_; }
    /// Goes on to `position`, which lies between `next` and the next end mark.
    void skipTo(const unsigned char* position) { next_ = position; }

private:
    int refill();
    std::size_t readBlock();

    std::FILE* file_ = nullptr;
    std::unique_ptr<unsigned char[]> block_;
    const unsigned char* next_ = nullptr;
    const unsigned char* end_ = nullptr; ///< Behind the last character; an end mark stands there.
    bool heldBackCr_ = false; ///< The last block ended with a CR whose LF may open the next one.
};

} // namespace tavo
