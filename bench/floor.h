#pragma once

#include <cstddef>

/// The floor for a reader: goes over the bytes once with a table of character classes, splits them
/// into names, numbers, texts and comments, and stores nothing. Returns the number of tokens, so
/// that nothing of it can be left out.
class FloorLoop
{
public:
    /// Goes on with the next piece of the input.
    void feed(const unsigned char* bytes, std::size_t size);
    std::size_t tokens() const { return tokens_; }

    /// Goes over a whole file, in blocks as a reader takes them, and returns its tokens. Ends the
    /// program if the file can't be opened.
    static std::size_t tokensOf(const char* path);
    /// The same, but counts line feeds: what it takes to see the bytes at all.
    static std::size_t linesOf(const char* path);

private:
    enum State : unsigned char
    {
        Between,
        InWord,
        InText,
        AfterBackslash,
        AfterSlash,
        InComment,
        AfterStar
    };

    State state_ = Between;
    std::size_t tokens_ = 0;
};
