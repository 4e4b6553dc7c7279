// What the scanner passes over unread.

#include "asap2/Scanner.h"
#include "asap2/characters.h"
#include "base/Notices.h"

#include <algorithm>
#include <cstring>

namespace tavo {

using namespace asap2;

namespace {

/// The first quote, slash or zero byte, which is what counts in a block that is passed over. Reads
/// up to `padding` bytes after that.
const char* skipEnd(const char* position)
{
    using Bytes = unsigned char __attribute__((vector_size(16)));
    using Halves = std::uint64_t __attribute__((vector_size(16)));
    for (;; position += sizeof(Bytes)) {
        Bytes bytes;
        std::memcpy(&bytes, position, sizeof bytes);
        const auto ends = reinterpret_cast<Halves>((bytes == '"') | (bytes == '/') | (bytes == 0));
        if ((ends[0] | ends[1]) != 0)
            return runEnd(position, EndsSkip);
    }
}

} // namespace

/// Passes over a text of a block that is passed over; the opening quote is in hand.
void Scanner::skipText()
{
    mark_ = next_++;
    for (;;) {
        next_ = runEnd(next_, EndsText);
        if (next_ == end_) {
            if (more())
                continue;
            failAtEnd("Text", markedPlace());
        }
        const char stop = *next_++;
        if (stop == '"')
            break; // A second quote begins another text, which makes no difference here.
        if (stop == '\\' && has(1))
            ++next_;
    }
    mark_ = nullptr;
}

void Scanner::skipBlock(std::string_view word, Place begin, std::uint64_t depth)
{
    keep_ = nullptr;
    isPassingOver_ = true;
    while (depth > 0) {
        next_ = skipEnd(next_);
        if (next_ == end_) {
            if (more() || leaveFile())
                continue;
            failAtEnd(joined({"Block ", inQuotes(word)}), begin);
        }
        if (*next_ == '"') {
            skipText();
        } else if (*next_ != '/') {
            ++next_;
        } else if (startsComment()) {
            skipComment();
        } else {
            const Keyword found = keyword();
            next_ += std::max<std::size_t>(keywordLength(found), 1);
            depth = skipKeyword(found, depth);
        }
    }
    advance();
    isPassingOver_ = false;
    if (!isWord(word))
        failAtOtherEnd(word, begin);
    advance();
}

/// What a keyword means to the number of blocks that are open; it has just been passed over.
std::uint64_t Scanner::skipKeyword(Keyword keyword, std::uint64_t depth)
{
    switch (keyword) {
    case Keyword::None:
        return depth;
    case Keyword::End:
        return depth - 1;
    case Keyword::Begin:
        skipBlanks();
        if (has(5) && std::string_view(next_, 4) == "A2ML" && (is(next_[4], Blank) || !next_[4])) {
            skipA2ml(placeAt(next_));
            // The current token is the one after the block: it is looked at once more.
            next_ = keep_ ? keep_ : next_;
            keep_ = nullptr;
            return depth;
        }
        return depth + 1;
    case Keyword::Include: // of a file that isn't opened; no character in its quotes is an escape
        skipBlanks();
        if (next_ == end_ || *next_ != '"')
            return depth;
        ++next_;
        while (has(1) && *next_ != '"')
            ++next_;
        next_ += next_ != end_ ? 1 : 0;
        return depth;
    }
    return depth;
}

void Scanner::skipA2ml(Place begin)
{
    keep_ = nullptr;
    for (;;) {
        const void* slash = std::memchr(next_, '/', static_cast<std::size_t>(end_ - next_));
        next_ = slash ? static_cast<const char*>(slash) : end_;
        if (next_ == end_) {
            if (more() || leaveFile())
                continue;
            failAtEnd("Block 'A2ML'", begin);
        }
        has(longestLook);
        const Keyword found = keywordAt(next_, end_);
        ++next_;
        if (found != Keyword::End)
            continue;
        next_ += keywordLength(found) - 1;
        if (!is(*next_, Blank) && *next_ != 0 && *next_ != '/')
            continue;
        skipBlanksAndComments();
        has(longestLook);
        const bool isEnd =
            std::string_view(next_, static_cast<std::size_t>(end_ - next_)).starts_with("A2ML") &&
            is(next_[4], EndsWord);
        if (isEnd)
            break;
    }
    next_ += 4;
    advance();
}

} // namespace tavo
