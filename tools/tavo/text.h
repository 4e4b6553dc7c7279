#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// The texts of a description are bytes: UTF-8 in newer ones, Latin-1 in older ones, and anything
/// in broken ones. Here valid UTF-8 passes, and every other byte is taken for Latin-1.
namespace tavo {

bool isAscii(std::string_view bytes);

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
