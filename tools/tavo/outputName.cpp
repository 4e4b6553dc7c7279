#include "outputName.h"

#include "Failure.h"
#include "Input.h"
#include "base/paths.h"

#include <filesystem>

namespace tavo {

namespace fs = std::filesystem;

namespace {

/// The path without the ending of a compressed file.
fs::path unpackedName(const fs::path& path)
{
    const fs::path extension = path.extension();
    const bool isPacked = extension == ".gz" || extension == ".zst";
    return isPacked ? fs::path(path).replace_extension() : path;
}

} // namespace

bool looksLikeDescription(const std::string& path)
{
    const fs::path extension = unpackedName(pathOf(path)).extension();
    return extension == ".a2l" || extension == ".A2L";
}

std::string outputNextTo(const std::string& input, const std::string& extension)
{
    if (isNameless(input))
        throw Failure(ExitCode::Usage, "The output of '" + input + "' needs a name",
                      "it comes after the input, as in '" + input + " ecu" + extension + "'");
    return nameOf(unpackedName(pathOf(input)).replace_extension(extension));
}

} // namespace tavo
