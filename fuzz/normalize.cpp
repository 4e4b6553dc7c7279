// The law of normalizing: the strict reader makes of the normalized description the configuration
// that the wide reader makes of the description itself, byte for byte.

#include "description.h"

#include "a2l/PhA2l.h"
#include "asap2/PhAsap2.h"
#include "daq/ConfigurationStream.h"
#include "daq/inventoryWriter.h"
#include "daq/sections.h"
#include "daq/writer.h"
#include "inventory/Inventory.h"
#include "normalized.h"
#include "topology/PhRoot.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

using namespace tavo;

namespace {

/// What `write` puts into a stream.
template <class Write> std::string written(Write write)
{
    char* text = nullptr;
    std::size_t size = 0;
    std::FILE* file = open_memstream(&text, &size);
    {
        ConfigurationStream stream;
        stream.use(file);
        daqSourceIndex = 0;
        write(stream);
        stream.close();
    }
    std::fclose(file);
    std::string result(text, size);
    std::free(text);
    return result;
}

/// The configuration of a description that the strict reader must accept.
std::string strictConfiguration(const std::string& description)
{
    static MemoryFile file;
    file.assign(description);
    PhA2l reader(file.path());
    PhRoot root;
    if (reader.readFile(&root) != 0)
        return "refused";
    root.resolve();
    return written([&](ConfigurationStream& stream) { writeRoot(stream, &root); });
}

} // namespace

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
    const std::string strict = strictConfiguration(normalized);
    if (strict != wide) {
        std::fprintf(stderr, "%s\n==== wide\n%s\n==== strict\n%s\n", normalized.c_str(),
                     wide.c_str(), strict.c_str());
        std::abort();
    }
    return 0;
}
