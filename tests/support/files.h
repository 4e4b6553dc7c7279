#pragma once

#include <filesystem>
#include <string>
#include <string_view>

/// A folder that lives as long as the object.
class TemporaryFolder
{
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    /// The full path of a file in the folder, as text.
    std::string path(const std::string& name) const { return (folder_ / name).string(); }

private:
    std::filesystem::path folder_;
};

/// Makes a folder the current one for the length of a scope.
class CurrentFolder
{
public:
    explicit CurrentFolder(const std::filesystem::path& folder)
        : former_(std::filesystem::current_path())
    {
        std::filesystem::current_path(folder);
    }
    ~CurrentFolder() { std::filesystem::current_path(former_); }
    CurrentFolder(const CurrentFolder&) = delete;
    CurrentFolder& operator=(const CurrentFolder&) = delete;

private:
    std::filesystem::path former_;
};

/// The bytes of a file; a test failure and "" if there is none.
std::string readFile(const std::filesystem::path& path);
void writeFile(const std::filesystem::path& path, std::string_view bytes);
