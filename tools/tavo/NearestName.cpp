#include "NearestName.h"

#include "Suggestion.h"
#include "text.h"

#include <algorithm>
#include <bit>

namespace tavo {

namespace {

/// Whoever has mistyped more than that meant no particular name.
constexpr std::size_t mostSlips = 3;

std::uint64_t lettersOf(std::string_view text)
{
    std::uint64_t letters = 0;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c >= 'A' && c <= 'Z' ? c + 0x20 : c);
        letters |= std::uint64_t{1} << (byte & 63U);
    }
    return letters;
}

} // namespace

void NearestName::add(std::string_view name) { names_.push_back({name, lettersOf(name)}); }

std::string_view NearestName::to(std::string_view word)
{
    const std::string small = smallLetters(word);
    const std::uint64_t letters = lettersOf(word);
    Suggestion suggestion(small);
    std::string_view nearest;
    for (const Name& name : names_) {
        if (budget_ == 0 || suggestion.isCertain())
            break;
        --budget_;
        // Each slip takes one letter away at most, and adds one.
        const std::size_t longer = std::max(name.text.size(), word.size());
        const std::size_t shorter = std::min(name.text.size(), word.size());
        if (longer - shorter > mostSlips ||
            static_cast<std::size_t>(std::popcount(letters & ~name.letters)) > mostSlips ||
            static_cast<std::size_t>(std::popcount(name.letters & ~letters)) > mostSlips)
            continue;
        budget_ -= std::min<std::uint64_t>(budget_, name.text.size() * small.size());
        const std::string candidate = smallLetters(name.text);
        suggestion.consider(candidate);
        if (suggestion.best() == candidate)
            nearest = name.text;
    }
    return nearest;
}

} // namespace tavo
