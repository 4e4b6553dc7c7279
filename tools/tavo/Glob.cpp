#include "Glob.h"

#include "text.h"

namespace tavo {

Glob::Glob(std::string_view pattern, bool ignoresCase)
    : pattern_(characters(ignoresCase ? smallLetters(pattern) : std::string(pattern))),
      ignoresCase_(ignoresCase)
{
}

bool Glob::matches(std::string_view name) const
{
    return isAscii(name) ? matchesText(name) : matchesText(characters(name));
}

template <class Text> bool Glob::matchesText(const Text& text) const
{
    constexpr std::size_t none = std::u32string::npos;
    std::size_t at = 0;
    std::size_t star = none;  // After the last star.
    std::size_t starText = 0; // Where the text goes on if that star takes no more.
    for (std::size_t i = 0; i < text.size();) {
        if (at < pattern_.size() && pattern_[at] == U'*') {
            star = ++at;
            starText = i;
            continue;
        }
        const auto character = static_cast<char32_t>(text[i]);
        const bool isSame = at < pattern_.size() &&
                            (pattern_[at] == U'?' ||
                             pattern_[at] == (ignoresCase_ ? smallLetter(character) : character));
        if (isSame) {
            ++at;
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
