// Descriptions built from blocks, so that every parser is reached and most readings get to the end.
// With TAVO_FUZZ_SHOW in the environment the descriptions go to the standard error. One that fails
// is kept in corpus/conversion, because what the bytes mean here changes with the grammar.

#include "description.h"
#include "grammar.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <map>
#include <string>
#include <vector>

namespace {

constexpr std::string_view keywords[] = {
    "/begin",
    "/end",
#define TAVO_KEYWORD(enumerator, word, ...) word,
#include "a2l/coreKeywords.def"
#define TAVO_KEYWORD(enumerator, word) word,
#include "a2l/enumKeywords.def"
#define TAVO_KEYWORD(enumerator, word) word,
#include "a2l/ccpKeywords.def"
#define TAVO_KEYWORD(enumerator, word) word,
#include "a2l/xcpKeywords.def"
};
constexpr std::string_view names[] = {"a", "b", "c", "d", "NO_COMPU_METHOD", "e[1]", "f.g", "1h"};
constexpr std::string_view numbers[] = {"0",     "1",    "6",          "8",     "-2147483648",
                                        "1e400", "-0.5", "0xFFFFFFFF", "99999", "0.000001"};

/// Takes the part of `text` ahead of the next `mark` off, and the mark.
std::string_view cut(std::string_view& text, std::string_view mark)
{
    const std::string_view part = text.substr(0, text.find(mark));
    text.remove_prefix(std::min(part.size() + mark.size(), text.size()));
    return part;
}

using Ways = std::map<std::string_view, std::vector<std::string_view>>;

Ways waysOfRules()
{
    Ways ways;
    for (auto [name, rest] : grammar)
        while (!rest.empty())
            ways[name].push_back(cut(rest, " | "));
    return ways;
}

class Writer
{
public:
    Writer(const std::uint8_t* data, std::size_t size) : choices_(data, size) {}

    std::string write()
    {
        writeRule("description");
        return std::move(text_);
    }

private:
    /// One of a table's entries; the first one if there are no bytes left to choose by.
    template <class Table> auto& oneOf(const Table& table)
    {
        return table[choices_.ConsumeIntegralInRange<std::size_t>(0, std::size(table) - 1)];
    }

    void writeRule(std::string_view name)
    {
        static const Ways ways = waysOfRules();
        std::string_view words = oneOf(ways.at(name));
        while (!words.empty()) {
            const std::string_view word = cut(words, " ");
            if (!word.starts_with('<'))
                writeToken(word);
            else if (!word.ends_with('*'))
                writeRule(word.substr(1, word.size() - 2));
            else
                while (choices_.ConsumeBool())
                    writeRule(word.substr(1, word.size() - 3));
        }
    }

    /// Writes a token, or by the way something that doesn't belong there.
    void writeToken(std::string_view part)
    {
        switch (choices_.ConsumeIntegralInRange(0, 100)) {
        case 98:
            return put(oneOf(keywords));
        case 99:
            return put(choices_.ConsumeRandomLengthString(20));
        case 100:
            return;
        }
        if (part == "$name")
            put(oneOf(names));
        else if (part == "$text")
            put('"' + choices_.ConsumeRandomLengthString(20) + '"');
        else if (part == "$integer" || part == "$number")
            put(oneOf(numbers));
        else
            put(part);
    }

    void put(std::string_view token) { (text_ += token) += '\n'; }

    FuzzedDataProvider choices_;
    std::string text_;
};

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    silenceReports();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string description = Writer(data, size).write();
    if (std::getenv("TAVO_FUZZ_SHOW"))
        std::fwrite(description.data(), 1, description.size(), stderr);
    convert(description);
    return 0;
}
