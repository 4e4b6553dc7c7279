// The lexer alone. The first byte chooses the vocabulary, the rest is the file.

#include "a2l/PhA2l.h"
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
    if (size == 0)
        return 0;
    static MemoryFile file;
    file.assign({reinterpret_cast<const char*>(data) + 1, size - 1});
    tavo::PhA2l reader(file.path());
    reader.setKeywordTable(*data % 5);
    return reader.print_tokens();
}
