#include "asap2/SourceFile.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace tavo {

namespace {

constexpr char32_t replacement = 0xFFFD; ///< Stands for what is no character.
constexpr std::size_t longestCharacter = 4;
constexpr std::size_t longestMark = 4;
constexpr std::size_t rawSize = 65536;

bool isHighSurrogate(std::uint32_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool isLowSurrogate(std::uint32_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

/// Writes a character as UTF-8. Returns the place after it.
char* putUtf8(char* target, char32_t character)
{
    const auto put = [&](char32_t byte) { *target++ = static_cast<char>(byte); };
    if (character < 0x80) {
        put(character);
        return target;
    }
    unsigned shift = character < 0x800 ? 6 : character < 0x10000 ? 12 : 18;
    constexpr char32_t leads[] = {0xC0, 0xE0, 0xF0};
    put(leads[shift / 6 - 1] | character >> shift);
    for (; shift > 0; shift -= 6)
        put(0x80U | (character >> (shift - 6) & 0x3FU));
    return target;
}

} // namespace

void SourceFile::use(const char* data, std::size_t size)
{
    memory_ = data;
    memorySize_ = size;
}

std::size_t SourceFile::readBytes(char* target, std::size_t size)
{
    if (!file_.isOpen()) {
        const std::size_t count = std::min(size, memorySize_);
        if (count > 0)
            std::memcpy(target, memory_, count);
        memory_ += count;
        memorySize_ -= count;
        return count;
    }
    const std::size_t count = file_.read(target, size);
    bytesRead_ += count;
    if (watch_ && count > 0)
        watch_(bytesRead_);
    return count;
}

/// Looks at the first bytes of the file: a mark, or the zero byte of an ASCII character in UTF-16.
/// Returns the size of the mark.
std::size_t SourceFile::detectEncoding(std::string_view head)
{
    const auto startsWith = [head](std::string_view mark) { return head.starts_with(mark); };
    const auto use = [this](Encoding encoding, std::size_t markSize) {
        encoding_ = encoding;
        return markSize;
    };
    using namespace std::string_view_literals;
    if (startsWith("\xEF\xBB\xBF"sv))
        return use(Encoding::Bytes, 3);
    if (startsWith("\xFF\xFE\0\0"sv))
        return use(Encoding::Utf32Little, 4);
    if (startsWith("\0\0\xFE\xFF"sv))
        return use(Encoding::Utf32Big, 4);
    if (startsWith("\xFF\xFE"sv))
        return use(Encoding::Utf16Little, 2);
    if (startsWith("\xFE\xFF"sv))
        return use(Encoding::Utf16Big, 2);
    if (head.size() >= 2 && head[0] == 0)
        return use(Encoding::Utf16Big, 0);
    if (head.size() >= 2 && head[1] == 0)
        return use(Encoding::Utf16Little, 0);
    return use(Encoding::Bytes, 0);
}

/// The first read of a file, which is as large as the next ones: the kernel copies whole pages
/// faster than what begins anywhere in them.
std::size_t SourceFile::readFirst(char* target, std::size_t size)
{
    std::size_t count = 0;
    while (count < longestMark) { // a pipe may bring them one by one
        const std::size_t more = readBytes(target + count, size - count);
        if (more == 0)
            break;
        count += more;
    }
    const std::size_t markSize = detectEncoding({target, std::min(count, longestMark)});
    count -= markSize;
    if (encoding_ == Encoding::Bytes && count > 0) {
        std::memmove(target, target + markSize, count);
        return count;
    }
    raw_.assign(target + markSize, count);
    return read(target, size);
}

std::size_t SourceFile::read(char* target, std::size_t size)
{
    if (encoding_ == Encoding::Unknown)
        return readFirst(target, size);
    return encoding_ == Encoding::Bytes ? readBytes(target, size) : readDecoded(target, size);
}

std::size_t SourceFile::readDecoded(char* target, std::size_t size)
{
    const char* const last = target + size - longestCharacter;
    char* end = target;
    std::uint32_t unit = 0;
    while (end <= last && nextUnit(unit))
        end = putUtf8(end, characterOf(unit));
    return static_cast<std::size_t>(end - target);
}

/// The next two or four bytes as a number. False at the end of the file; bytes that are no whole
/// unit are dropped there.
bool SourceFile::nextUnit(std::uint32_t& unit)
{
    if (isPending_) {
        isPending_ = false;
        unit = pending_;
        return true;
    }
    const bool isWide = encoding_ == Encoding::Utf32Little || encoding_ == Encoding::Utf32Big;
    const std::size_t unitSize = isWide ? 4 : 2;
    while (raw_.size() - rawNext_ < unitSize) {
        raw_.erase(0, rawNext_);
        rawNext_ = 0;
        const std::size_t kept = raw_.size();
        raw_.resize(kept + rawSize);
        const std::size_t count = readBytes(raw_.data() + kept, rawSize);
        raw_.resize(kept + count);
        if (count == 0)
            return false;
    }
    const bool isLittle = encoding_ == Encoding::Utf16Little || encoding_ == Encoding::Utf32Little;
    unit = 0;
    for (std::size_t i = 0; i < unitSize; ++i) {
        const std::size_t at = rawNext_ + (isLittle ? unitSize - 1 - i : i);
        unit = unit << 8U | static_cast<unsigned char>(raw_[at]);
    }
    rawNext_ += unitSize;
    return true;
}

/// The character that begins with this unit, which may take the next one along.
char32_t SourceFile::characterOf(std::uint32_t unit)
{
    const bool isWide = encoding_ == Encoding::Utf32Little || encoding_ == Encoding::Utf32Big;
    if (!isWide && isHighSurrogate(unit)) {
        std::uint32_t low = 0;
        if (!nextUnit(low))
            return replacement;
        if (isLowSurrogate(low))
            return 0x10000U + ((unit - 0xD800U) << 10U) + (low - 0xDC00U);
        pending_ = low;
        isPending_ = true;
        return replacement;
    }
    if (isHighSurrogate(unit) || isLowSurrogate(unit) || unit > 0x10FFFF)
        return replacement;
    return unit;
}

} // namespace tavo
