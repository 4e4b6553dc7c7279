#pragma once

#include <filesystem>
#include <string>

namespace tavo {

// The names of files as texts are in the encoding that `fopen` takes: on POSIX systems any bytes,
// on Windows the code page of the process. The standard library knows nothing of that code page, so
// texts become paths here, and paths texts.

#if defined(_WIN32)
std::filesystem::path pathOf(const std::string& name);
std::string nameOf(const std::filesystem::path& path);
#else
inline std::filesystem::path pathOf(const std::string& name) { return name; }
inline std::string nameOf(const std::filesystem::path& path) { return path.string(); }
#endif

} // namespace tavo
