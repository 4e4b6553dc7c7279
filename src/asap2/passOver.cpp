// What the scanner passes over unread.

#include "asap2/Scanner.h"
#include "asap2/characters.h"
#include "base/Notices.h"

#include <algorithm>
#include <cstring>

namespace tavo {

using namespace asap2;

/// Passes over a text of a block that is passed over; the opening quote is in hand.
void Scanner::skipText()
{
    const Mark begin(*this, next_++);
    for (;;) {
        next_ = textEnd(next_);
        if (next_ == end_) {
            if (more())
                continue;
            failAtEnd("Text", begin);
        }
        const char stop = *next_++;
        if (stop == '"')
            break; // A second quote begins another text, which makes no difference here.
        if (stop == '\\' && has(1))
            ++next_;
    }
}

void Scanner::skipBlock(std::string_view word, const Mark& begin, std::uint64_t depth)
{
    keep_ = nullptr;
    isPassingOver_ = true;
    while (depth > 0) {
        next_ = skipEnd(next_);
        if (*next_ == '"') {
            // Most texts are simple; `skipText` begins anew with what isn't.
            const char* const end = textEnd(next_ + 1);
            if (*end == '"')
                next_ = end + 1;
            else
                skipText();
        } else if (*next_ == '/') {
            if (startsComment()) {
                skipComment();
            } else {
                const Keyword found = keyword();
                next_ += std::max<std::size_t>(keywordLength(found), 1);
                depth = skipKeyword(found, depth);
            }
        } else if (next_ != end_) {
            ++next_;
        } else if (!more() && !leaveFile()) {
            failAtEnd(joined({"Block ", inQuotes(word)}), begin);
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
            skipA2ml(Mark(*this, next_));
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

void Scanner::skipA2ml(const Mark& begin)
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
        const Keyword found = keywordAt(next_);
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
