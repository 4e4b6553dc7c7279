// The law of normalizing: the strict reader makes of the normalized description the configuration
// that the wide reader makes of the description itself, byte for byte.

#include "description.h"

#include "asap2/PhAsap2.h"
#include "daq/inventoryWriter.h"
#include "inventory/Inventory.h"
#include "normalized.h"
#include "support/written.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

using namespace tavo;

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    silenceReports();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Inventory inventory;
    PhAsap2 reader(nullptr);
    if (reader.read({reinterpret_cast<const char*>(data), size}, inventory) != 0 ||
        !hindrancesOf(inventory).empty())
        return 0;
    const std::string wide =
        written([&](ConfigurationStream& stream) { writeInventory(stream, inventory); });
    const std::string normalized =
        written([&](ConfigurationStream& stream) { writeNormalized(stream, inventory); });
    const std::string strict = strictConfiguration(normalized).value_or("refused");
    if (strict != wide) {
        std::fprintf(stderr, "%s\n==== wide\n%s\n==== strict\n%s\n", normalized.c_str(),
                     wide.c_str(), strict.c_str());
        std::abort();
    }
    return 0;
}
