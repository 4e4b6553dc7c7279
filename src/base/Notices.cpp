#include "base/Notices.h"

namespace tavo {

namespace {

/// Kinds beyond these, which a hostile description could have by the million, are one.
constexpr std::size_t mostKinds = 200;
constexpr std::string_view furtherKinds = "Further warnings of other kinds";

} // namespace

Notices::Kind Notices::kind(std::string_view text)
{
    auto found = numbers_.find(text);
    if (found == numbers_.end() && kinds_.size() >= mostKinds) {
        text = furtherKinds;
        found = numbers_.find(text);
    }
    if (found == numbers_.end()) {
        found = numbers_.emplace(text, kinds_.size()).first;
        kinds_.emplace_back().text = text;
    }
    return found->second;
}

void Notices::add(Kind kind, Place place, std::string_view subject, std::uint64_t count)
{
    if (count == 0)
        return;
    Summary& summary = kinds_[kind];
    if (summary.count == 0) {
        summary.firstSubject = subject;
        summary.firstPlace = place;
    }
    summary.count += count;
    count_ += count;
    if (eachCase_)
        eachCase_(place,
                  subject.empty() ? summary.text : summary.text + ": " + std::string(subject));
}

void Notices::report(const Sink& sink) const
{
    for (const Summary& kind : kinds_) {
        if (kind.count == 0)
            continue;
        std::string text = kind.text;
        const std::string times = std::to_string(kind.count) + " times";
        if (!kind.firstSubject.empty())
            text += ": " + (kind.count > 1 ? times + ", first " : "") + kind.firstSubject;
        else if (kind.count > 1)
            text += " (" + times + ")";
        sink(kind.firstPlace, text);
    }
}

std::string joined(std::initializer_list<std::string_view> parts)
{
    std::string text;
    for (const std::string_view part : parts)
        text.append(part);
    return text;
}

std::string inQuotes(std::string_view word)
{
    constexpr std::size_t most = 100;
    return joined({"'", word.substr(0, most), word.size() > most ? "...'" : "'"});
}

} // namespace tavo
