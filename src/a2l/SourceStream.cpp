#include "a2l/SourceStream.h"

#include <cstring>

namespace tavo {

namespace {

constexpr std::size_t blockSize = 65536;

} // namespace

bool SourceStream::open(const char* path)
{
    close();
    // A CR that was held back, a block, and the end mark.
    block_.reset(new unsigned char[1 + blockSize + 1]);
    // The line ends are folded here and not by the C library, which does it on some platforms only.
    file_ = std::fopen(path, "rb");
    if (!file_)
        return false;
    std::setvbuf(file_, nullptr, _IONBF, 0);
    heldBackCr_ = false;
    next_ = end_ = block_.get();
    block_[0] = endMark;
    return true;
}

void SourceStream::close()
{
    if (file_)
        std::fclose(file_);
    file_ = nullptr;
    block_.reset();
}

/// Called once `get` has run into the end mark behind the block.
int SourceStream::refill()
{
    const std::size_t size = readBlock();
    block_[size] = endMark;
    if (size == 0)
        block_[1] = endMark; // For a `get` behind the one that found the end.
    next_ = block_.get();
    end_ = next_ + size;
    return *next_++;
}

/// Fills the block with the next characters of the file, line ends folded. 0 at the end of the
/// file.
std::size_t SourceStream::readBlock()
{
    unsigned char* const block = block_.get();
    std::size_t size = 0;
    while (size == 0) {
        if (heldBackCr_)
            block[size++] = '\r';
        const std::size_t read = std::fread(block + size, 1, blockSize, file_);
        if (read == 0) {
            heldBackCr_ = false;
            return size;
        }
        size += read;
        heldBackCr_ = block[size - 1] == '\r';
        if (heldBackCr_)
            --size;
    }
    const auto* cr = static_cast<const unsigned char*>(std::memchr(block, '\r', size));
    if (!cr)
        return size;
    unsigned char* target = block + (cr - block);
    for (const unsigned char* source = target; source != block + size; ++source)
        if (*source != '\r' || source + 1 == block + size || source[1] != '\n')
            *target++ = *source;
    return static_cast<std::size_t>(target - block);
}

} // namespace tavo
