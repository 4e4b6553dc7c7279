#include "floor.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>

namespace {

enum Class : unsigned char
{
    Blank,
    Word,
    Quote,
    Slash,
    Star,
    Other
};

constexpr std::array<unsigned char, 256> makeClasses()
{
    std::array<unsigned char, 256> classes{};
    for (unsigned c = 0; c < 256; ++c) {
        const bool word = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
                          (c >= '0' && c <= '9') || c == '_' || c == '.' || c == '-' || c == '[' ||
                          c == ']' || c == '|';
        classes[c] = word ? Word : c == ' ' || c == '\t' || c == '\r' || c == '\n' ? Blank : Other;
    }
    classes['"'] = Quote;
    classes['/'] = Slash;
    classes['*'] = Star;
    return classes;
}

constexpr std::array<unsigned char, 256> classes = makeClasses();

} // namespace

void FloorLoop::feed(const unsigned char* bytes, std::size_t size)
{
    State state = state_;
    std::size_t tokens = tokens_;
    for (const unsigned char* p = bytes; p != bytes + size; ++p) {
        const unsigned char kind = classes[*p];
        switch (state) {
        case Between:
        between:
            if (kind == Word) {
                ++tokens;
                state = InWord;
            } else if (kind == Quote) {
                ++tokens;
                state = InString;
            } else if (kind == Slash) {
                state = AfterSlash;
            } else if (kind != Blank) {
                ++tokens;
            }
            break;
        case InWord:
            if (kind != Word) {
                state = Between;
                goto between;
            }
            break;
        case InString:
            if (kind == Quote)
                state = Between;
            break;
        case AfterSlash:
            if (kind == Star) {
                state = InComment;
            } else {
                ++tokens;
                state = InWord;
            }
            break;
        case InComment:
            if (kind == Star)
                state = AfterStar;
            break;
        case AfterStar:
            state = kind == Slash ? Between : kind == Star ? AfterStar : InComment;
            break;
        }
    }
    state_ = state;
    tokens_ = tokens;
}

std::size_t FloorLoop::tokensOf(const char* path)
{
    constexpr std::size_t blockSize = 65536;
    const std::unique_ptr<unsigned char[]> block(new unsigned char[blockSize]);
    std::FILE* file = std::fopen(path, "rb");
    if (!file) {
        std::perror(path);
        std::exit(1);
    }
    std::setvbuf(file, nullptr, _IONBF, 0);
    FloorLoop loop;
    while (const std::size_t size = std::fread(block.get(), 1, blockSize, file))
        loop.feed(block.get(), size);
    std::fclose(file);
    return loop.tokens();
}
