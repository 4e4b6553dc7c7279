// The whole way from the bytes of a description to a configuration.

#include "description.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    silenceReports();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    convert({reinterpret_cast<const char*>(data), size});
    return 0;
}
