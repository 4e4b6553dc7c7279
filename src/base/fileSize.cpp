#include "base/fileSize.h"

#if !defined(_WIN32)
#include <sys/stat.h>
#endif

namespace tavo {

std::size_t sizeOfFile(std::FILE* file)
{
#if defined(_WIN32)
    if (std::fseek(file, 0, SEEK_END) != 0)
        return 0;
    const long end = std::ftell(file);
    std::rewind(file);
    return end > 0 ? static_cast<std::size_t>(end) : 0;
#else
    struct stat status = {};
    return fstat(fileno(file), &status) == 0 && S_ISREG(status.st_mode)
               ? static_cast<std::size_t>(status.st_size)
               : 0;
#endif
}

} // namespace tavo
