#include "tavo/tavo.h"

#include "conversion/Conversion.h"
#include "conversion/entry.h"
#include "daq/sections.h"

#include <cstdio>
#include <cstring>

using namespace tavo;

namespace {

bool hasKnownExtension(const char* path)
{
    return path && (std::strstr(path, ".a2l") || std::strstr(path, ".A2L"));
}

/// The report is frozen, odd words included, and nothing here flushes it: "What hosts rely on" in
/// docs/architecture.md.
std::int32_t convert(const char* inputPath, const char* outputPath)
{
    if (!hasKnownExtension(inputPath)) {
        std::printf("Error: Unkown file extension\n");
        return TAVO_UNKNOWN_EXTENSION;
    }
    const auto conversion = makeConversion(inputPath);
    std::printf("\n");
    const int status = conversion->read();
    std::printf("ph_reader->readFile () -> ");
    if (status == 0)
        std::printf("OK\n");
    else
        std::printf("FAILED (%d)\n", status);
    std::printf("\n\n");
    if (status != 0)
        return TAVO_NOT_READ;
    return conversion->write(outputPath) ? TAVO_OK : TAVO_OUTPUT_NOT_OPENED;
}

std::int32_t restart(const char* function)
{
    makeExceptionsPresent();
    std::printf("%s ()\n", function);
    daqSourceIndex = 0;
    return TAVO_OK;
}

} // namespace

std::int32_t tavoInitialize(void) { return restart("tavoInitialize"); }

std::int32_t tavoConvert(const char* inputPath, const char* outputPath)
{
    return enter([&] { return convert(inputPath, outputPath); });
}

std::int32_t tavoDeinitialize(void) { return restart("tavoDeinitialize"); }
