#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

/// The texts of a description are bytes: UTF-8 in newer ones, Latin-1 in older ones, and anything
/// in broken ones. Here valid UTF-8 passes, and every other byte is taken for Latin-1.
namespace tavo {

bool isAscii(std::string_view bytes);

/// False if the text has anything that `special` says, a control character or a byte beyond ASCII;
/// it may also be false for nothing. It looks at eight bytes at a time.
template <char... special> bool isPlain(std::string_view text)
{
    constexpr std::uint64_t ones = 0x0101010101010101U;
    constexpr std::uint64_t highs = ones << 7U;
    std::uint64_t found = 0;
    const auto look = [&found](std::uint64_t bytes) {
        found |= bytes | ((bytes - ones * 0x20U) & ~bytes);
        const auto lookFor = [&](char c) {
            const std::uint64_t rest = bytes ^ ones * static_cast<unsigned char>(c);
            found |= (rest - ones) & ~rest;
        };
        (lookFor(special), ...);
    };
    std::uint64_t bytes = ones * 'x';
    constexpr std::size_t size = sizeof bytes;
    if (text.size() < size) {
        for (const char c : text)
            bytes = bytes << 8U | static_cast<unsigned char>(c);
        look(bytes);
        return (found & highs) == 0;
    }
    for (std::size_t i = 0; i < text.size() - size; i += size) {
        std::memcpy(&bytes, text.data() + i, size);
        look(bytes);
    }
    std::memcpy(&bytes, text.data() + text.size() - size, size);
    look(bytes);
    return (found & highs) == 0;
}

/// The small letter of a capital one, where a language of Europe has one of the kind; all else is
/// returned as it is.
char32_t smallLetter(char32_t character);
/// The text with small letters alone, as valid UTF-8.
std::string smallLetters(std::string_view bytes);

/// The characters of a text.
std::u32string characters(std::string_view bytes);

/// How many characters the text has.
std::size_t characterCount(std::string_view bytes);

/// The text as valid UTF-8.
std::string toUtf8(std::string_view bytes);

/// The same on one line and harmless to a terminal: a tabulator becomes a blank, and any other
/// control character an escape such as \n or \x1b.
std::string printable(std::string_view bytes);

} // namespace tavo
