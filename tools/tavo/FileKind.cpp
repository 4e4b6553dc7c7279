#include "FileKind.h"

#include <algorithm>

namespace tavo {

namespace {

using namespace std::string_view_literals;

struct Mark
{
    std::string_view bytes;
    FileKind kind;
    const char* name;
    const char* hint = "";
};

constexpr const char* unpackIt = "unpack it first";

constexpr Mark marks[] = {
    {"\x1F\x8B"sv, FileKind::Gzip, "a gzip file", unpackIt},
    {"\x28\xB5\x2F\xFD"sv, FileKind::Zstd, "a zstd file", unpackIt},
    {"\xFF\xFE\0\0"sv, FileKind::WideText, "UTF-32"},
    {"\0\0\xFE\xFF"sv, FileKind::WideText, "UTF-32"},
    {"\xFF\xFE"sv, FileKind::WideText, "UTF-16"},
    {"\xFE\xFF"sv, FileKind::WideText, "UTF-16"},
    {"PK\x03\x04"sv, FileKind::Other, "a ZIP archive", unpackIt},
    {"\xFD"
     "7zXZ\0"sv,
     FileKind::Other, "an xz file", unpackIt},
    {"BZh"sv, FileKind::Other, "a bzip2 file", unpackIt},
    {"7z\xBC\xAF\x27\x1C"sv, FileKind::Other, "a 7-Zip archive", unpackIt},
    {"\x7F"
     "ELF"sv,
     FileKind::Other, "a program (ELF)"},
    {"MZ\x90\0"sv, FileKind::Other, "a program for Windows"},
    {"%PDF-"sv, FileKind::Other, "a PDF document"},
    {"<?xml "sv, FileKind::Other, "an XML document"},
    {"[DAQ_"sv, FileKind::Other, "a configuration"},
};

/// True for what no text holds, except a zero byte, which may fill up the end of a file.
bool isForeign(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    return (byte < 0x09 && byte != 0) || (byte > 0x0D && byte < 0x20 && byte != 0x1A);
}

bool holdsBlock(std::string_view head)
{
    const std::string_view word = "/begin";
    const auto isSame = [](char c, char lower) {
        return c == lower || (c >= 'A' && c <= 'Z' && (c | 0x20) == lower);
    };
    return std::search(head.begin(), head.end(), word.begin(), word.end(), isSame) != head.end();
}

} // namespace

Recognition recognize(std::string_view head)
{
    if (head.empty())
        return {FileKind::Empty, "", ""};
    for (const Mark& mark : marks)
        if (head.starts_with(mark.bytes))
            return {mark.kind, mark.name, mark.hint};
    if (head.size() > 1 && (head[0] == 0) != (head[1] == 0))
        return {FileKind::WideText, "UTF-16", ""};
    const auto foreign = std::count_if(head.begin(), head.end(), isForeign);
    if (static_cast<std::size_t>(foreign) * 20 > head.size() && !holdsBlock(head))
        return {FileKind::Other, "a binary file", ""};
    return {};
}

} // namespace tavo
