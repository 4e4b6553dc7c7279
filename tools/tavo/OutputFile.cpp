#include "OutputFile.h"

#include "Failure.h"
#include "base/paths.h"
#include "platform.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace tavo {

namespace fs = std::filesystem;

namespace {

/// A device, a pipe or a socket: there's nothing to replace, and no place for a file next to it.
bool isSpecial(const std::string& path)
{
    std::error_code ignored;
    return isNullDevice(path) || fs::is_other(fs::status(pathOf(path), ignored));
}

/// Where the links lead that begin at `path`. Nothing need exist there.
std::string followed(std::string path)
{
    constexpr int mostLinks = 40; // As many as Linux follows.
    for (int links = 0; links < mostLinks; ++links) {
        std::error_code noLink;
        const fs::path next = fs::read_symlink(pathOf(path), noLink);
        if (noLink)
            return path;
        path = nameOf(pathOf(path).parent_path() / next);
    }
    throw systemFailure(path, ELOOP);
}

/// Whether the name is no place for another file: of a device for example, or of an open file that
/// has no other name any more.
bool isWrittenDirectly(const std::string& path, const std::string& target)
{
    std::error_code ignored;
    return isSpecial(path) || (fs::exists(pathOf(path), ignored) &&
                               !fs::equivalent(pathOf(path), pathOf(target), ignored));
}

Failure existsAlready(const std::string& path)
{
    return {ExitCode::Trouble, path + ": already exists, --force replaces it"};
}

} // namespace

OutputFile::OutputFile(const std::string& path, bool mayReplace)
    : path_(path), mayReplace_(mayReplace), target_(mayReplace ? followed(path) : path)
{
    if (isWrittenDirectly(path_, target_)) {
        file_ = openInPlace(path_.c_str(), mayReplace_);
        if (!file_ && errno == EEXIST)
            throw existsAlready(path_);
    } else {
        createTemporary();
    }
    if (!file_)
        throw systemFailure(path_, errno);
    stream_.use(file_);
}

OutputFile::~OutputFile()
{
    stream_.close();
    if (file_)
        std::fclose(file_);
    removeTemporary();
}

/// Leaves `file_` null, with `errno`, if it can't be done.
void OutputFile::createTemporary()
{
    const fs::path folder = pathOf(target_).parent_path();
    const std::string name = ".tavo-" + std::to_string(processNumber());
    for (int number = 0; number < 100; ++number) {
        temporary_ = nameOf(folder / (name + "-" + std::to_string(number) + ".tmp"));
        file_ = createTemporaryFile(temporary_.c_str());
        if (file_)
            return;
        temporary_.clear();
        if (errno != EEXIST)
            return;
    }
}

void OutputFile::commit()
{
    int error = stream_.close();
    if (error == 0 && !temporary_.empty())
        error = syncToDisk(file_);
    if (std::fclose(file_) != 0 && error == 0)
        error = errno;
    file_ = nullptr;
    if (error != 0)
        throw systemFailure(path_, error);
    if (!temporary_.empty())
        putInPlace();
}

void OutputFile::putInPlace()
{
    if (mayReplace_) {
        std::error_code ignored;
        if (const fs::file_status old = fs::status(pathOf(target_), ignored); fs::exists(old))
            fs::permissions(pathOf(temporary_), old.permissions(), ignored);
        if (const int error = moveOver(temporary_.c_str(), target_.c_str()))
            throw systemFailure(path_, error);
    } else if (const int error = moveToFreeName(temporary_.c_str(), target_.c_str())) {
        throw error == EEXIST ? existsAlready(path_) : systemFailure(path_, error);
    }
    releaseTemporaryFile();
    temporary_.clear();
    const std::string folder = nameOf(pathOf(target_).parent_path());
    if (const int error = syncFolder(folder.empty() ? "." : folder.c_str()))
        throw systemFailure(path_, error);
}

void OutputFile::removeTemporary()
{
    if (temporary_.empty())
        return;
    std::error_code ignored;
    fs::remove(pathOf(temporary_), ignored);
    releaseTemporaryFile();
}

void checkOutput(const std::string& input, const std::string& output, bool force)
{
    std::error_code ignored;
    if (fs::equivalent(pathOf(input), pathOf(output), ignored))
        throw Failure(ExitCode::Trouble, output + ": is the description itself");
    if (fs::is_directory(pathOf(output), ignored))
        throw systemFailure(output, EISDIR);
    if (!force && !isSpecial(output) && fs::exists(fs::symlink_status(pathOf(output), ignored)))
        throw existsAlready(output);
}

} // namespace tavo
