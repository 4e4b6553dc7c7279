#include "Glob.h"

#include "text.h"

namespace tavo {

namespace {

constexpr std::size_t none = std::u32string_view::npos;

/// The place after the set that opens at `at`; `none` if it isn't closed.
std::size_t endOfSet(std::u32string_view pattern, std::size_t at)
{
    ++at;
    if (at < pattern.size() && (pattern[at] == U'!' || pattern[at] == U'^'))
        ++at;
    if (at < pattern.size() && pattern[at] == U']')
        ++at; // Right after the opening it is a member.
    for (; at < pattern.size() && pattern[at] != U']'; ++at)
        if (pattern[at] == U'\\')
            ++at;
    return at < pattern.size() ? at + 1 : none;
}

/// `set` is the text between the brackets.
bool isInSet(std::u32string_view set, char32_t character)
{
    const bool negated = !set.empty() && (set[0] == U'!' || set[0] == U'^');
    if (negated)
        set.remove_prefix(1);
    const auto takeMember = [&set] {
        if (set.size() > 1 && set[0] == U'\\')
            set.remove_prefix(1);
        const char32_t member = set[0];
        set.remove_prefix(1);
        return member;
    };
    bool found = false;
    while (!set.empty()) {
        const char32_t first = takeMember();
        char32_t last = first;
        if (set.size() > 1 && set[0] == U'-') {
            set.remove_prefix(1);
            last = takeMember();
        }
        found = found || (character >= first && character <= last);
    }
    return found != negated;
}

/// Compares one character with the piece of the pattern at `at`, which isn't a star. Returns the
/// place after that piece; `none` if they differ.
std::size_t matchOne(std::u32string_view pattern, std::size_t at, char32_t character)
{
    if (pattern[at] == U'?')
        return at + 1;
    if (pattern[at] == U'[') {
        const std::size_t end = endOfSet(pattern, at);
        if (end != none)
            return isInSet(pattern.substr(at + 1, end - at - 2), character) ? end : none;
    }
    if (pattern[at] == U'\\' && at + 1 < pattern.size())
        ++at;
    return pattern[at] == character ? at + 1 : none;
}

} // namespace

Glob::Glob(std::string_view pattern) : pattern_(characters(pattern)) {}

bool Glob::matches(std::string_view name) const
{
    const std::u32string text = characters(name);
    std::size_t at = 0;
    std::size_t star = none;  // After the last star.
    std::size_t starText = 0; // Where the text goes on if that star takes no more.
    for (std::size_t i = 0; i < text.size();) {
        if (at < pattern_.size() && pattern_[at] == U'*') {
            star = ++at;
            starText = i;
            continue;
        }
        const std::size_t next = at < pattern_.size() ? matchOne(pattern_, at, text[i]) : none;
        if (next != none) {
            at = next;
            ++i;
        } else if (star != none) {
            // One more character for the last star. The stars before have what they need.
            at = star;
            i = ++starText;
        } else {
            return false;
        }
    }
    return pattern_.find_first_not_of(U'*', at) == none;
}

} // namespace tavo
