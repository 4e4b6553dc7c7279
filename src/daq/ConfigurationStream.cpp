#include "daq/ConfigurationStream.h"

#include "base/CancellationHold.h"
#include "model/decimal.h"

#include <cerrno>
#include <utility>

namespace tavo {

ConfigurationStream::ConfigurationStream() : buffer_(new char[capacity]) {}

ConfigurationStream::~ConfigurationStream()
{
    const CancellationHold hold;
    if (file_ && owned_)
        std::fclose(file_);
}

bool ConfigurationStream::open(const char* path)
{
    close();
    if (path) {
        do {
            errno = 0;
            file_ = std::fopen(path, "w+");
        } while (!file_ && errno == EINTR); // a signal, while it waits for a slow device
    }
    owned_ = true;
#if !defined(_WIN32) // where a text stream without a buffer writes character by character
    if (file_)
        std::setvbuf(file_, nullptr, _IONBF, 0);
#endif
    return file_ != nullptr;
}

void ConfigurationStream::use(std::FILE* file)
{
    close();
    file_ = file;
    owned_ = false;
}

int ConfigurationStream::close()
{
    if (!file_)
        return 0;
    flush();
    if ((owned_ ? std::fclose(file_) : std::fflush(file_)) != 0 && error_ == 0)
        error_ = errno;
    file_ = nullptr;
    return std::exchange(error_, 0);
}

void ConfigurationStream::putLarge(std::string_view text)
{
    while (text.size() > capacity - size_) {
        const std::size_t fitting = capacity - size_;
        std::memcpy(buffer_.get() + size_, text.data(), fitting);
        size_ = capacity;
        flush();
        text.remove_prefix(fitting);
    }
    put(text);
}

/// Where a number goes that isn't longer than sixteen characters.
char* ConfigurationStream::roomForNumber()
{
    constexpr std::size_t longest = 16;
    if (capacity - size_ < longest)
        flush();
    return buffer_.get() + size_;
}

void ConfigurationStream::putDecimal(std::int32_t number)
{
    char* const first = roomForNumber();
    size_ += static_cast<std::size_t>(writeDecimal(first, number) - first);
}

void ConfigurationStream::putHexadecimal(std::uint32_t number)
{
    put("0x");
    char* const first = roomForNumber();
    size_ += static_cast<std::size_t>(writeHexadecimal(first, number) - first);
}

void ConfigurationStream::putFixed(double number)
{
    const FixedText text(number);
    put({text.text(), text.length()});
}

void ConfigurationStream::flush()
{
    const char* first = buffer_.get();
    while (size_ > 0) {
        errno = 0;
        const std::size_t count = std::fwrite(first, 1, size_, file_);
        first += count;
        size_ -= count;
        if (size_ > 0 && errno != EINTR) { // a signal only interrupts
            if (error_ == 0)
                error_ = errno != 0 ? errno : EIO;
            size_ = 0;
        }
    }
}

} // namespace tavo
