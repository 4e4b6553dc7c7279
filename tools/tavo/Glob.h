#pragma once

#include <string>
#include <string_view>

namespace tavo {

/// A pattern for names: `*` stands for any text, `?` for any one character, and everything else for
/// itself, because names are full of brackets.
class Glob
{
public:
    /// With `ignoresCase`, capital and small letters are the same.
    explicit Glob(std::string_view pattern, bool ignoresCase = false);

    /// True if the pattern describes the whole name. The time is at most that of both lengths
    /// multiplied.
    bool matches(std::string_view name) const;

private:
    template <class Text> bool matchesText(const Text& text) const;

    std::u32string pattern_;
    bool ignoresCase_;
};

} // namespace tavo
