#pragma once

#include "base/InputFile.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace tavo {

/// The bytes of a description file. UTF-16 and UTF-32 arrive as UTF-8, and the mark that tells the
/// encoding doesn't arrive at all; the bytes of any other file arrive as they are.
class SourceFile
{
public:
    /// Gets the bytes of the file that were read so far, after each block.
    using Watch = std::function<void(std::uint64_t bytesRead)>;

    SourceFile() = default;
    SourceFile(const SourceFile&) = delete;
    SourceFile& operator=(const SourceFile&) = delete;

    /// Reads from the file. False, with `errno`, if it can't be opened.
    bool open(const std::string& path) { return file_.open(path.c_str()); }
    /// Reads from memory, which outlives the object.
    void use(const char* data, std::size_t size);
    void setWatch(Watch watch) { watch_ = std::move(watch); }

    /// Bytes of the file or memory, or 0 if they can't be told; nothing has been read yet.
    std::size_t size() { return file_.isOpen() ? file_.size() : memorySize_; }
    /// Reads up to `size` bytes, which is at least 16. 0 at the end of the file.
    std::size_t read(char* target, std::size_t size);
    /// The system's number of the error that ended the file before its end, or 0.
    int readError() const { return file_.error(); }

private:
    enum class Encoding : std::uint8_t
    {
        Unknown, ///< Nothing was read yet.
        Bytes,
        Utf16Little,
        Utf16Big,
        Utf32Little,
        Utf32Big
    };

    std::size_t readBytes(char* target, std::size_t size);
    std::size_t detectEncoding(std::string_view head);
    std::size_t readFirst(char* target, std::size_t size);
    std::size_t readDecoded(char* target, std::size_t size);
    bool nextUnit(std::uint32_t& unit);
    char32_t characterOf(std::uint32_t unit);

    InputFile file_;
    const char* memory_ = nullptr;
    std::size_t memorySize_ = 0;
    Watch watch_;
    std::uint64_t bytesRead_ = 0;
    Encoding encoding_ = Encoding::Unknown;
    std::string raw_;           ///< Bytes that were read, but not decoded yet.
    std::size_t rawNext_ = 0;   ///< The first of them.
    std::uint32_t pending_ = 0; ///< A unit that was read too early, if `isPending_`.
    bool isPending_ = false;
};

} // namespace tavo
