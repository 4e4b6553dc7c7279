#pragma once

#include "model/decimal.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string_view>

namespace tavo {

/// The output file of a conversion: a text file that is written through one large buffer. Numbers
/// are printed with a decimal point whatever the locale.
///
/// A file that doesn't take what is written, on a full disk for example, stops nothing: `close`
/// tells of it.
class ConfigurationStream
{
public:
    /// Makes the buffer, and nothing else yet.
    ConfigurationStream();
    /// Drops what is left of an open file, as only a failure or the end of the thread leaves one:
    /// to write it could take for ever.
    ~ConfigurationStream();
    ConfigurationStream(const ConfigurationStream&) = delete;
    ConfigurationStream& operator=(const ConfigurationStream&) = delete;

    /// Creates the file, or empties it. False if that fails, and for a null `path`.
    bool open(const char* path);
    /// Writes to a stream that is open already and stays open; not null.
    void use(std::FILE* file);
    /// Writes out what is left and closes the file, if one is open. 0 if all that was put is in the
    /// file, else the `errno` of the first failure.
    int close();

    void put(std::string_view text)
    {
        if (text.size() > capacity - size_) {
            putLarge(text);
        } else if (!text.empty()) {
            std::memcpy(buffer_.get() + size_, text.data(), text.size());
            size_ += text.size();
        }
    }
    void putDecimal(std::int32_t number);
    /// "0x" and the 32-bit pattern in lower case.
    void putHexadecimal(std::uint32_t number);
    /// Six decimals, however small the number is.
    void putFixed(double number);

private:
    friend class SectionRoom;

    static constexpr std::size_t capacity = 65536;

    char* roomForNumber();
    void putLarge(std::string_view text);
    void flush();

    std::FILE* file_ = nullptr;
    bool owned_ = false; ///< The file is closed here.
    int error_ = 0;      ///< Of the first write that failed.
    std::unique_ptr<char[]> buffer_;
    std::size_t size_ = 0;
};

/// Room for a section in the buffer of a stream, which isn't used otherwise as long as the room
/// lives. What is put needs no check then, and counts when the room dies.
class SectionRoom
{
public:
    static constexpr std::size_t largest = ConfigurationStream::capacity;

    /// Room for `size` characters, at most `largest`.
    SectionRoom(ConfigurationStream& stream, std::size_t size) : stream_(stream)
    {
        if (ConfigurationStream::capacity - stream.size_ < size)
            stream.flush();
        next_ = stream.buffer_.get() + stream.size_;
    }
    ~SectionRoom() { stream_.size_ = static_cast<std::size_t>(next_ - stream_.buffer_.get()); }
    SectionRoom(const SectionRoom&) = delete;
    SectionRoom& operator=(const SectionRoom&) = delete;

    void put(std::string_view text)
    {
        if (text.empty())
            return;
        std::memcpy(next_, text.data(), text.size());
        next_ += text.size();
    }
    void putDecimal(std::int32_t number) { next_ = writeDecimal(next_, number); }
    void putHexadecimal(std::uint32_t number)
    {
        put("0x");
        next_ = writeHexadecimal(next_, number);
    }
    void putFixed(double number) { next_ = writeFixed(next_, number); }

private:
    ConfigurationStream& stream_;
    char* next_; ///< Where the next character goes.
};

} // namespace tavo
