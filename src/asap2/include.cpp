// The files that a description includes.

#include "asap2/Scanner.h"

#include "base/Notices.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <system_error>

namespace tavo {

namespace fs = std::filesystem;

namespace {

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

/// The keyword is in hand: goes on with the file that it names.
void Scanner::include()
{
    const Place begin = place();
    next_ += keywordLength(Keyword::Include);
    const std::string name = includedName(begin);
    if (!holdsInterfaceFormat(name))
        enter(name, begin);
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
    const fs::path path = inputs_.back()->path.parent_path() / fs::path(portable);
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
    if (!input->file.open(path.string()))
        fail(joined({"can't be opened: ", std::strerror(errno)}));
    suspend();
    fileNames_.push_back(path.string());
    start(std::move(input));
}

} // namespace tavo
