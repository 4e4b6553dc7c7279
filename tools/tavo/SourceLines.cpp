#include "SourceLines.h"

#include "FileKind.h"
#include "Input.h"
#include "asap2/SourceFile.h"
#include "base/paths.h"
#include "platform.h"
#include "text.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <utility>

namespace tavo {

namespace {

/// More files than can include one another.
constexpr std::size_t mostSources = 20;
/// Bytes of a line before a word that are looked at for its column.
constexpr std::uint64_t longestPrefix = 65536;
constexpr std::size_t pieceSize = 65536;
/// Characters that an excerpt shows of a line, and those of them before the word.
constexpr std::size_t mostShown = 120;
constexpr std::size_t mostBefore = 60;
/// More bytes than that are not looked through for the beginnings of lines.
constexpr std::uint64_t mostSearched = std::uint64_t{1} << 32U;
constexpr const char* cut = "...";

bool isInside(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

/// Bytes of the first so many characters of a text in UTF-8.
std::size_t sizeOfFirst(std::string_view text, std::size_t count)
{
    std::size_t size = 0;
    while (size < text.size() && (isInside(text[size]) || count-- > 0))
        ++size;
    return size;
}

std::size_t length(std::string_view text)
{
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return !isInside(c); }));
}

bool endsWord(char c) { return c == ' ' || (c >= '\t' && c <= '\r') || c == 0 || c == '"'; }

/// The word or the text in quotes with which the rest of a line begins.
std::string_view firstWord(std::string_view rest)
{
    if (rest.empty())
        return rest;
    if (rest.front() == '"')
        return rest.substr(0, std::min(rest.find('"', 1), rest.size() - 1) + 1);
    const auto end = std::find_if(rest.begin() + 1, rest.end(), endsWord);
    return rest.substr(0, static_cast<std::size_t>(end - rest.begin()));
}

/// The place of the token that a message of the strict reader complains about, which doesn't say
/// where it is; npos unless it stands in the line just once.
std::size_t placeOfToken(std::string_view line, std::string_view message)
{
    constexpr std::string_view head = "Unexpected token '";
    const std::size_t end = message.rfind('\'');
    if (!message.starts_with(head) || end <= head.size())
        return std::string_view::npos;
    const std::string_view token = message.substr(head.size(), end - head.size());
    std::size_t place = std::string_view::npos;
    for (std::size_t at = 0; (at = line.find(token, at)) != std::string_view::npos; ++at) {
        const std::size_t after = at + token.size();
        const bool isWord =
            (at == 0 || endsWord(line[at - 1])) && (after == line.size() || endsWord(line[after]));
        if (isWord && place != std::string_view::npos)
            return std::string_view::npos;
        if (isWord)
            place = at;
    }
    return place;
}

} // namespace

/// One file, any part of which is there for the asking.
class SourceLines::Source
{
public:
    /// `memory` holds the bytes, if they aren't in the file.
    Source(const std::string& file, const std::optional<std::string_view>& memory,
           LineEnds lineEnds)
        : file_(file), lineEnds_(lineEnds)
    {
        std::error_code ignored;
        if (memory)
            memory_ = *memory;
        else if (std::filesystem::is_regular_file(pathOf(file), ignored))
            open_.reset(std::fopen(file.c_str(), "rb"));
        const std::string head = read(0, recognizedSize);
        if (recognize(head).kind == FileKind::WideText)
            decode();
        else if (head.starts_with("\xEF\xBB\xBF"))
            mark_ = 3;
    }

    const std::string& file() const { return file_; }
    /// The line with the byte at `offset`, as readers count the bytes.
    Excerpt around(std::uint64_t offset) const;
    /// The line of this number, from 1 on.
    Excerpt line(int number, std::string_view message);

private:
    struct Close
    {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };

    std::string read(std::uint64_t offset, std::size_t size) const;
    void decode();
    bool isEnd(char c) const { return c == '\n' || (c == '\r' && lineEnds_ == LineEnds::Any); }
    std::string_view firstLine(std::string_view text) const
    {
        const auto end =
            std::find_if(text.begin(), text.end(), [this](char c) { return isEnd(c); });
        return text.substr(0, static_cast<std::size_t>(end - text.begin()));
    }
    void find(int number);

    std::string file_;
    LineEnds lineEnds_;
    std::unique_ptr<std::FILE, Close> open_;
    std::string_view memory_; ///< Used if there is no open file.
    std::string decoded_;     ///< The file in UTF-8, if it is in UTF-16 or UTF-32.
    std::uint64_t mark_ = 0;  ///< Bytes of the file before the first that readers count.
    // A line whose beginning is known.
    int found_ = 1;
    std::uint64_t begin_ = 0;
    std::uint64_t searched_ = 0; ///< Bytes, to find it and the ones before it.
};

std::string SourceLines::Source::read(std::uint64_t offset, std::size_t size) const
{
    offset += mark_;
    if (!open_)
        return std::string(offset < memory_.size() ? memory_.substr(offset, size) : "");
    std::string piece(size, 0);
    if (seekTo(open_.get(), offset) != 0)
        return "";
    piece.resize(std::fread(piece.data(), 1, size, open_.get()));
    return piece;
}

void SourceLines::Source::decode()
{
    SourceFile source;
    if (open_) {
        open_.reset();
        if (!source.open(file_))
            return;
    } else {
        source.use(memory_.data(), memory_.size());
    }
    std::string piece(pieceSize, 0);
    while (const std::size_t count = source.read(piece.data(), piece.size()))
        decoded_.append(piece, 0, count);
    memory_ = decoded_;
}

namespace {

/// The part of a line around the word with which `rest` begins. `isWhole` if the line begins with
/// `before`.
Excerpt excerptOf(std::string_view before, std::string_view rest, bool isWhole)
{
    Excerpt excerpt;
    const std::string_view word = firstWord(rest);
    if (isWhole) {
        excerpt.column = static_cast<unsigned>(characters(before).size()) + 1;
        before.remove_prefix(std::min(before.find_first_not_of(" \t"), before.size()));
    }
    // Bytes that make no more than the characters that are shown.
    const std::size_t most = 4 * mostShown;
    bool isCut = !isWhole || before.size() > most;
    if (before.size() > most)
        before.remove_prefix(before.size() - most);
    excerpt.line = printable(before);
    const std::size_t count = length(excerpt.line);
    isCut = isCut || count > mostBefore;
    if (isCut) {
        const std::size_t gone = count > mostBefore ? count - mostBefore : 0;
        excerpt.line.replace(0, sizeOfFirst(excerpt.line, gone), cut);
    }
    excerpt.indent = length(excerpt.line);
    excerpt.width = std::max<std::size_t>(length(printable(word.substr(0, most))), 1);
    rest = rest.substr(0, rest.find_last_not_of(" \t\r") + 1);
    std::string shown = printable(rest.substr(0, most));
    const std::size_t room = mostShown - excerpt.indent;
    if (rest.size() > most || length(shown) > room)
        shown.replace(sizeOfFirst(shown, room), std::string::npos, cut);
    excerpt.width = std::min(excerpt.width, std::max<std::size_t>(length(shown), 1));
    excerpt.line += shown;
    return excerpt;
}

} // namespace

Excerpt SourceLines::Source::around(std::uint64_t offset) const
{
    const std::uint64_t first = offset > longestPrefix ? offset - longestPrefix : 0;
    const std::string text = read(first, pieceSize + static_cast<std::size_t>(offset - first));
    const auto place = static_cast<std::size_t>(offset - first);
    if (place > text.size())
        return {};
    std::size_t begin = place;
    while (begin > 0 && !isEnd(text[begin - 1]))
        --begin;
    const std::string_view view = text;
    return excerptOf(view.substr(begin, place - begin), firstLine(view.substr(place)),
                     begin > 0 || first == 0);
}

/// Looks for the beginning of the line, from where the last one was found.
void SourceLines::Source::find(int number)
{
    if (number < found_) {
        found_ = 1;
        begin_ = 0;
    }
    std::uint64_t offset = begin_;
    while (found_ < number && searched_ < mostSearched) {
        const std::string text = read(offset, pieceSize);
        if (text.empty())
            return;
        for (std::size_t i = 0; i < text.size() && found_ < number; ++i) {
            if (!isEnd(text[i]))
                continue;
            // Of two, the second one ends the line.
            const bool isPair =
                text[i] == '\r' &&
                (i + 1 < text.size() ? text.substr(i + 1, 1) : read(offset + i + 1, 1)) == "\n";
            if (isPair)
                continue;
            ++found_;
            begin_ = offset + i + 1;
        }
        offset += text.size();
        searched_ += text.size();
    }
}

Excerpt SourceLines::Source::line(int number, std::string_view message)
{
    find(number);
    if (found_ != number)
        return {};
    const std::string text = read(begin_, pieceSize);
    const std::string_view whole = firstLine(text);
    const std::size_t place = placeOfToken(whole, message);
    if (place != std::string_view::npos)
        return excerptOf(whole.substr(0, place), whole.substr(place), true);
    const std::size_t begin = std::min(whole.find_first_not_of(" \t"), whole.size());
    Excerpt excerpt = excerptOf(whole.substr(0, begin), whole.substr(begin), true);
    excerpt.width = 0;
    excerpt.column = 0;
    return excerpt;
}

SourceLines::SourceLines() = default;
SourceLines::~SourceLines() = default;

void SourceLines::setSource(std::shared_ptr<const Input> input, LineEnds lineEnds)
{
    input_ = std::move(input);
    lineEnds_ = lineEnds;
    sources_.clear();
}

SourceLines::Source& SourceLines::sourceOf(const std::string& file)
{
    const auto found = std::find_if(sources_.begin(), sources_.end(),
                                    [&](const auto& source) { return source->file() == file; });
    if (found == sources_.end()) {
        if (sources_.size() == mostSources)
            sources_.erase(sources_.begin());
        const bool isMain = input_ && input_->name() == file;
        sources_.push_back(
            std::make_unique<Source>(file, isMain ? input_->memory() : std::nullopt, lineEnds_));
    } else {
        std::rotate(found, found + 1, sources_.end());
    }
    return *sources_.back();
}

Excerpt SourceLines::excerpt(const Diagnostic& diagnostic)
{
    if (diagnostic.line <= 0)
        return {};
    Source& source = sourceOf(diagnostic.file);
    if (diagnostic.offset != noOffset)
        return source.around(diagnostic.offset);
    return source.line(diagnostic.line, diagnostic.text);
}

} // namespace tavo
