#pragma once

#include "base/ByteGroup.h"

#include <array>
#include <cstddef>

/// The characters of a description, as the scanner tells them apart, and the searches for those
/// that matter. A zero byte ends every search, because zero bytes stand after the last character of
/// the buffer.
namespace tavo::asap2 {

/// A mask of these.
enum CharacterClass : unsigned char
{
    Blank = 1,    ///< Separates tokens. The zero byte isn't in the class, though it is a blank.
    EndsWord = 2, ///< A blank, a quote, and a slash, which may begin a comment.
};

constexpr std::array<unsigned char, 256> makeClasses()
{
    std::array<unsigned char, 256> classes{};
    for (const char c : {' ', '\t', '\n', '\r', '\v', '\f', '\x1A'})
        classes[static_cast<unsigned char>(c)] |= Blank | EndsWord;
    for (const char c : {'\0', '"', '/'})
        classes[static_cast<unsigned char>(c)] |= EndsWord;
    return classes;
}

inline constexpr std::array<unsigned char, 256> classes = makeClasses();

inline bool is(char c, unsigned mask)
{
    return (classes[static_cast<unsigned char>(c)] & mask) != 0;
}

/// So many zero bytes stand after the last character of the buffer: a search reads up to two groups
/// of bytes from there on.
constexpr std::size_t padding = 2 * ByteGroup::size;

/// The first character that is no blank.
inline const char* blanksEnd(const char* position)
{
    while (is(*position, Blank)) // They are few in most places.
        ++position;
    return position;
}

/// The first character that ends a word.
inline const char* wordEnd(const char* position)
{
    for (;; ++position) {
        // All that are up to the quote, some of which end no word.
        position = searchNear(position,
                              [](ByteGroup bytes) { return bytes.upTo('"') | bytes.equalTo('/'); });
        if (is(*position, EndsWord))
            return position;
    }
}

/// The first quote, or character that doesn't stand for itself in a text.
inline const char* textEnd(const char* position)
{
    return searchFar(position, [](ByteGroup bytes) {
        return bytes.equalTo('"') | bytes.equalTo('\\') | bytes.equalTo('\r') | bytes.equalTo(0);
    });
}

/// The first quote or slash, which is what counts in a block that is passed over.
inline const char* skipEnd(const char* position)
{
    return searchFar(position, [](ByteGroup bytes) {
        return bytes.equalTo('"') | bytes.equalTo('/') | bytes.equalTo(0);
    });
}

/// The first slash, which may end a comment.
inline const char* slashOf(const char* position)
{
    return searchFar(position,
                     [](ByteGroup bytes) { return bytes.equalTo('/') | bytes.equalTo(0); });
}

/// The first character of a line end.
inline const char* lineEnd(const char* position)
{
    return searchNear(position, [](ByteGroup bytes) {
        return bytes.equalTo('\n') | bytes.equalTo('\r') | bytes.equalTo(0);
    });
}

/// A keyword, the character after it, and a keyword that may follow at once.
constexpr std::size_t longestLook = 17;

} // namespace tavo::asap2
