#pragma once

#include "grammar.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The ways of each rule, by its name.
using Ways = std::map<std::string_view, std::vector<std::string_view>>;

/// Takes the part of `text` before the next `mark` off, and the mark.
inline std::string_view cut(std::string_view& text, std::string_view mark)
{
    const std::string_view part = text.substr(0, text.find(mark));
    text.remove_prefix(std::min(part.size() + mark.size(), text.size()));
    return part;
}

/// `rules`, and `others` in place of those of the same names.
inline Ways waysOf(std::span<const Rule> rules, std::span<const Rule> others = {})
{
    Ways ways;
    for (const std::span<const Rule> part : {rules, others})
        for (auto [name, rest] : part)
            for (ways[name].clear(); !rest.empty();)
                ways[name].push_back(cut(rest, " | "));
    return ways;
}

/// What descriptions are made of.
struct Language
{
    Ways ways;
    std::span<const std::string_view> keywords;
    std::span<const std::string_view> names;
    std::span<const std::string_view> numbers;
};

/// Writes the description that the bytes of an input choose.
class GrammarWriter
{
public:
    GrammarWriter(const Language& language, const std::uint8_t* data, std::size_t size,
                  bool hasNoise = true)
        : language_(language), choices_(data, size), hasNoise_(hasNoise)
    {
    }

    std::string write()
    {
        writeRule("description");
        return std::move(text_);
    }
    /// True if there are bytes in it that aren't tokens of the language.
    bool isNoisy() const { return isNoisy_; }

private:
    /// One of a table's entries; the first one if there are no bytes left to choose by.
    template <class Table> auto& oneOf(const Table& table)
    {
        return table[choices_.ConsumeIntegralInRange<std::size_t>(0, std::size(table) - 1)];
    }

    void writeRule(std::string_view name)
    {
        std::string_view words = oneOf(language_.ways.at(name));
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
        switch (hasNoise_ ? choices_.ConsumeIntegralInRange(0, 100) : 0) {
        case 98:
            return put(oneOf(language_.keywords));
        case 99:
            isNoisy_ = true;
            return put(choices_.ConsumeRandomLengthString(20));
        case 100:
            return;
        }
        if (part == "$name")
            put(oneOf(language_.names));
        else if (part == "$text")
            putText();
        else if (part == "$integer" || part == "$number")
            put(oneOf(language_.numbers));
        else
            put(part);
    }

    void putText()
    {
        constexpr std::string_view texts[] = {"\"\"", "\"a\"", "\"/end\"", "\"a \"\"b\"\" \\\"c\""};
        if (!hasNoise_)
            return put(oneOf(texts));
        isNoisy_ = true;
        put('"' + choices_.ConsumeRandomLengthString(20) + '"');
    }

    void put(std::string_view token) { (text_ += token) += '\n'; }

    const Language& language_;
    FuzzedDataProvider choices_;
    bool hasNoise_;
    bool isNoisy_ = false;
    std::string text_;
};
