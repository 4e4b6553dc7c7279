#include "NameSet.h"

#include "Diagnostics.h"
#include "Failure.h"
#include "asap2/SourceFile.h"
#include "base/Notices.h"
#include "base/paths.h"
#include "summary.h"
#include "text.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>

namespace tavo {

namespace {

constexpr const char* blanks = " \t\v\f\r";

/// The bytes of a list, in UTF-8 if it is UTF-16.
std::string contentOf(const std::string& path)
{
    std::error_code ignored;
    if (std::filesystem::is_directory(pathOf(path), ignored))
        throw systemFailure(path, EISDIR);
    SourceFile file;
    if (!file.open(path))
        throw systemFailure(path, errno);
    std::string content;
    char block[65536];
    for (std::size_t size; (size = file.read(block, sizeof block)) > 0;)
        content.append(block, size);
    if (file.readError() != 0)
        throw systemFailure(path, file.readError());
    return content;
}

std::string didYouMean(std::string_view nearest)
{
    return nearest.empty() ? "" : joined({"; did you mean ", inQuotes(nearest), "?"});
}

} // namespace

NameSet::NameSet(const std::vector<std::string>& patterns, const std::vector<std::string>& files,
                 PatternStyle style)
    : style_(style), files_(files)
{
    for (const std::string& pattern : patterns)
        patterns_.push_back({pattern, nameTest(pattern, style)});
    for (std::size_t file = 0; file < files.size(); ++file)
        read(file);
}

void NameSet::read(std::size_t file)
{
    const std::string content = contentOf(files_[file]);
    std::string_view rest = content;
    for (int number = 1; !rest.empty(); ++number) {
        const std::size_t end = rest.find_first_of("\r\n");
        addLine(rest.substr(0, end), file, number);
        if (end == std::string_view::npos)
            break;
        const bool isPair = rest.substr(end).starts_with("\r\n");
        rest.remove_prefix(end + (isPair ? 2 : 1));
    }
}

void NameSet::addLine(std::string_view line, std::size_t file, int number)
{
    const std::size_t begin = line.find_first_not_of(blanks);
    if (begin == std::string_view::npos)
        return;
    line.remove_prefix(begin);
    if (std::string_view(";#[").find(line.front()) != std::string_view::npos)
        return;
    std::string text = toUtf8(line.substr(0, line.find_first_of(" \t\v\f;")));
    const std::string key = style_.ignoresCase ? smallLetters(text) : text;
    if (numbers_.number(key) == names_.size())
        names_.push_back({std::move(text), file, number});
}

bool NameSet::contains(std::string_view name)
{
    bool isAsked = false;
    for (Pattern& pattern : patterns_)
        if ((!isAsked || !pattern.isFound) && pattern.test(name))
            pattern.isFound = isAsked = true;
    if (names_.empty())
        return isAsked;
    std::string changed;
    if (style_.ignoresCase)
        changed = smallLetters(name);
    else if (!isAscii(name))
        changed = toUtf8(name);
    const std::uint32_t number = numbers_.find(changed.empty() ? name : changed);
    if (number == NameTable::noName)
        return isAsked;
    names_[number].isFound = true;
    return true;
}

bool NameSet::isComplete() const
{
    const auto isFound = [](const auto& asked) { return asked.isFound; };
    return std::all_of(patterns_.begin(), patterns_.end(), isFound) &&
           std::all_of(names_.begin(), names_.end(), isFound);
}

void NameSet::forget()
{
    for (Pattern& pattern : patterns_)
        pattern.isFound = false;
    for (Name& name : names_)
        name.isFound = false;
}

void NameSet::reportMissing(Diagnostics& diagnostics, const std::string& description,
                            NearestName& nearest) const
{
    constexpr std::size_t mostShown = 10;
    for (const Pattern& pattern : patterns_) {
        if (pattern.isFound)
            continue;
        const bool isName =
            !style_.isRegex && pattern.text.find_first_of("*?") == std::string::npos;
        diagnostics.warnAbout(description,
                              joined({"No name matches ", inQuotes(pattern.text),
                                      isName ? didYouMean(nearest.to(pattern.text)) : ""}));
    }
    std::vector<std::size_t> counts(files_.size());
    const bool isVerbose = diagnostics.volume() == Volume::Verbose;
    for (const Name& name : names_)
        if (!name.isFound && (counts[name.file]++ < mostShown || isVerbose))
            diagnostics.warnAbout(joined({files_[name.file], ":", std::to_string(name.line)}),
                                  joined({inQuotes(name.text), " isn't in ", description,
                                          didYouMean(nearest.to(name.text))}));
    for (std::size_t file = 0; file < counts.size(); ++file)
        if (counts[file] > mostShown && !isVerbose)
            diagnostics.warnAbout(files_[file],
                                  joined({counted(counts[file] - mostShown, "more name"),
                                          " that aren't in ", description}));
}

} // namespace tavo
