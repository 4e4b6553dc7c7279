#pragma once

#include <cstdint>
#include <string_view>

namespace tavo {

/// What a file shows by its first bytes.
enum class FileKind : std::uint8_t
{
    Text, ///< Or what nobody knows: the readers will tell.
    Empty,
    Gzip,
    Zstd,
    WideText, ///< UTF-16 or UTF-32.
    Other     ///< Something that is no description for sure.
};

struct Recognition
{
    FileKind kind = FileKind::Text;
    const char* name = ""; ///< Of what isn't text: "a ZIP archive", "UTF-16".
    const char* hint = ""; ///< What to do about it, if somebody knows.
};

/// So many bytes are enough to recognize a file.
constexpr std::size_t recognizedSize = 4096;

/// Recognizes a file by its first bytes; fewer than `recognizedSize` are the whole file.
Recognition recognize(std::string_view head);

} // namespace tavo
