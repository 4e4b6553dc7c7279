#pragma once

#include "a2l/NameEnds.h"
#include "a2l/characters.h"
#include "base/ByteGroup.h"
#include "base/InputFile.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string_view>
#include <utility>

namespace tavo {

/// The characters of a description, from a file or from memory, read in blocks. A CR LF pair
/// arrives as one LF on every platform; every other CR stays.
///
/// The end is told by the end mark, which is also what a byte of this value gives, wherever it
/// stands. After such a byte reading can go on; at the true end the mark comes again and again.
class SourceStream
{
public:
    /// Gets the bytes of the file that were read so far, after each block.
    using Watch = std::function<void(std::uint64_t bytesRead)>;

    SourceStream() = default;
    SourceStream(const SourceStream&) = delete;
    SourceStream& operator=(const SourceStream&) = delete;

    /// False if the file can't be opened for reading.
    bool open(const char* path);
    /// Reads from memory, which stays the caller's and outlives the reading.
    void openMemory(std::string_view text);
    void close();
    /// Bytes of the open source, or 0 if they can't be told, as those of a pipe. No character has
    /// been read yet.
    std::size_t size();
    /// The system's number of the error that ended the last file before its end, or 0. To the
    /// lexer such a file has ended like any other.
    int readError() const { return file_.error(); }
    void setWatch(Watch watch) { watch_ = std::move(watch); }

    /// The character in hand as an unsigned byte, or the end mark.
    int peek() { return *next_ != endMark || next_ != end_ ? *next_ : more(); }
    /// Goes on to the next character; not at the true end.
    void advance() { ++next_; }
    /// The character in hand, and on to the next one.
    int take()
    {
        const int character = peek();
        if (next_ != end_)
            ++next_;
        return character;
    }
    /// The character in hand, in a block that ends with an end mark.
    const unsigned char* position() const { return next_; }
    /// Goes on to a character of the block, or to its end.
    void goTo(const unsigned char* position) { next_ = position; }
    /// The first character of the block from `position` on that ends a name.
    const unsigned char* nameEnd(const unsigned char* position) const
    {
        const unsigned char* const block = block_.get();
        return block + nameEnds_.end(static_cast<std::size_t>(position - block));
    }
    /// The first character of the block from `position` on that `match` finds in its group of
    /// bytes. It finds an end mark.
    template <class Match>
    static const unsigned char* find(const unsigned char* position, Match match)
    {
        return reinterpret_cast<const unsigned char*>(
            searchNear(reinterpret_cast<const char*>(position), match));
    }
    /// Goes on to the first character that is in none of these classes, and gives it. For runs
    /// of a few characters.
    int skipFew(unsigned classes)
    {
        for (;;) {
            const unsigned char* character = next_;
            while (is(*character, classes))
                ++character;
            next_ = character;
            if (*character != endMark || character != end_)
                return *character;
            const int following = more();
            if (!is(following, classes))
                return following;
        }
    }
    /// Goes on to the first character with which no name goes on.
    void skipName()
    {
        skip([this](const unsigned char* position) { return nameEnd(position); });
    }
    /// Goes on to the first character that `match` finds, and gives it. It finds an end mark.
    template <class Match> int skipTo(Match match)
    {
        return skip([&](const unsigned char* position) { return find(position, match); });
    }

    /// The line of the last character that was taken, after `close` too.
    std::uint32_t line()
    {
        countLines(next_);
        return line_;
    }
    /// Remembers the line of the last character that was taken, for `markedLine`, until
    /// `unmarkLine`. In between nobody asks for another line.
    void markLine() { mark_ = next_; }
    void unmarkLine() { mark_ = nullptr; }
    std::uint32_t markedLine();
    /// Takes back that the last character was a line feed, if it was one.
    void forgetLineFeed();

    /// From here on the characters stay together in memory, for `text`.
    void beginText() { begin_ = next_; }
    void endText() { begin_ = nullptr; }
    /// The characters from `beginText` up to the one in hand. Valid until the file is read on.
    std::string_view text() const
    {
        return {reinterpret_cast<const char*>(begin_), static_cast<std::size_t>(next_ - begin_)};
    }

private:
    /// Goes on to the first character that `end` gives in its block.
    template <class End> int skip(End end)
    {
        for (;;) {
            next_ = end(next_);
            if (*next_ != endMark || next_ != end_ || (more() == endMark && next_ == end_))
                return *next_;
        }
    }

    void begin();
    int more();
    void findNames(std::size_t from);
    void countLines(const unsigned char* to);
    void makeRoom(std::size_t kept);
    std::size_t read(unsigned char* target);
    std::size_t fetch(unsigned char* target);

    InputFile file_;          ///< Not open while the characters come from memory.
    std::string_view memory_; ///< What is left to be read of it.
    Watch watch_;
    std::uint64_t bytesRead_ = 0;
    std::unique_ptr<unsigned char[]> block_;
    NameEnds nameEnds_;
    std::size_t capacity_ = 0;             ///< Of the block, without the end mark.
    const unsigned char* next_ = nullptr;  ///< The character in hand.
    const unsigned char* end_ = nullptr;   ///< After the last character; an end mark stands there.
    const unsigned char* begin_ = nullptr; ///< Of a text that must stay together, or null.
    const unsigned char* counted_ = nullptr; ///< The lines up to here are counted.
    std::uint32_t line_ = 1;                 ///< The line of `counted_`.
    const unsigned char* mark_ = nullptr;    ///< Where `markLine` was, while it is in the block.
    std::uint32_t markedLine_ = 0;           ///< Its line, once it is counted.
    bool heldBackCr_ = false; ///< The last read ended with a CR whose LF may open the next one.
};

} // namespace tavo
