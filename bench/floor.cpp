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
    return classes;
}

constexpr std::array<unsigned char, 256> classes = makeClasses();

/// Hands a file over in blocks.
template <class Feed> void forEachBlock(const char* path, Feed feed)
{
    constexpr std::size_t blockSize = 65536;
    const std::unique_ptr<unsigned char[]> block(new unsigned char[blockSize]);
    std::FILE* file = std::fopen(path, "rb");
    if (!file) {
        std::perror(path);
        std::exit(1);
    }
    std::setvbuf(file, nullptr, _IONBF, 0);
    while (const std::size_t size = std::fread(block.get(), 1, blockSize, file))
        feed(block.get(), size);
    std::fclose(file);
}

} // namespace

/// Each state goes over its characters by itself, so that a loop holds no more than its own test.
void FloorLoop::feed(const unsigned char* p, std::size_t size)
{
    const unsigned char* const end = p + size;
    State state = state_; // in registers, as is the next
    std::size_t tokens = tokens_;
    const auto runTo = [&](auto stops) {
        while (p != end && !stops(*p))
            ++p;
    };
    while (p != end) {
        switch (state) {
        case Between:
            runTo([](unsigned char c) { return classes[c] != Blank; });
            if (p == end)
                break;
            ++tokens;
            switch (classes[*p++]) {
            case Word:
                state = InWord;
                break;
            case Quote:
                state = InText;
                break;
            case Slash:
                state = AfterSlash;
                break;
            default:
                break;
            }
            break;
        case InWord:
            runTo([](unsigned char c) { return classes[c] != Word; });
            if (p != end)
                state = Between;
            break;
        case InText:
            runTo([](unsigned char c) { return c == '"' || c == '\\'; });
            if (p != end)
                state = *p++ == '"' ? Between : AfterBackslash;
            break;
        case AfterBackslash:
            ++p;
            state = InText;
            break;
        case AfterSlash:
            state = *p++ == '*' ? InComment : InWord;
            tokens -= state == InComment;
            break;
        case InComment:
            runTo([](unsigned char c) { return c == '*'; });
            if (p != end)
                state = AfterStar, ++p;
            break;
        case AfterStar:
            runTo([](unsigned char c) { return c != '*'; });
            if (p != end)
                state = *p++ == '/' ? Between : InComment;
            break;
        }
    }
    state_ = state;
    tokens_ = tokens;
}

std::size_t FloorLoop::tokensOf(const char* path)
{
    FloorLoop loop;
    forEachBlock(path,
                 [&](const unsigned char* bytes, std::size_t size) { loop.feed(bytes, size); });
    return loop.tokens();
}

std::size_t FloorLoop::linesOf(const char* path)
{
    std::size_t lines = 0;
    forEachBlock(path, [&](const unsigned char* bytes, std::size_t size) {
        std::size_t count = 0; // of its own, so that the compiler adds many at a time
        for (std::size_t i = 0; i < size; ++i)
            count += bytes[i] == '\n';
        lines += count;
    });
    return lines;
}
