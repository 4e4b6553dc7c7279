#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace tavo {

/// How the patterns of a command line are read.
struct PatternStyle
{
    bool isRegex = false; ///< Regular expressions, for any part of a name; else see `Glob`.
    bool ignoresCase = false;
};

/// Says whether a pattern describes a name, which is bytes of a description, in linear time.
using NameTest = std::function<bool(std::string_view name)>;

/// Throws a `Failure` for a regular expression that is wrong, or if this build knows none.
NameTest nameTest(const std::string& pattern, PatternStyle style);

} // namespace tavo
