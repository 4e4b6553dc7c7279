#include "unpack.h"

#include "Failure.h"

#include <algorithm>

#if defined(TAVO_HAS_ZLIB)
#include <zlib.h>
#endif
#if defined(TAVO_HAS_ZSTD)
#include <zstd.h>
#endif

namespace tavo {

namespace {

constexpr std::size_t pieceSize = std::size_t{1} << 20U;

[[maybe_unused]] Failure damaged(const std::string& name, const std::string& reason)
{
    return {ExitCode::Trouble, name + ": can't be unpacked: " + reason};
}

/// Room for the next piece, if there isn't too much already.
[[maybe_unused]] char* nextPiece(Bytes& unpacked, std::uint64_t most, const std::string& name)
{
    if (unpacked.size() > most)
        throw Failure(ExitCode::Trouble,
                      name + ": would become larger than " + std::to_string(most >> 20U) + " MiB");
    return unpacked.room(pieceSize);
}

#if defined(TAVO_HAS_ZLIB)
class GzipReader
{
public:
    explicit GzipReader(std::string_view packed) : rest_(packed)
    {
        constexpr int gzipOnly = 16;
        if (inflateInit2(&stream_, MAX_WBITS + gzipOnly) != Z_OK)
            throw std::bad_alloc();
    }
    ~GzipReader() { inflateEnd(&stream_); }
    GzipReader(const GzipReader&) = delete;
    GzipReader& operator=(const GzipReader&) = delete;

    /// The count of bytes that it wrote; 0 at the end.
    std::size_t read(char* target, const std::string& name)
    {
        stream_.next_out = reinterpret_cast<Bytef*>(target);
        stream_.avail_out = pieceSize;
        while (stream_.avail_out > 0 && !isAtEnd_) {
            if (stream_.avail_in == 0)
                takeMore(name);
            const int result = inflate(&stream_, Z_NO_FLUSH);
            if (result == Z_STREAM_END)
                finishMember(name);
            else if (result == Z_MEM_ERROR)
                throw std::bad_alloc();
            else if (result != Z_OK)
                throw damaged(name, stream_.msg ? stream_.msg : "the data is damaged");
        }
        return pieceSize - stream_.avail_out;
    }

private:
    void takeMore(const std::string& name)
    {
        if (rest_.empty())
            throw damaged(name, "it ends too early");
        const std::size_t count = std::min(rest_.size(), pieceSize);
        stream_.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(rest_.data()));
        stream_.avail_in = static_cast<uInt>(count);
        rest_.remove_prefix(count);
    }
    /// Another file may follow, or zeros that fill up a block of a tape.
    void finishMember(const std::string& name)
    {
        const std::size_t left = stream_.avail_in;
        rest_ = {rest_.data() - left, rest_.size() + left};
        stream_.avail_in = 0;
        if (rest_.find_first_not_of('\0') == std::string_view::npos)
            isAtEnd_ = true;
        else if (inflateReset(&stream_) != Z_OK)
            throw damaged(name, "the data is damaged");
    }

    z_stream stream_ = {};
    std::string_view rest_; ///< What `stream_` hasn't got yet.
    bool isAtEnd_ = false;
};
#endif

#if defined(TAVO_HAS_ZSTD)
class ZstdReader
{
public:
    explicit ZstdReader(std::string_view packed)
        : context_(ZSTD_createDCtx()), packed_{packed.data(), packed.size(), 0}
    {
        if (!context_)
            throw std::bad_alloc();
    }
    ~ZstdReader() { ZSTD_freeDCtx(context_); }
    ZstdReader(const ZstdReader&) = delete;
    ZstdReader& operator=(const ZstdReader&) = delete;

    /// As that of `GzipReader`.
    std::size_t read(char* target, const std::string& name)
    {
        ZSTD_outBuffer output = {target, pieceSize, 0};
        while (output.pos < output.size && (packed_.pos < packed_.size || wanted_ != 0)) {
            const std::size_t before = output.pos + packed_.pos;
            wanted_ = ZSTD_decompressStream(context_, &output, &packed_);
            if (ZSTD_isError(wanted_) != 0)
                throw damaged(name, ZSTD_getErrorName(wanted_));
            if (output.pos + packed_.pos == before)
                throw damaged(name, "it ends too early");
        }
        return output.pos;
    }

private:
    ZSTD_DCtx* context_;
    ZSTD_inBuffer packed_;
    std::size_t wanted_ = 0; ///< 0 between two files.
};
#endif

template <class Reader>
[[maybe_unused]] Bytes unpackWith(Reader&& reader, std::uint64_t most, const std::string& name)
{
    Bytes unpacked;
    for (;;) {
        char* const target = nextPiece(unpacked, most, name);
        const std::size_t count = reader.read(target, name);
        if (count == 0)
            return unpacked;
        unpacked.add(count);
    }
}

} // namespace

std::uint64_t mostUnpacked(std::uint64_t packedSize)
{
    constexpr std::uint64_t always = std::uint64_t{64} << 20U;
    constexpr std::uint64_t mostTimes = 1000;
    return std::clamp(packedSize * mostTimes, always, mostInMemory);
}

bool canUnpack(FileKind kind)
{
#if defined(TAVO_HAS_ZLIB)
    if (kind == FileKind::Gzip)
        return true;
#endif
#if defined(TAVO_HAS_ZSTD)
    if (kind == FileKind::Zstd)
        return true;
#endif
    (void)kind;
    return false;
}

Bytes unpack(FileKind kind, std::string_view packed, std::uint64_t most, const std::string& name)
{
#if defined(TAVO_HAS_ZLIB)
    if (kind == FileKind::Gzip)
        return unpackWith(GzipReader(packed), most, name);
#endif
#if defined(TAVO_HAS_ZSTD)
    if (kind == FileKind::Zstd)
        return unpackWith(ZstdReader(packed), most, name);
#endif
    (void)kind, (void)packed, (void)most;
    throw Failure(ExitCode::Trouble, name + ": This build of tavo can't unpack it");
}

} // namespace tavo
