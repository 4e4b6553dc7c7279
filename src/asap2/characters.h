#pragma once

#include <array>
#include <cstddef>

/// The characters of a description, as the scanner tells them apart.
namespace tavo::asap2 {

/// What ends a run of characters; a mask of these. A zero byte ends every run, because one stands
/// after the last character of the buffer.
enum CharacterClass : unsigned char
{
    Blank = 1,    ///< Separates tokens. The zero byte isn't in the class, though it is a blank.
    EndsWord = 2, ///< A blank, a quote, and a slash, which may begin a comment.
    EndsText = 4, ///< A quote, and what doesn't stand for itself in a text.
    EndsSkip = 8, ///< A quote and a slash: what counts in a block that is passed over.
    EndsComment = 16,
    EndsLine = 32
};

constexpr std::array<unsigned char, 256> makeClasses()
{
    std::array<unsigned char, 256> classes{};
    for (const char c : {' ', '\t', '\n', '\r', '\v', '\f', '\x1A'})
        classes[static_cast<unsigned char>(c)] |= Blank | EndsWord;
    classes[0] = EndsWord | EndsText | EndsSkip | EndsComment | EndsLine;
    classes['"'] |= EndsWord | EndsText | EndsSkip;
    classes['/'] |= EndsWord | EndsSkip;
    classes['\\'] |= EndsText;
    classes['\r'] |= EndsText | EndsLine;
    classes['\n'] |= EndsLine;
    classes['*'] |= EndsComment;
    return classes;
}

inline constexpr std::array<unsigned char, 256> classes = makeClasses();

inline bool is(char c, unsigned mask)
{
    return (classes[static_cast<unsigned char>(c)] & mask) != 0;
}

/// The first character that ends the run.
inline const char* runEnd(const char* position, unsigned ends)
{
    while (!is(*position, ends))
        ++position;
    return position;
}

/// So many zero bytes stand after the last character of the buffer.
constexpr std::size_t padding = 16;

/// A keyword, the character after it, and a keyword that may follow at once.
constexpr std::size_t longestLook = 17;

} // namespace tavo::asap2
