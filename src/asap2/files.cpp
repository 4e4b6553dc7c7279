// The files of a scanner: the description, what it includes, and the lines in them.

#include "asap2/Scanner.h"
#include "asap2/characters.h"
#include "base/Notices.h"
#include "base/countOf.h"
#include "base/paths.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <system_error>
#include <utility>

namespace tavo {

using namespace asap2;
namespace fs = std::filesystem;

namespace {

constexpr std::size_t readSize = 65536;
constexpr std::size_t deepest = 16;
/// Files that include each other in a tree would take for ever to read.
constexpr std::size_t mostFiles = 10000;

/// The format of interface blocks, of which nothing is read.
bool holdsInterfaceFormat(const fs::path& path)
{
    std::string extension = path.extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c; });
    return extension == ".aml" || extension == ".a2ml";
}

} // namespace

void Scanner::open(const std::string& path, SourceFile::Watch watch)
{
    auto input = std::make_unique<Input>();
    input->path = pathOf(path);
    if (!input->file.open(path))
        throw OpenFailure(errno);
    input->file.setWatch(std::move(watch));
    fileNames_.assign(1, path);
    start(std::move(input));
}

void Scanner::use(std::string_view description, const std::string& path)
{
    auto input = std::make_unique<Input>();
    input->path = path;
    input->file.use(description.data(), description.size());
    fileNames_.assign(1, path);
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
    countMarks();
    Input& input = *inputs_.back();
    input.next = next_;
    input.end = end_;
    input.counted = counted_;
    input.countedOffset = countedOffset_;
    input.line = line_;
    input.previous = previous_;
}

void Scanner::resume()
{
    const Input& input = *inputs_.back();
    next_ = input.next;
    end_ = input.end;
    counted_ = input.counted;
    countedOffset_ = input.countedOffset;
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
    countMarks();
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
    countMarks();
    countLines(first);
    const auto kept = static_cast<std::size_t>(end_ - first);
    const std::ptrdiff_t nextOffset = next_ - first;
    const std::ptrdiff_t countedOffset = counted_ - first;
    char* target = input.buffer.get();
    if (kept + readSize > input.capacity) {
        input.capacity = 2 * (kept + readSize);
        std::unique_ptr<char[]> larger(new char[input.capacity + padding]);
        std::memcpy(larger.get(), first, kept);
        input.buffer = std::move(larger);
        target = input.buffer.get();
    } else if (static_cast<std::size_t>(target + input.capacity - end_) >= readSize) {
        target += first - target; // there is room after what was read
    } else if (kept > 0) {
        std::memmove(target, first, kept);
    }
    next_ = target + nextOffset;
    counted_ = target + countedOffset;
    if (keep_)
        keep_ = target;
    const std::size_t count = input.file.read(target + kept, readSize);
    if (count == 0 && readError_ == 0)
        readError_ = input.file.readError();
    std::memset(target + kept + count, 0, padding);
    end_ = target + kept + count;
    return count > 0;
}

bool Scanner::readUpTo(std::size_t count)
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
    const char* const second = counted_ + 1;
    if (std::memchr(counted_, '\r', static_cast<std::size_t>(to - counted_)))
        line_ += countOf(second, to, [](const char* c) {
            return (*c == '\r') | ((*c == '\n') & (c[-1] != '\r'));
        });
    else
        line_ += countOf(second, to, [](const char* c) { return *c == '\n'; });
    previous_ = to[-1];
    countedOffset_ += static_cast<std::uint64_t>(to - counted_);
    counted_ = to;
}

/// Counts the lines of the marks that don't know theirs.
void Scanner::countMarks()
{
    for (; countedMarks_ < marks_.size(); ++countedMarks_) {
        Mark& mark = *marks_[countedMarks_];
        countLines(mark.position_);
        mark.place_ = countedPlace(mark.position_);
    }
}

/// The place of a character after all marks.
Place Scanner::placeAt(const char* position)
{
    countMarks();
    countLines(position);
    return countedPlace(position);
}

Place Scanner::place()
{
    const bool isEdited = token_ == Token::Text && text_.data() == edited_.data();
    return isEdited ? editedPlace_ : placeAt(keep_ ? keep_ : next_);
}

/// The keyword is in hand: goes on with the file that it names.
void Scanner::include()
{
    const Place begin = place();
    next_ += keywordLength(Keyword::Include);
    const std::string name = includedName(begin);
    if (holdsInterfaceFormat(name))
        return;
    try {
        enter(name, begin);
    } catch (const Fault& fault) {
        if (!includeSink_)
            throw;
        includeSink_(fault);
    }
}

/// The name after the keyword, in quotes or without. A backslash is one, and no escape.
std::string Scanner::includedName(Place place)
{
    skipBlanksAndComments();
    std::string name;
    if (next_ != end_ && *next_ == '"') {
        ++next_;
        for (; has(1) && *next_ != '"'; ++next_)
            name.push_back(*next_);
        if (next_ == end_)
            failAtEnd("Text", place);
        ++next_;
    } else if (next_ != end_ && !(*next_ == '/' && keyword() != Keyword::None)) {
        keep_ = next_;
        scanWord();
        name = text_;
    }
    if (name.empty())
        throw Fault(place, "'/include' without the name of a file");
    return name;
}

void Scanner::enter(const std::string& name, Place place)
{
    const auto fail = [&](const std::string& reason) -> void {
        throw Fault(place, joined({"The included file '", name, "' ", reason}));
    };
    std::string portable = name;
    std::replace(portable.begin(), portable.end(), '\\', '/');
    const fs::path path = inputs_.back()->path.parent_path() / pathOf(portable);
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (status.type() == fs::file_type::not_found || name.find('\0') != std::string::npos)
        fail("doesn't exist");
    if (error)
        fail(joined({"can't be opened: ", error.message()}));
    if (status.type() != fs::file_type::regular)
        fail("is no regular file");
    for (const auto& input : inputs_)
        if (fs::equivalent(input->path, path, error))
            fail("includes itself");
    if (inputs_.size() > deepest)
        fail(joined({"is nested deeper than ", std::to_string(deepest), " files"}));
    if (fileNames_.size() > mostFiles)
        fail(joined(
            {"is one too many: more than ", std::to_string(mostFiles), " files are included"}));
    auto input = std::make_unique<Input>();
    input->path = path;
    if (!input->file.open(nameOf(path)))
        fail(joined({"can't be opened: ", std::strerror(errno)}));
    suspend();
    fileNames_.push_back(nameOf(path));
    start(std::move(input));
}

} // namespace tavo
