#pragma once

#include "Bytes.h"
#include "FileKind.h"

#include <cstdint>
#include <string>

namespace tavo {

/// The largest description that is read from memory: one that comes from a pipe, or is unpacked.
constexpr std::uint64_t mostInMemory = std::uint64_t{1} << 31U;

/// How much a compressed file may become: no description is as repetitive as what people make to
/// fill the memory of others.
std::uint64_t mostUnpacked(std::uint64_t packedSize);

/// True if this build unpacks files of the kind.
bool canUnpack(FileKind kind);

/// What is in a gzip or zstd file, or in several of the kind one after the other. Throws a
/// `Failure`, in which the file is called `name`, for damaged data, and for more than `most` bytes.
Bytes unpack(FileKind kind, std::string_view packed, std::uint64_t most, const std::string& name);

} // namespace tavo
