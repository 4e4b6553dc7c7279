#pragma once

#include <string>
#include <string_view>

namespace tavo {

/// A pattern for names: `*` stands for any text, `?` for any one character, `[a-z_]` for one of a
/// set and `[!a-z]` for one outside of it; `\` takes the meaning away from what follows. A bracket
/// that is never closed matches itself.
class Glob
{
public:
    explicit Glob(std::string_view pattern);

    /// True if the pattern describes the whole name. Upper and lower case differ.
    bool matches(std::string_view name) const;

private:
    std::u32string pattern_;
};

} // namespace tavo
