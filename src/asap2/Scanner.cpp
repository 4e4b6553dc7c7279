#include "asap2/Scanner.h"

#include "asap2/characters.h"
#include "base/Notices.h"

#include <algorithm>

namespace tavo {

using namespace asap2;

void Scanner::failAtEnd(std::string_view what, Place begin)
{
    throw Fault(begin, joined({what, " without an end"}));
}

void Scanner::failAtOtherEnd(std::string_view word, Place begin)
{
    const std::string end = token_ == Token::Word ? joined({"/end ", text_}) : "/end";
    throw Fault(place(), joined({inQuotes(end), " found in the block ", inQuotes(word), " of line ",
                                 std::to_string(begin.line)}));
}

/// True if the slash in hand begins a comment.
bool Scanner::startsComment() { return has(2) && (next_[1] == '*' || next_[1] == '/'); }

std::size_t Scanner::keywordLength(Keyword keyword)
{
    constexpr std::size_t lengths[] = {0, 6, 4, 8};
    return lengths[static_cast<std::size_t>(keyword)];
}

/// The keyword that begins at a slash, in any case of letters, whatever comes after it.
Scanner::Keyword Scanner::keywordAt(const char* position, const char* end)
{
    const auto matches = [&](std::string_view word) {
        if (static_cast<std::size_t>(end - position) < word.size())
            return false;
        return std::equal(word.begin() + 1, word.end(), position + 1,
                          [](char lower, char c) { return (c | 0x20) == lower; });
    };
    if (matches("/end"))
        return Keyword::End;
    if (matches("/begin"))
        return Keyword::Begin;
    return matches("/include") ? Keyword::Include : Keyword::None;
}

/// The keyword that the slash in hand begins: it is a word of its own, or the next one follows at
/// once.
Scanner::Keyword Scanner::keyword()
{
    has(longestLook);
    const Keyword found = keywordAt(next_, end_);
    if (found == Keyword::None)
        return found;
    const char* const after = next_ + keywordLength(found);
    if (after == end_ || *after == '"' || is(*after, Blank) || *after == 0)
        return found;
    const bool isFollowed =
        *after == '/' && (after[1] == '*' || after[1] == '/' || // the zero byte at the end is safe
                          keywordAt(after, end_) != Keyword::None);
    return isFollowed ? found : Keyword::None;
}

/// Goes on to the first character that is no blank, or to the end of the file.
void Scanner::skipBlanks()
{
    for (;;) {
        while (is(*next_, Blank))
            ++next_;
        if (*next_ != 0)
            return;
        if (next_ != end_)
            ++next_;
        else if (!more())
            return;
    }
}

void Scanner::skipBlanksAndComments()
{
    keep_ = nullptr;
    for (skipBlanks(); next_ != end_ && *next_ == '/' && startsComment(); skipBlanks())
        skipComment();
}

/// The slash that begins the comment is in hand.
void Scanner::skipComment()
{
    mark_ = next_;
    const bool isLine = next_[1] == '/';
    next_ += 2;
    for (;;) {
        next_ = runEnd(next_, isLine ? EndsLine : EndsComment);
        if (next_ == end_) {
            if (more())
                continue;
            if (isLine)
                break;
            failAtEnd("Comment", markedPlace());
        }
        if (isLine && *next_ != 0)
            break;
        ++next_;
        if (!isLine && next_[-1] == '*' && has(1) && *next_ == '/') {
            ++next_;
            break;
        }
    }
    mark_ = nullptr;
}

void Scanner::advance()
{
    for (;;) {
        while (is(*next_, Blank))
            ++next_;
        if (*next_ == 0 || *next_ == '/')
            skipBlanksAndComments();
        if (next_ == end_) {
            if (leaveFile())
                continue;
            text_ = {};
            token_ = Token::FileEnd;
            return;
        }
        keep_ = next_;
        if (*next_ == '"')
            return scanText();
        if (*next_ != '/')
            return scanWord();
        const Keyword found = keyword();
        if (found == Keyword::None || (found == Keyword::Include && isPassingOver_))
            return scanWord();
        if (found == Keyword::Include) {
            include();
            continue;
        }
        text_ = {};
        token_ = found == Keyword::Begin ? Token::Begin : Token::End;
        next_ += keywordLength(found);
        return;
    }
}

void Scanner::scanWord()
{
    token_ = Token::Word;
    ++next_;
    for (;;) {
        next_ = runEnd(next_, EndsWord);
        if (next_ == end_) {
            if (more())
                continue;
            break;
        }
        if (*next_ != '/' || startsComment() || keyword() != Keyword::None)
            break;
        ++next_;
    }
    text_ = {keep_, static_cast<std::size_t>(next_ - keep_)};
}

/// The opening quote is in hand.
void Scanner::scanText()
{
    token_ = Token::Text;
    ++next_;
    for (;;) {
        next_ = runEnd(next_, EndsText);
        if (next_ == end_) {
            if (more())
                continue;
            failAtEnd("Text", placeAt(keep_));
        }
        const bool isQuote = *next_ == '"';
        if (!isQuote || (has(2) && next_[1] == '"'))
            break;
        text_ = {keep_ + 1, static_cast<std::size_t>(next_ - keep_ - 1)};
        ++next_;
        return;
    }
    editedPlace_ = placeAt(keep_);
    edited_.assign(keep_ + 1, next_);
    keep_ = nullptr;
    scanEditedText();
}

/// The rest of a text that isn't what stands in the file; `edited_` holds what is before the
/// character in hand.
void Scanner::scanEditedText()
{
    bool isKept = true; // up to the first zero byte
    const auto append = [&](const char* first, const char* last) {
        if (isKept)
            edited_.append(std::string_view(first, static_cast<std::size_t>(last - first)));
    };
    for (;;) {
        const char* const first = next_;
        next_ = runEnd(next_, EndsText);
        append(first, next_);
        if (next_ == end_) {
            if (more())
                continue;
            failAtEnd("Text", editedPlace_);
        }
        if (*next_ == '\\') {
            ++next_;
            if (!has(1))
                continue;
            if (*next_ != '\r' && *next_ != 0) {
                append(next_, next_ + 1);
                ++next_;
            }
        } else if (*next_ == '"') {
            const bool isDoubled = has(2) && next_[1] == '"';
            if (!isDoubled)
                break;
            append(next_, next_ + 1);
            next_ += 2;
        } else if (*next_ == '\r') { // which goes if a line feed follows
            if (!(has(2) && next_[1] == '\n'))
                append(next_, next_ + 1);
            ++next_;
        } else {
            isKept = false;
            ++next_;
        }
    }
    ++next_;
    text_ = edited_;
}

} // namespace tavo
