#pragma once

#include <array>

namespace tavo {

/// What a character of a description may be a part of; a mask of these.
enum CharacterClass : unsigned char
{
    Letter = 1, ///< A letter or an underscore: what a name begins with.
    Digit = 2,
    HexDigit = 4,
    InName = 8, ///< What follows in a name.
    Blank = 16, ///< What separates tokens.
};

/// Where the characters end. A byte of this value ends them too, wherever it stands in a file; it
/// is in no class.
constexpr int endMark = 0xFF;

constexpr std::array<unsigned char, 256> makeCharacterClasses()
{
    std::array<unsigned char, 256> classes{};
    for (unsigned c = 0; c < classes.size(); ++c) {
        const bool letter = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
        const bool digit = c >= '0' && c <= '9';
        unsigned mask = 0;
        if (letter || c == '_')
            mask |= Letter | InName;
        if (digit)
            mask |= Digit | HexDigit | InName;
        if ((c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f'))
            mask |= HexDigit;
        if (c == ' ' || c == '\t' || c == '\r' || c == '\n')
            mask |= Blank;
        classes[c] = static_cast<unsigned char>(mask);
    }
    // Beyond the standard's names: index and path characters, and the German letters of Latin-1.
    for (const char c : {'.', '-', '[', ']', '|'})
        classes[static_cast<unsigned char>(c)] |= InName;
    for (const unsigned c : {0xC4U, 0xD6U, 0xDCU, 0xDFU, 0xE4U, 0xF6U, 0xFCU})
        classes[c] |= InName;
    return classes;
}

inline constexpr std::array<unsigned char, 256> characterClasses = makeCharacterClasses();

constexpr bool is(int character, unsigned classes)
{
    return (characterClasses[static_cast<unsigned char>(character)] & classes) != 0;
}

} // namespace tavo
