#include "Pattern.h"

#include "Failure.h"
#include "Glob.h"
#include "text.h"

#ifdef TAVO_HAS_RE2
#include <memory>
#include <re2/re2.h>
#endif

namespace tavo {

namespace {

#ifdef TAVO_HAS_RE2

NameTest regexTest(const std::string& pattern, bool ignoresCase)
{
    RE2::Options options;
    options.set_log_errors(false);
    options.set_case_sensitive(!ignoresCase);
    const auto regex = std::make_shared<RE2>(toUtf8(pattern), options);
    if (!regex->ok())
        throw Failure(ExitCode::Usage,
                      "'" + pattern + "' is no regular expression: " + regex->error());
    return [regex](std::string_view name) {
        const std::string text = isAscii(name) ? std::string() : toUtf8(name);
        const std::string_view used = isAscii(name) ? name : std::string_view(text);
        return RE2::PartialMatch({used.data(), used.size()}, *regex);
    };
}

#else

NameTest regexTest(const std::string&, bool)
{
    throw Failure(ExitCode::Usage, "This build of tavo knows no regular expressions",
                  "build it with the library RE2 (libre2-dev)");
}

#endif

} // namespace

NameTest nameTest(const std::string& pattern, PatternStyle style)
{
    if (style.isRegex)
        return regexTest(pattern, style.ignoresCase);
    return [glob = Glob(pattern, style.ignoresCase)](std::string_view name) {
        return glob.matches(name);
    };
}

} // namespace tavo
