#include "asap2/Scanner.h"

#include "base/Notices.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

namespace tavo {

namespace {

/// What ends a run of characters; a mask of these. A zero byte ends every run, because one stands
/// after the last character of the buffer.
enum CharacterClass : unsigned char
{
    Blank = 1,    ///< Separates tokens. The zero byte isn't in the class, though it is a blank.
    EndsWord = 2, ///< A blank, a quote, and a slash, which may begin a comment.
    EndsText = 4, ///< A quote, and what doesn't stand for itself in a text.
    EndsSkip = 8, ///< A quote and a slash: what counts in a block that is passed over.
    EndsComment = 16,
    EndsLine = 32
};

constexpr std::array<unsigned char, 256> makeClasses()
{
    std::array<unsigned char, 256> classes{};
    for (const char c : {' ', '\t', '\n', '\r', '\v', '\f', '\x1A'})
        classes[static_cast<unsigned char>(c)] |= Blank | EndsWord;
    classes[0] = EndsWord | EndsText | EndsSkip | EndsComment | EndsLine;
    classes['"'] |= EndsWord | EndsText | EndsSkip;
    classes['/'] |= EndsWord | EndsSkip;
    classes['\\'] |= EndsText;
    classes['\r'] |= EndsText | EndsLine;
    classes['\n'] |= EndsLine;
    classes['*'] |= EndsComment;
    return classes;
}

constexpr std::array<unsigned char, 256> classes = makeClasses();

bool is(char c, unsigned mask) { return (classes[static_cast<unsigned char>(c)] & mask) != 0; }

const char* runEnd(const char* position, unsigned ends)
{
    while (!is(*position, ends))
        ++position;
    return position;
}

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

constexpr std::size_t padding = 16; ///< Zero bytes after the last character of the buffer.
constexpr std::size_t readSize = 65536;
/// A keyword, the character after it, and a keyword that may follow at once.
constexpr std::size_t longestLook = 17;

} // namespace

void Scanner::open(const std::string& path, SourceFile::Watch watch)
{
    auto input = std::make_unique<Input>();
    input->path = path;
    if (!input->file.open(path))
        throw OpenFailure(errno);
    input->file.setWatch(std::move(watch));
    fileNames_.assign(1, path);
    start(std::move(input));
}

void Scanner::use(std::string_view description)
{
    auto input = std::make_unique<Input>();
    input->file.use(description.data(), description.size());
    fileNames_.assign(1, "");
    start(std::move(input));
}

void Scanner::start(std::unique_ptr<Input> input)
{
    input->capacity = 2 * readSize;
    input->buffer.reset(new char[input->capacity + padding]);
    std::memset(input->buffer.get(), 0, padding);
    input->next = input->end = input->counted = input->buffer.get();
    input->number = static_cast<std::uint32_t>(fileNames_.size() - 1);
    inputs_.push_back(std::move(input));
    resume();
}

void Scanner::suspend()
{
    Input& input = *inputs_.back();
    input.next = next_;
    input.end = end_;
    input.counted = counted_;
    input.line = line_;
    input.previous = previous_;
}

void Scanner::resume()
{
    const Input& input = *inputs_.back();
    next_ = input.next;
    end_ = input.end;
    counted_ = input.counted;
    line_ = input.line;
    previous_ = input.previous;
    keep_ = nullptr;
}

/// At the end of an included file: goes back to the including one. False at the end of all.
bool Scanner::leaveFile()
{
    if (inputs_.size() <= 1) {
        isAtEnd_ = true;
        return false;
    }
    inputs_.pop_back();
    resume();
    return true;
}

/// Reads on, keeping the characters from `keep_` or else from `next_`. False at the end of the
/// file.
bool Scanner::more()
{
    Input& input = *inputs_.back();
    const char* const first = keep_ ? keep_ : next_;
    if (mark_)
        markedPlace_ = placeAt(mark_);
    mark_ = nullptr;
    countLines(first);
    const auto kept = static_cast<std::size_t>(end_ - first);
    char* const head = input.buffer.get();
    char* target = head;
    if (kept + readSize > input.capacity) {
        const std::size_t capacity = 2 * (kept + readSize);
        std::unique_ptr<char[]> buffer(new char[capacity + padding]);
        std::memcpy(buffer.get(), first, kept);
        target = buffer.get();
        std::swap(input.buffer, buffer);
        input.capacity = capacity;
        counted_ = target + (counted_ - first);
        next_ = target + (next_ - first);
    } else if (static_cast<std::size_t>(head + input.capacity - end_) >= readSize) {
        target = head + (first - head); // there is room after what was read
    } else {
        if (kept > 0)
            std::memmove(head, first, kept);
        counted_ = head + (counted_ - first);
        next_ = head + (next_ - first);
    }
    if (keep_)
        keep_ = target;
    const std::size_t count = input.file.read(target + kept, readSize);
    if (count == 0 && readError_ == 0)
        readError_ = input.file.readError();
    std::memset(target + kept + count, 0, padding);
    end_ = target + kept + count;
    return count > 0;
}

/// True if the next characters are so many, the one in hand included.
bool Scanner::has(std::size_t count)
{
    while (static_cast<std::size_t>(end_ - next_) < count)
        if (!more())
            return false;
    return true;
}

/// Counts each line end up to `to`: a line feed, a carriage return, or both together.
void Scanner::countLines(const char* to)
{
    if (to <= counted_)
        return;
    line_ += *counted_ == '\r' || (*counted_ == '\n' && previous_ != '\r');
    // Sums of few enough lines to fit a byte, which the compiler adds sixteen at a time.
    constexpr std::ptrdiff_t most = 240;
    std::uint32_t count = 0;
    for (const char* c = counted_ + 1; c < to;) {
        const char* const last = c + std::min(most, to - c);
        unsigned char part = 0;
        for (; c < last; ++c)
            part = static_cast<unsigned char>(part +
                                              ((*c == '\r') | ((*c == '\n') & (c[-1] != '\r'))));
        count += part;
    }
    line_ += count;
    previous_ = to[-1];
    counted_ = to;
}

Place Scanner::placeAt(const char* position)
{
    countLines(position);
    return {inputs_.back()->number, line_};
}

Place Scanner::place()
{
    const bool isEdited = token_ == Token::Text && text_.data() == edited_.data();
    return isEdited ? editedPlace_ : placeAt(keep_ ? keep_ : next_);
}

void Scanner::failAtEnd(std::string_view what, Place begin)
{
    throw Fault(begin, joined({what, " without an end"}));
}

void Scanner::failAtOtherEnd(std::string_view word, Place begin)
{
    const bool isNamed = token_ == Token::Word;
    throw Fault(place(),
                joined({"'/end", isNamed ? " " : "", isNamed ? text_ : "", "' found in the block '",
                        word, "' of line ", std::to_string(begin.line)}));
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
            failAtEnd(joined({"Block '", word, "'"}), begin);
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
