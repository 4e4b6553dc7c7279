#pragma once

#include "base/PhLogger.h"

#include <optional>
#include <string>
#include <string_view>

/// A description in memory, under a path that the library can open.
class MemoryFile
{
public:
    MemoryFile();
    ~MemoryFile();
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    void assign(std::string_view bytes);
    const char* path() const { return path_; }

private:
    int descriptor_;
    char path_[32];
};

/// Sends the standard output, where the library's reports go, to nowhere.
void silenceReports();

/// The configuration that the strict reader makes of a description; nothing if it refuses it. Its
/// messages go to the logger.
std::optional<std::string> strictConfiguration(std::string_view description,
                                               tavo::PhLogger* logger = nullptr);

/// Reads a description, resolves its names and writes its configuration to nowhere, first as a host
/// gets it and then with all progress lines. Stops the program if the two end differently.
void convert(std::string_view description);
