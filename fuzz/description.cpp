#include "description.h"

#include "a2l/PhA2l.h"
#include "daq/ConfigurationStream.h"
#include "daq/writer.h"
#include "support/written.h"
#include "topology/PhRoot.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

using namespace tavo;

namespace {

[[noreturn]] void stop(const char* reason)
{
    std::fprintf(stderr, "%s\n", reason);
    std::abort();
}

/// Where configurations go: written in full, kept by nobody.
std::FILE* nowhere()
{
    static std::FILE* const file = std::fopen("/dev/null", "w");
    return file;
}

/// The status of the reading; the configuration is written if it is 0.
int convertOnce(const char* path, bool verbose)
{
    PhA2l reader(path);
    reader.setVerbose(verbose);
    reader.setDebug(verbose);
    PhRoot root;
    const int status = reader.readFile(&root);
    if (status == 0) {
        root.resolve();
        ConfigurationStream stream;
        stream.use(nowhere());
        writeRoot(stream, &root);
        if (stream.close() != 0)
            stop("the configuration was not written");
    }
    return status;
}

} // namespace

MemoryFile::MemoryFile() : descriptor_(memfd_create("description", MFD_CLOEXEC))
{
    if (descriptor_ < 0)
        stop("no memory file");
    std::snprintf(path_, sizeof path_, "/proc/self/fd/%d", descriptor_);
}

MemoryFile::~MemoryFile() { close(descriptor_); }

void MemoryFile::assign(std::string_view bytes)
{
    const auto size = static_cast<ssize_t>(bytes.size());
    if (ftruncate(descriptor_, 0) != 0 ||
        pwrite(descriptor_, bytes.data(), bytes.size(), 0) != size)
        stop("the memory file is full");
}

void silenceReports()
{
    if (!std::freopen("/dev/null", "w", stdout))
        stop("no /dev/null");
}

std::optional<std::string> strictConfiguration(std::string_view description, PhLogger* logger)
{
    static MemoryFile file;
    file.assign(description);
    PhA2l reader(file.path());
    reader.setLogger(logger);
    PhRoot root;
    root.setLogger(logger);
    if (reader.readFile(&root) != 0)
        return std::nullopt;
    root.resolve();
    return written([&](ConfigurationStream& stream) { writeRoot(stream, &root); });
}

void convert(std::string_view description)
{
    static MemoryFile file;
    file.assign(description);
    const int status = convertOnce(file.path(), false);
    if (status != 0 && status != -1)
        stop("a status that no reading gives");
    if (convertOnce(file.path(), true) != status)
        stop("a second reading ended otherwise");
}
