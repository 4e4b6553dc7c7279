// The wide reader with any bytes: summing up, telling all, and going on after errors.

#include "support/wide.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view description(reinterpret_cast<const char*>(data), size);
    const WideReading reading = readWide(description);
    const WideReading verbose = readWide(description, true);
    if (verbose.status != reading.status || verbose.configuration != reading.configuration ||
        verbose.more != reading.more || verbose.messages.size() < reading.messages.size())
        std::abort();
    const WideReading onward = readWideOn(description);
    if (onward.status != reading.status || onward.messages.size() < reading.messages.size())
        std::abort();
    if (reading.status == 0 && onward.configuration != reading.configuration)
        std::abort();
    return 0;
}
