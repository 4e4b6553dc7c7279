#include "OutputFile.h"

#include "Failure.h"
#include "platform.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace tavo {

namespace fs = std::filesystem;

namespace {

/// A device, a pipe or a socket: there's nothing to replace, and no place for a file beside it.
bool isSpecial(const std::string& path)
{
    std::error_code ignored;
    return fs::is_other(fs::status(path, ignored));
}

/// Of a link that leads to a file, the file: it is to be replaced, and the link to stay.
std::string followed(const std::string& path)
{
    std::error_code error;
    const fs::path target = fs::canonical(path, error);
    return error ? path : target.string();
}

} // namespace

OutputFile::OutputFile(const std::string& path) : path_(path), target_(followed(path))
{
    if (isSpecial(path))
        file_ = std::fopen(path.c_str(), "w");
    else
        createTemporary();
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
    const fs::path folder = fs::path(target_).parent_path();
    const std::string name = ".tavo-" + std::to_string(processNumber());
    for (int number = 0; number < 100; ++number) {
        temporary_ = (folder / (name + "-" + std::to_string(number) + ".tmp")).string();
        removeOnSignal(temporary_.c_str());
        file_ = createNewFile(temporary_.c_str());
        if (file_)
            return;
        const int error = errno;
        removeOnSignal(nullptr);
        temporary_.clear();
        errno = error;
        if (error != EEXIST)
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
    if (temporary_.empty())
        return;
    std::error_code ignored;
    if (const fs::file_status old = fs::status(target_, ignored); fs::exists(old))
        fs::permissions(temporary_, old.permissions(), ignored);
    std::error_code failed;
    fs::rename(temporary_, target_, failed);
    if (failed)
        throw systemFailure(path_, failed.value());
    removeOnSignal(nullptr);
    temporary_.clear();
}

void OutputFile::removeTemporary()
{
    if (temporary_.empty())
        return;
    std::error_code ignored;
    fs::remove(temporary_, ignored);
    removeOnSignal(nullptr);
}

void checkOutput(const std::string& input, const std::string& output, bool force)
{
    std::error_code ignored;
    if (fs::equivalent(input, output, ignored))
        throw Failure(ExitCode::Trouble, output + ": is the description itself");
    if (fs::is_directory(output, ignored))
        throw systemFailure(output, EISDIR);
    if (!force && !isSpecial(output) && fs::exists(fs::symlink_status(output, ignored)))
        throw Failure(ExitCode::Trouble, output + ": exists already, --force replaces it");
}

} // namespace tavo
