#include "hints.h"

#include "Suggestion.h"
#include "base/Diagnostic.h"
#include "base/Notices.h"
#include "base/paths.h"

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace tavo {

namespace fs = std::filesystem;

namespace {

/// The words of descriptions that the readers know.
constexpr const char* words[] = {
#define TAVO_OPTION(block, word, fields) #word,
#define TAVO_BLOCK(block, word) #word,
#define TAVO_KNOWN(block, word, fields) #word,
#include "asap2/options.def"
#undef TAVO_OPTION
#undef TAVO_BLOCK
#undef TAVO_KNOWN
    "A_INT64",   "A_UINT64", "FLOAT16_IEEE", "FLOAT32_IEEE", "FLOAT64_IEEE", "SBYTE",
    "SLONG",     "SWORD",    "UBYTE",        "ULONG",        "UWORD",        "BIG_ENDIAN",
    "MSB_FIRST", "MSB_LAST", "MODULE",       "PROJECT",      "FORM",         "IDENTICAL",
    "LINEAR",    "RAT_FUNC", "TAB_INTP",     "TAB_NOINTP",   "TAB_VERB",     "LITTLE_ENDIAN",
};

std::string didYouMean(const std::string& word)
{
    return word.empty() ? "" : "did you mean '" + word + "'?";
}

/// What stands in quotes after this part of a message, or "".
std::string_view quotedAfter(std::string_view message, std::string_view part)
{
    const std::size_t begin = message.find(part);
    if (begin == std::string_view::npos)
        return "";
    message.remove_prefix(begin + part.size());
    return message.substr(0, std::min(message.find('\''), message.size()));
}

std::string nearestWord(std::string_view word)
{
    Suggestion suggestion(word);
    for (const char* known : words)
        suggestion.consider(known);
    // One that is known elsewhere is no slip.
    return suggestion.best() == word ? "" : suggestion.best();
}

} // namespace

std::string hintFor(const Diagnostic& diagnostic)
{
    const std::string_view text = diagnostic.text;
    // Each with the word that nobody knows.
    for (const std::string_view part : {"Unknown word '", "Unknown block '", "its data type '",
                                        "Byte order '", "Conversion type '"})
        if (const std::string_view word = quotedAfter(text, part); !word.empty())
            return didYouMean(nearestWord(word));
    if (text.starts_with("'/end ")) {
        const std::string_view word = quotedAfter(text, "'/end ");
        const std::string_view block = quotedAfter(text, "in the block '");
        if ((word == "MODULE" || word == "PROJECT") && block != "MODULE")
            return joined({"an '/end ", block, "' is missing"});
        Suggestion suggestion(word);
        suggestion.consider(block);
        return suggestion.isFound() ? didYouMean("/end " + suggestion.best()) : "";
    }
    if (text.ends_with("' doesn't exist")) {
        std::string name(quotedAfter(text, "The included file '"));
        std::replace(name.begin(), name.end(), '\\', '/');
        return hintForMissing(nameOf(pathOf(diagnostic.file).parent_path() / pathOf(name)));
    }
    return "";
}

std::string hintForMissing(const std::string& file)
{
    constexpr int most = 10000;
    const fs::path path = pathOf(file);
    Suggestion suggestion(nameOf(path.filename()), nameOf(path.stem()).size());
    const fs::path folder = path.parent_path();
    std::error_code error;
    fs::directory_iterator entry(folder.empty() ? "." : folder, error);
    for (int i = 0; !error && entry != fs::directory_iterator() && i < most; ++i) {
        suggestion.consider(nameOf(entry->path().filename()));
        entry.increment(error);
    }
    return suggestion.isFound() ? didYouMean(nameOf(folder / pathOf(suggestion.best()))) : "";
}

} // namespace tavo
