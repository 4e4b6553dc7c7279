#include "a2l/SourceStream.h"

#include "base/ByteGroup.h"
#include "base/countOf.h"

#include <algorithm>
#include <cstring>

namespace tavo {

namespace {

constexpr std::size_t readSize = 65536;

/// Makes each CR LF pair one LF. Gives the new end.
unsigned char* foldLineEnds(unsigned char* first, unsigned char* last)
{
    auto* target = static_cast<unsigned char*>(
        std::memchr(first, '\r', static_cast<std::size_t>(last - first)));
    if (!target)
        return last;
    const unsigned char* source = target;
    while (source != last) {
        // A CR, and what follows up to the next one; it stays unless a LF is next.
        const auto* next = static_cast<const unsigned char*>(
            std::memchr(source + 1, '\r', static_cast<std::size_t>(last - source - 1)));
        if (!next)
            next = last;
        if (source + 1 != next && source[1] == '\n')
            ++source;
        const auto size = static_cast<std::size_t>(next - source);
        std::memmove(target, source, size);
        target += size;
        source = next;
    }
    return target;
}

} // namespace

bool SourceStream::open(const char* path)
{
    close();
    line_ = 1;
    if (!file_.open(path))
        return false;
    begin();
    return true;
}

void SourceStream::openMemory(std::string_view text)
{
    close();
    memory_ = text;
    begin();
}

void SourceStream::begin()
{
    makeRoom(0);
    bytesRead_ = 0;
    heldBackCr_ = false;
    begin_ = nullptr;
    next_ = end_ = counted_ = block_.get();
    mark_ = nullptr;
    line_ = 1;
    block_[0] = endMark;
    findNames(0);
}

void SourceStream::close()
{
    file_.close();
    memory_ = {};
    countLines(next_); // for `line`, which may be asked for later
    next_ = end_ = counted_ = mark_ = nullptr;
    block_.reset();
    capacity_ = 0;
}

std::size_t SourceStream::size() { return file_.isOpen() ? file_.size() : memory_.size(); }

/// Makes sure that the block takes another read after `kept` characters, which go to its head.
void SourceStream::makeRoom(std::size_t kept)
{
    const std::size_t needed = kept + 1 + readSize; // with a CR that was held back
    if (needed <= capacity_) {
        if (kept > 0)
            std::memmove(block_.get(), begin_, kept);
        return;
    }
    const std::size_t capacity = std::max(needed, 2 * capacity_);
    const std::size_t groups = capacity / NameEnds::groupSize + 1;
    std::unique_ptr<unsigned char[]> block(
        new unsigned char[groups * NameEnds::groupSize + ByteGroup::size]);
    if (kept > 0)
        std::memcpy(block.get(), begin_, kept);
    nameEnds_.resize(groups);
    block_ = std::move(block);
    capacity_ = capacity;
}

/// Called at the end of the block: reads on, keeping a text that has begun. Gives the character
/// that is in hand then.
int SourceStream::more()
{
    if (mark_)
        markedLine();
    countLines(end_);
    const std::size_t kept = begin_ ? static_cast<std::size_t>(end_ - begin_) : 0;
    makeRoom(kept);
    unsigned char* const head = block_.get();
    unsigned char* const after = head + kept + read(head + kept);
    *after = endMark;
    if (begin_)
        begin_ = head;
    next_ = counted_ = head + kept;
    end_ = after;
    findNames(kept);
    return *next_;
}

/// Finds the ends of the names from a character of the block on.
void SourceStream::findNames(std::size_t from)
{
    const auto size = static_cast<std::size_t>(end_ - block_.get()) + 1;
    const std::size_t groups = (size + NameEnds::groupSize - 1) / NameEnds::groupSize;
    std::memset(block_.get() + size, 0, groups * NameEnds::groupSize + ByteGroup::size - size);
    nameEnds_.find(block_.get(), from / NameEnds::groupSize, groups);
}

/// Up to `to`, which isn't before what is counted.
void SourceStream::countLines(const unsigned char* to)
{
    line_ += countOf(counted_, to, [](const unsigned char* c) { return *c == '\n'; });
    counted_ = to;
}

std::uint32_t SourceStream::markedLine()
{
    if (mark_) {
        countLines(mark_);
        markedLine_ = line_;
        mark_ = nullptr;
    }
    return markedLine_;
}

void SourceStream::forgetLineFeed() { line_ -= next_[-1] == '\n'; }

/// Gets the next bytes of the source. 0 at its end.
std::size_t SourceStream::fetch(unsigned char* target)
{
    if (file_.isOpen())
        return file_.read(target, readSize);
    const std::size_t count = memory_.copy(reinterpret_cast<char*>(target), readSize);
    memory_.remove_prefix(count);
    return count;
}

/// Reads the next characters, line ends folded. 0 at the end of the source.
std::size_t SourceStream::read(unsigned char* target)
{
    std::size_t size = 0;
    while (size == 0) {
        if (heldBackCr_)
            target[size++] = '\r';
        const std::size_t count = fetch(target + size);
        if (count == 0) {
            heldBackCr_ = false;
            return size;
        }
        bytesRead_ += count;
        if (watch_)
            watch_(bytesRead_);
        size += count;
        heldBackCr_ = target[size - 1] == '\r';
        if (heldBackCr_)
            --size;
    }
    return static_cast<std::size_t>(foldLineEnds(target, target + size) - target);
}

} // namespace tavo
