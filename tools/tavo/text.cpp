#include "text.h"

#include <array>

namespace tavo {

namespace {

/// The length that a UTF-8 sequence has by its first byte; 0 for a byte that begins none.
std::size_t sequenceLength(unsigned char first)
{
    if (first < 0x80)
        return 1;
    if (first >= 0xC2 && first <= 0xDF)
        return 2;
    if (first >= 0xE0 && first <= 0xEF)
        return 3;
    return first >= 0xF0 && first <= 0xF4 ? 4 : 0;
}

/// Takes the first character away from `bytes`, which aren't empty.
char32_t takeCharacter(std::string_view& bytes)
{
    const auto first = static_cast<unsigned char>(bytes.front());
    const std::size_t length = sequenceLength(first);
    char32_t character = first;
    bool valid = length > 0 && length <= bytes.size();
    if (valid && length > 1) {
        character = first & (0x7FU >> length);
        for (std::size_t i = 1; i < length; ++i) {
            const auto byte = static_cast<unsigned char>(bytes[i]);
            valid = valid && (byte & 0xC0U) == 0x80U;
            character = character << 6U | (byte & 0x3FU);
        }
        const std::array<char32_t, 5> lowest = {0, 0, 0x80, 0x800, 0x10000};
        const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
        valid = valid && character >= lowest[length] && character <= 0x10FFFF && !surrogate;
    }
    bytes.remove_prefix(valid ? length : 1);
    return valid ? character : first;
}

void appendUtf8(std::string& text, char32_t character)
{
    const auto put = [&](char32_t byte) { text.push_back(static_cast<char>(byte)); };
    const auto putRest = [&](unsigned shift) { put(0x80U | (character >> shift & 0x3FU)); };
    if (character < 0x80) {
        put(character);
    } else if (character < 0x800) {
        put(0xC0U | character >> 6U);
        putRest(0);
    } else if (character < 0x10000) {
        put(0xE0U | character >> 12U);
        putRest(6);
        putRest(0);
    } else {
        put(0xF0U | character >> 18U);
        putRest(12);
        putRest(6);
        putRest(0);
    }
}

/// Control characters of ASCII and of the upper half, which terminals may obey too.
bool isControl(char32_t character)
{
    return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

void appendEscaped(std::string& text, char32_t control)
{
    static constexpr char digits[] = "0123456789abcdef";
    if (control == '\n') {
        text += "\\n";
        return;
    }
    text += "\\x";
    text.push_back(digits[control >> 4U]);
    text.push_back(digits[control & 0xFU]);
}

} // namespace

bool isAscii(std::string_view bytes)
{
    std::uint64_t all = 0;
    std::uint64_t eight = 0;
    for (; bytes.size() >= sizeof eight; bytes.remove_prefix(sizeof eight)) {
        std::memcpy(&eight, bytes.data(), sizeof eight);
        all |= eight;
    }
    for (const char byte : bytes)
        all |= static_cast<unsigned char>(byte);
    return (all & 0x8080808080808080U) == 0;
}

char32_t smallLetter(char32_t character)
{
    const auto isIn = [character](char32_t first, char32_t last) {
        return character >= first && character <= last;
    };
    if (isIn('A', 'Z') || (isIn(0xC0, 0xDE) && character != 0xD7) || isIn(0x391, 0x3A9) ||
        isIn(0x410, 0x42F))
        return character + 0x20;
    if (isIn(0x400, 0x40F))
        return character + 0x50;
    return isIn(0x100, 0x137) || isIn(0x14A, 0x177) ? character | 1U : character;
}

std::string smallLetters(std::string_view bytes)
{
    std::string text;
    text.reserve(bytes.size());
    while (!bytes.empty())
        appendUtf8(text, smallLetter(takeCharacter(bytes)));
    return text;
}

std::u32string characters(std::string_view bytes)
{
    std::u32string text;
    while (!bytes.empty())
        text.push_back(takeCharacter(bytes));
    return text;
}

std::size_t characterCount(std::string_view bytes)
{
    if (isAscii(bytes))
        return bytes.size();
    std::size_t count = 0;
    for (; !bytes.empty(); ++count)
        takeCharacter(bytes);
    return count;
}

std::string toUtf8(std::string_view bytes)
{
    if (isAscii(bytes))
        return std::string(bytes);
    std::string text;
    while (!bytes.empty())
        appendUtf8(text, takeCharacter(bytes));
    return text;
}

std::string printable(std::string_view bytes)
{
    std::string text;
    while (!bytes.empty()) {
        const char32_t character = takeCharacter(bytes);
        if (character == '\t')
            text.push_back(' ');
        else if (isControl(character))
            appendEscaped(text, character);
        else
            appendUtf8(text, character);
    }
    return text;
}

} // namespace tavo
