#include "asap2/Scanner.h"

#include "asap2/characters.h"
#include "base/Notices.h"

#include <array>
#include <bit>
#include <cstring>

namespace tavo {

using namespace asap2;

void Scanner::failAtEnd(std::string_view what, Place begin)
{
    throw Fault(begin, joined({what, " without an end"}));
}

void Scanner::failAtOtherEnd(std::string_view word, const Mark& begin)
{
    const std::string end = token_ == Token::Word ? joined({"/end ", text_}) : "/end";
    throw Fault(place(), joined({inQuotes(end), " found in the block ", inQuotes(word), " of line ",
                                 std::to_string(begin.place().line)}));
}

namespace {

/// Eight characters as a number: those of a keyword, and zeros after them.
constexpr std::uint64_t eight(const std::array<char, 8>& characters)
{
    return std::bit_cast<std::uint64_t>(characters);
}

constexpr std::uint64_t lowerCase = eight({' ', ' ', ' ', ' ', ' ', ' ', ' ', ' '});
constexpr std::uint64_t firstFour = eight({'\xFF', '\xFF', '\xFF', '\xFF'});
constexpr std::uint64_t firstSix = eight({'\xFF', '\xFF', '\xFF', '\xFF', '\xFF', '\xFF'});

} // namespace

/// The keyword that begins at a slash, in any case of letters, whatever comes after it. The zero
/// bytes after the buffer belong to none.
Scanner::Keyword Scanner::keywordAt(const char* position)
{
    std::uint64_t characters = 0;
    std::memcpy(&characters, position, sizeof characters);
    characters |= lowerCase;
    if ((characters & firstFour) == eight({'/', 'e', 'n', 'd'}))
        return Keyword::End;
    if ((characters & firstSix) == eight({'/', 'b', 'e', 'g', 'i', 'n'}))
        return Keyword::Begin;
    const bool isInclude = characters == eight({'/', 'i', 'n', 'c', 'l', 'u', 'd', 'e'});
    return isInclude ? Keyword::Include : Keyword::None;
}

/// The keyword that the slash in hand begins: it is a word of its own, or the next one follows at
/// once.
Scanner::Keyword Scanner::keyword()
{
    has(longestLook);
    const Keyword found = keywordAt(next_);
    if (found == Keyword::None)
        return found;
    const char* const after = next_ + keywordLength(found);
    if (*after != '/')
        return is(*after, EndsWord) ? found : Keyword::None;
    const bool isFollowed = after[1] == '*' || after[1] == '/' || keywordAt(after) != Keyword::None;
    return isFollowed ? found : Keyword::None;
}

/// Skips blanks from a zero byte on, which is one, too, unless the file ends there.
void Scanner::skipZeros()
{
    while (*next_ == 0) {
        if (next_ != end_)
            ++next_;
        else if (!more())
            return;
        next_ = blanksEnd(next_);
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
    const Mark begin(*this, next_);
    const bool isLine = next_[1] == '/';
    next_ += 2;
    const char* position = next_; // what is before it doesn't end the comment
    for (;;) {
        position = isLine ? lineEnd(position) : slashOf(position);
        if (position == end_) {
            // A star may be the last character of the buffer.
            const std::ptrdiff_t kept = position > next_ ? 1 : 0;
            next_ = position - kept;
            const bool isRead = more();
            position = next_ + kept;
            if (isRead)
                continue;
            if (!isLine)
                failAtEnd("Comment", begin);
            break;
        }
        if (*position != 0 && (isLine || (position > next_ && position[-1] == '*')))
            break;
        ++position;
    }
    next_ = isLine ? position : position + 1;
}

void Scanner::advance()
{
    next_ = blanksEnd(next_);
    keep_ = next_;
    if (is(*next_, EndsWord))
        return *next_ == '"' ? scanText() : advanceToOther();
    scanWord();
}

/// What may be no word is in hand.
void Scanner::advanceToOther()
{
    for (;;) {
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

/// Something else than a blank is in hand: it ends the word, or doesn't.
void Scanner::finishWord()
{
    for (;;) {
        if (next_ == end_) {
            if (!more())
                break;
        } else if (*next_ != '/' || startsComment() || keyword() != Keyword::None) {
            break;
        } else {
            ++next_;
        }
        next_ = wordEnd(next_);
    }
    text_ = {keep_, static_cast<std::size_t>(next_ - keep_)};
}

/// The opening quote is in hand, and `keep_` stands there.
void Scanner::scanText()
{
    token_ = Token::Text;
    next_ = textEnd(next_ + 1);
    // A second quote may follow, and only the true end of the file is a zero byte after a quote.
    if (*next_ != '"' || next_[1] == '"' || next_ + 1 == end_)
        return finishText();
    text_ = {keep_ + 1, static_cast<std::size_t>(next_ - keep_ - 1)};
    ++next_;
}

/// What may be no simple text, up to the character in hand.
void Scanner::finishText()
{
    while (next_ == end_) {
        if (!more())
            failAtEnd("Text", placeAt(keep_));
        next_ = textEnd(next_);
    }
    const bool isQuote = *next_ == '"';
    if (isQuote && !(has(2) && next_[1] == '"')) {
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
        next_ = textEnd(next_);
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
